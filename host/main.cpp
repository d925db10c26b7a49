// qzsql: the command line.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <new>
#include <string>
#include <string_view>

#include "QZParserSQL/platform/Console.h"
#include "host/batch.h"
#include "host/big_stack.h"
#include "host/catalog_cli.h"
#include "host/commands.h"
#include "host/dialects.h"
#include "host/outline.h"
#include "host/output.h"
#include "host/tree_formats.h"

namespace {

using qzsql::ExitCode;

constexpr const char* kTokensHelp =
    "text is TYPE:\"text\" a line, with @hidden behind a hidden token. Characters that make no token, but for\n"
    "white space, are told on standard error as NAME:line:column: message.\n";

constexpr const char* kTreeHelp =
    "text is an outline; below depth {} a line begins with its depth (101> ) instead of blanks. sexpr is one\n"
    "line, dot is for Graphviz, svg takes one input and at most {} nodes. Errors of the syntax, nesting too\n"
    "deep, and characters that make no token, but for white space, are told on standard error as\n"
    "NAME:line:column: message.\n";

constexpr const char* kCheckHelp =
    "An input is clean; trailing, where text behind the query is not understood; or error. Characters that\n"
    "make no token, but for white space, are warnings.\n";

constexpr const char* kModelHelp =
    R"_(text is an outline: a line for each object with its members, below it its lists and maps, and the children
of an item by themselves. json is one object a query. Keys are the members' names; what is 0, empty or null is
left out, but for ItemKind. An alias that is Inherited came unchanged from the query around it. What is Cut would
have been too large; that is told on standard error too. Errors of the syntax, nesting too deep, text behind the
query that is not understood, and characters that make no token, but for white space, are told on standard error
as NAME:line:column: message. These places are of the text that the build reads: of MS Access queries, a pair of
words in brackets is two names, "[a.b]" is "[a].[b]", and an end of line is one blank where it is of two
characters. The library's console lines about that are dropped.
)_";

constexpr const char* kBatchHelp =
    R"_(A record is {"id":any,"sql":"..."}; "dialect" in it goes before -d. It is answered by
{"id":...,"status":"clean|trailing|error","tree":"(nil ...)"}, with tokens as an array of text lines, check and
model as their JSON objects; a bad line is answered by {"id":...,"error":"line 3: ..."}.
)_";

constexpr const char* kExitCodes =
    "Exit code: 0 done; 1 an input is not clean (check), nested too deep, or a record failed (batch); 2 wrong\n"
    "usage; 3 an input can't be read or the output can't be written; 4 out of memory; the highest that applies.";

std::string Footer(std::string_view about, std::string_view example) {
    return fmt::format("{}{}\n\nExample:\n  {}\n", about, kExitCodes, example);
}

CLI::Validator KnownDialect() {
    return {[](std::string& name) {
                return qzsql::FindDialect(name) == nullptr ? qzsql::UnknownDialect(name) : std::string();
            },
            "DIALECT", "dialect"};
}

void AddDialect(CLI::App& command, std::string& name, const std::string& help) {
    command.add_option("-d", name, fmt::format("{}: {}", help, qzsql::DialectNames()))->check(KnownDialect());
}

ExitCode Refuse(std::string_view command, std::string_view why) {
    qzsql::Tell(fmt::format("qzsql {}: {}\n", command, why));
    return qzsql::kWrongUsage;
}

void AddCatalog(CLI::App& command, std::string& store, bool& resolves) {
    command.add_option("--catalog", store, "for models: the store of a catalog, whose queries are built first")
        ->type_name("STORE");
    command.add_flag("--resolve", resolves, "for models: gives the query's items their names in the target");
}

/// A command that runs over single inputs.
class Showing {
 public:
    Showing(CLI::App& app, const char* name, const char* about, const std::string& footer) {
        request_.command = name;
        command_ = app.add_subcommand(name, about);
        command_->footer(footer);
        AddDialect(*command_, dialect_, "the dialect of the queries");
        command_->get_option("-d")->required();
        command_->add_option("-f", request_.format, "the format of the result")
            ->check(CLI::IsMember(qzsql::FormatNames(name)))
            ->capture_default_str();
        AddInputs();
    }

    bool IsChosen() const { return command_->parsed(); }

    void AddModelOptions() { AddCatalog(*command_, request_.catalog, request_.resolves); }

    ExitCode Run() {
        request_.dialect = qzsql::FindDialect(dialect_);
        const auto wrong = qzsql::WrongInputs(request_);
        return wrong.empty() ? qzsql::RunCommand(request_) : Refuse(request_.command, wrong);
    }

