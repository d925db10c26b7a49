// qzsql: the command line.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

#include "host/batch.h"
#include "host/big_stack.h"
#include "host/catalog_cli.h"
#include "host/commands.h"
#include "host/dialects.h"
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

constexpr const char* kBatchHelp =
    R"_(A record is {"id":any,"sql":"..."}; "dialect" in it goes before -d. It is answered by
{"id":...,"status":"clean|trailing|error","tree":"(nil ...)"}, with tokens as an array of text lines and
check as its JSON object; a bad line is answered by {"id":...,"error":"line 3: ..."}.
)_";

constexpr const char* kExitCodes =
    "Exit code: 0 done; 1 an input is not clean (check), nested too deep, or a record failed (batch); 2 wrong\n"
    "usage; 3 an input can't be read or the output can't be written; the highest that applies.";

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

    ExitCode Run() {
        const auto wrong = qzsql::WrongInputs(request_);
        if (!wrong.empty()) {
            qzsql::Tell(fmt::format("qzsql {}: {}\n", request_.command, wrong));
            return qzsql::kWrongUsage;
        }
        request_.dialect = qzsql::FindDialect(dialect_);
        return qzsql::RunCommand(request_);
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
        command->add_option("FILE", request_.file, "the records in UTF-8; - is standard input")
            ->type_name("")
            ->capture_default_str();
    }

    ExitCode Run() const { return qzsql::RunBatch(request_); }

 private:
    qzsql::BatchRequest request_;
};

/// Runs on a thread whose stack is large.
int RunDeep(const std::function<ExitCode()>& run) {
    ExitCode code = qzsql::kDone;
    qzsql::BigStackThread([&] { code = run(); }).Join();
    return code;
}

int Main(int argc, char** argv) {
    CLI::App app(
        "qzsql shows how stored SQL queries are understood: their tokens, their trees, what is wrong with them.");
    app.name("qzsql");
    app.set_version_flag("--version", "qzsql " QZSQL_VERSION);
    app.require_subcommand(1);
    app.footer(Footer("", R"(qzsql tree -d access -e "SELECT a FROM t")"));

    Showing tokens(app, "tokens", "shows the tokens of queries",
                   Footer(kTokensHelp, R"(qzsql tokens -d access -e "SELECT a FROM t")"));
    Showing tree(app, "tree", "shows the trees of queries",
                 Footer(fmt::format(kTreeHelp, qzsql::kDeepestIndent, qzsql::kMostNodesInPicture),
                        R"(qzsql tree -d access -f sexpr -e "SELECT a FROM t" query.sql)"));
    Showing check(app, "check", "tells whether queries are understood to their end",
                  Footer(kCheckHelp, "qzsql check -d access -f json query.sql"));
    const Batch batch(app);
    const qzsql::CatalogCommandLine catalog(app);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? qzsql::kDone : qzsql::kWrongUsage;
    }
    for (auto* showing : {&tokens, &tree, &check}) {
        if (showing->IsChosen()) return RunDeep([showing] { return showing->Run(); });
    }
    if (catalog.IsChosen()) return RunDeep([&catalog] { return catalog.Run(); });
    return RunDeep([&batch] { return batch.Run(); });
}

}  // namespace

int main(int argc, char** argv) {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));  // a write tells who has gone
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));  // and that a file may not grow
    try {
        return Main(argc, argv);
    } catch (const std::exception& error) {
        qzsql::Tell(fmt::format("qzsql: {}\n", error.what()));
        return qzsql::kUnreadable;
    }
}
