#include "host/catalog_cli.h"

#include <fmt/format.h>

#include <new>
#include <stdexcept>

#include "host/catalog_filter.h"
#include "host/database_kinds.h"
#include "host/nearest_names.h"
#include "host/output.h"
#include "host/wrong_usage.h"

namespace qzsql {

namespace {

constexpr const char* kAbout = "keeps the tables, queries and options of a conversion in a store";

constexpr const char* kObjects =
    "OBJECT is a table, a query, TABLE.NAME for a field, an index or a foreign key, or . for the database;\n"
    "the names are those of the source, in any case.\n";

constexpr const char* kSetHelp =
    "The rules of the catalog may change other options along with the one that is set; all that changes is\n"
    "printed. What a rule refuses is told with the option that stands in the way. Nothing is changed then.\n";

constexpr const char* kCheckHelp =
    "Prints what is wrong: keys on fields or tables that do not exist, queries that read what does not exist\n"
    "or is not selected, queries that read each other in a ring.\n";

constexpr const char* kFilterHelp =
    "The conditions are FIELD OP VALUE, with and or or between them; is-null and is-not-null take no VALUE.\n"
    "Where a VALUE looks like an option, put -- before the STORE. A filter replaces the former one;\n"
    "without conditions, --sql and --remove the filter is shown.\n";

constexpr const char* kExitCodes =
    "Exit code: 0 done; 1 a rule refuses (set), there are faults (check); 2 wrong usage, unknown names\n"
    "included; 3 the store or an input can't be read or written; 4 out of memory. What fails leaves the store as it "
    "was.";

CLI::Validator KnownKind() {
    return {[](std::string& name) {
                if (FindKind(std::string_view(name)) != nullptr) return std::string();
                return fmt::format("unknown dialect '{}'; the known ones are: {}", name, KindNames());
            },
            "DIALECT", "dialect"};
}

CLI::Option* AddDialect(CLI::App& command, std::string& name, const char* help) {
    return command.add_option("-d", name, fmt::format("{}: {}", help, KindNames()))->check(KnownKind());
}

CLI::Option* AddName(CLI::App& command, const char* name, std::string& to, const char* help) {
    return command.add_option(name, to, help)->type_name("")->required();
}

}  // namespace

CatalogCommandLine::CatalogCommandLine(CLI::App& app) : command_(app.add_subcommand("catalog", kAbout)) {
    command_->footer(
        fmt::format("{}\n\nExample:\n  qzsql catalog init shop.qzc && qzsql catalog show shop.qzc\n", kExitCodes));
    AddInit();
    AddImport();
    AddAddQuery();
    AddShow();
    AddSet();
    AddCheck();
    AddFilter();
    command_->require_subcommand(0, 1)->allow_extras();  // of its own only
}

CLI::App& CatalogCommandLine::Add(const char* name, const char* about, const char* help, const char* example,
                                  std::string& store, std::function<ExitCode()> run) {
    auto* command = command_->add_subcommand(name, about);
    command->footer(fmt::format("{}{}\n\nExample:\n  qzsql catalog {}\n", help, kExitCodes, example));
    AddName(*command, "STORE", store, "the file of the catalog");
    commands_.emplace_back(command, std::move(run));
    return *command;
}

void CatalogCommandLine::AddInit() {
    auto& command = Add("init", "makes a new store with an empty catalog", "", "init shop.qzc -d access", init_.store,
                        [this] { return catalog::Init(init_); });
    AddDialect(command, init_.dialect, "the kind of the database")->capture_default_str();
}

void CatalogCommandLine::AddImport() {
    auto& command = Add("import", "adds the schema of a database: tables with their keys, and views as queries", "",
                        "import --sqlite shop.db shop.qzc", import_.store, [this] { return catalog::Import(import_); });
    command.add_option("--sqlite", import_.sqlite, "the database, an SQLite file")->type_name("DATABASE")->required();
    AddDialect(command, import_.dialect, "the dialect of the views, else that of the catalog");
}

void CatalogCommandLine::AddAddQuery() {
    auto& command = Add("add-query", "adds a query with its text", "",
                        R"(add-query shop.qzc "Open Orders" open_orders.sql -d access)", addQuery_.store,
                        [this] { return catalog::AddQuery(addQuery_); });
    AddName(command, "NAME", addQuery_.name, "the name of the query");
    AddName(command, "FILE", addQuery_.file,
            "its text in UTF-8, or in UTF-16 with a byte-order mark; - is standard input");
    AddDialect(command, addQuery_.dialect, "the dialect of the text")->required();
    command.add_flag("--replace", addQuery_.replaces, "give the new text to a query that is there");
}

void CatalogCommandLine::AddShow() {
    auto& command = Add("show", "shows the catalog or one of its objects", kObjects, "show shop.qzc Orders",
                        show_.store, [this] { return catalog::Show(show_); });
    command.add_option("OBJECT", show_.object, "what to show")->type_name("")->capture_default_str();
    command.add_option("-f", show_.format, "the format of the result")
        ->check(CLI::IsMember({"text", "json"}))
        ->capture_default_str();
}

void CatalogCommandLine::AddSet() {
    static const std::string help = std::string(kObjects) + kSetHelp;
    auto& command = Add("set", "sets an option of an object", help.c_str(), "set shop.qzc Orders CopyData 0",
                        set_.store, [this] { return catalog::Set(set_); });
    AddName(command, "OBJECT", set_.object, "whose option to set");
    AddName(command, "OPTION", set_.option, "as show prints it, in any case");
    AddName(command, "VALUE", set_.value, "the new value");
}

void CatalogCommandLine::AddCheck() {
    Add("check", "tells whether the catalog holds together", kCheckHelp, "check shop.qzc", check_.store,
        [this] { return catalog::Check(check_); });
}

void CatalogCommandLine::AddFilter() {
    auto& command = Add("filter", "restricts the rows of a table", kFilterHelp,
                        R"(filter shop.qzc Orders Amount ">=" 100 and Paid is-null)", filter_.store,
                        [this] { return catalog::Filter(filter_); });
    AddName(command, "TABLE", filter_.table, "whose rows to restrict");
    command.add_option("CONDITION", filter_.conditions, fmt::format("OP is one of {}", ComparisonNames()))
        ->type_name("");
    command.add_option("--sql", filter_.sql, "a condition as SQL text instead")->type_name("TEXT");
    command.add_flag("--remove", filter_.removes, "remove the filter");
}

ExitCode CatalogCommandLine::Run() const {
    if (!command_->remaining().empty() || command_->get_subcommands().empty()) {
        TellMissingCommand(*command_);
        return kWrongUsage;
    }
    for (const auto& [command, run] : commands_) {
        if (!command->parsed()) continue;
        try {
            return run();
        } catch (const WrongUsage& error) {
            Tell(fmt::format("qzsql catalog {}: {}\n", command->get_name(), error.what()));
            return kWrongUsage;
        } catch (const std::bad_alloc&) {
            return TellOutOfMemory(command->get_option("STORE")->results().front());
        } catch (const std::exception& error) {
            Tell(fmt::format("qzsql catalog {}: {}\n", command->get_name(), error.what()));
            return kUnreadable;
        }
    }
    return kWrongUsage;
}

void TellMissingCommand(const CLI::App& app) {
    std::vector<CString> names;
    std::string all;
    for (const auto* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(CString::FromUtf8(command->get_name()));
        all.append(all.empty() ? "" : ", ").append(command->get_name());
    }
    const auto words = app.remaining();
    const auto fault =
        words.empty() ? "a command is missing." : UnknownName("command", CString::FromUtf8(words.front()), names);
    const auto path = app.get_parent() == nullptr ? app.get_name() : "qzsql " + app.get_name();
    Tell(fmt::format("{}: {} The commands are {}; see: {} --help\n", path, fault, all, path));
}

}  // namespace qzsql