 private:
    void AddInputs() {
        command_->add_option("-e", request_.inputs.texts, "a query, named -e 1, -e 2 ...; before any FILE")
            ->type_name("SQL")
            ->allow_extra_args(false);
        command_
            ->add_option("FILE", request_.inputs.files,
                         "a query in UTF-8, or in UTF-16 with a byte-order mark; - is standard input")
            ->type_name("");
    }

    CLI::App* command_;
    std::string dialect_;
    qzsql::Request request_;
};

class Batch {
 public:
    explicit Batch(CLI::App& app) {
        auto* command =
            app.add_subcommand("batch", "answers records of newline-delimited JSON, one a line, in input order");
        command->footer(
            Footer(kBatchHelp, R"(echo '{"id":1,"sql":"SELECT a FROM t"}' | qzsql batch -d access --emit tree -j 4)"));
        AddDialect(*command, request_.dialect, "the dialect of records that name none");
        command->add_option("--emit", request_.emission, "what to answer with")
            ->required()
            ->check(CLI::IsMember(qzsql::EmissionNames()));
        command->add_option("-j", request_.threads, "how many threads work")
            ->check(CLI::Range(1U, 256U))
            ->capture_default_str();
        AddCatalog(*command, request_.catalog, request_.resolves);
        command->add_option("FILE", request_.file, "the records in UTF-8; - is standard input")
            ->type_name("")
            ->capture_default_str();
    }

    ExitCode Run() const {
        const auto wrong = qzsql::WrongRequest(request_);
        return wrong.empty() ? qzsql::RunBatch(request_) : Refuse("batch", wrong);
    }

 private:
    qzsql::BatchRequest request_;
};

/// What the builds of models tell on the console would be noise between thousands of queries.
void DropConsoleLine(void* /*context*/, std::string_view /*line*/) {}

/// Where nothing may be thrown, too, memory can run out.
void Terminate() {
    try {
        if (const auto failure = std::current_exception()) std::rethrow_exception(failure);
    } catch (const std::bad_alloc&) {
        std::_Exit(qzsql::TellOutOfMemory({}));
    } catch (...) {
    }
    std::abort();
}

/// Runs on a thread whose stack is large.
int RunDeep(const std::function<ExitCode()>& run) {
    ExitCode code = qzsql::kDone;
    qzsql::BigStackThread([&] { code = run(); }).Join();
    return code;
}

int Main(int argc, char** argv) {
    CLI::App app(
        "qzsql shows how stored SQL queries are understood: their tokens, trees and models, and what is wrong with "
        "them.");
    app.name("qzsql");
    app.set_version_flag("--version", "qzsql " QZSQL_VERSION);
    app.footer(Footer("", R"(qzsql tree -d access -e "SELECT a FROM t")"));

    Showing tokens(app, "tokens", "shows the tokens of queries",
                   Footer(kTokensHelp, R"(qzsql tokens -d access -e "SELECT a FROM t")"));
    Showing tree(app, "tree", "shows the trees of queries",
                 Footer(fmt::format(kTreeHelp, qzsql::kDeepestIndent, qzsql::kMostNodesInPicture),
                        R"(qzsql tree -d access -f sexpr -e "SELECT a FROM t" query.sql)"));
    Showing check(app, "check", "tells whether queries are understood to their end",
                  Footer(kCheckHelp, "qzsql check -d access -f json query.sql"));
    Showing model(app, "model", "shows the models of queries",
                  Footer(kModelHelp, R"(qzsql model -d access -f json -e "SELECT a AS x, x + 1 AS y FROM t")"));
    model.AddModelOptions();
    const Batch batch(app);
    const qzsql::CatalogCommandLine catalog(app);
    app.require_subcommand(0, 1)->allow_extras();  // so that we tell what is unknown

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? qzsql::kDone : qzsql::kWrongUsage;
    }
    if (!app.remaining().empty() || app.get_subcommands().empty()) {
        qzsql::TellMissingCommand(app);
        return qzsql::kWrongUsage;
    }
    for (auto* showing : {&tokens, &tree, &check, &model}) {
        if (showing->IsChosen()) return RunDeep([showing] { return showing->Run(); });
    }
    if (catalog.IsChosen()) return RunDeep([&catalog] { return catalog.Run(); });
    return RunDeep([&batch] { return batch.Run(); });
}

}  // namespace

int main(int argc, char** argv) {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));  // a write tells who has gone
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));  // and that a file may not grow
    std::set_terminate(Terminate);
    QZSetConsoleSink(DropConsoleLine, nullptr);
    try {
        return Main(argc, argv);
    } catch (const std::bad_alloc&) {
        return qzsql::TellOutOfMemory({});
    } catch (const std::exception& error) {
        qzsql::Tell(fmt::format("qzsql: {}\n", error.what()));
        return qzsql::kUnreadable;
    }
}
