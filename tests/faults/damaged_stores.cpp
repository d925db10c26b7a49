// Stores with damaged bytes: each command tells that or gives a result, and none loses what is intact. A file in which
// SQLite finds damage is not changed.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <string>

#include "host/catalog_commands.h"
#include "host/wrong_usage.h"
#include "tests/host/CatalogSamples.h"
#include "tests/host/StoreOnDisk.h"

namespace {

using qzsql::ExitCode;

constexpr unsigned kPatience = 20;  // seconds
constexpr int kTables = 12;

/// As the command line answers what a command throws. Nothing else may come out of it.
ExitCode Answer(const std::function<ExitCode()>& command) {
    try {
        return command();
    } catch (const qzsql::WrongUsage&) {
        return qzsql::kWrongUsage;
    } catch (const qzsql::StoreError& error) {
        if (*error.what() == '\0') std::abort();  // as bad as a crash
        return qzsql::kUnreadable;
    }
}

/// In a process of its own, without its output.
int RunInChild(const std::function<ExitCode()>& command) {
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        alarm(kPatience);
        _exit(Answer(command));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// The rows of a query, each as text; none where SQLite meets damage.
std::set<std::string> Rows(const std::string& path, const std::string& sql) {
    std::set<std::string> rows;
    try {
        const qzsql::Connection connection(path, SQLITE_OPEN_READWRITE);
        qzsql::Statement statement(connection, sql);
        while (statement.Step()) rows.insert(statement.Text(0).ToUtf8());
    } catch (const qzsql::SqliteError&) {
    }
    return rows;
}

/// Where each table of the catalog stands, and what is written there.
constexpr const char* kTableRows = R"(
    WITH RECURSIVE place (id, path) AS (
        SELECT id, name FROM section WHERE parent = 0
        UNION ALL
        SELECT section.id, path || '/' || name FROM section JOIN place ON parent = place.id WHERE length(path) < 500)
    SELECT value || char(9) || path || (SELECT group_concat(name || '=' || quote(value)) FROM setting WHERE section = id)
    FROM place JOIN setting ON section = id WHERE name = 'SrcName' AND value LIKE 'Table%')";

bool IsSound(const std::string& path) { return Rows(path, "PRAGMA integrity_check(1)") == std::set<std::string>{"ok"}; }

/// The tables whose rows are as they were.
std::set<std::string> IntactTables(const std::set<std::string>& rows, const std::set<std::string>& before) {
    std::set<std::string> names;
    for (const auto& row : rows) {
        if (before.count(row) != 0) names.insert(row.substr(0, row.find('\t')));
    }
    return names;
}

std::set<std::string> TablesLoaded(const std::string& path) {
    const auto database = qzsql::LoadCatalog(path);
    std::set<std::string> names;
    for (const auto* table : database->Tables()) names.insert(table->GetSrcName().ToUtf8());
    return names;
}

std::size_t FileCount() {
    const char* count = std::getenv("QZ_DAMAGED_STORES");
    return count == nullptr ? 1000 : std::strtoul(count, nullptr, 10);
}

class DamagedStores : public testing::Test {
 protected:
    DamagedStores() {
        qzsql::CreateCatalog(onDisk_.Path(), qzsql::DefaultKind());
        qzsql::CatalogEdit edit(onDisk_.Path());
        qzsql::FillCatalog(edit.Database(), kTables, 3);
        edit.Save();
    }

    /// One to sixteen bytes, any in the file or all near its beginning or near each other.
    std::string Damaged(std::string bytes, std::mt19937& chance) const {
        const auto below = [&chance](std::size_t limit) { return chance() % limit; };
        const std::size_t from = below(3) == 0 ? 0 : below(bytes.size());
        const std::size_t reach = std::min(bytes.size() - from, below(2) == 0 ? bytes.size() : std::size_t{200});
        for (std::size_t count = 1 + below(16); count > 0; --count) {
            bytes[from + below(reach)] = static_cast<char>(below(256));
        }
        return bytes;
    }

    StoreOnDisk onDisk_;
};

TEST_F(DamagedStores, TellItOrGiveAResult) {
    const std::string& path = onDisk_.Path();
    const std::string whole = onDisk_.Bytes();
    const auto rows = Rows(path, kTableRows);
    ASSERT_EQ(IntactTables(rows, rows), TablesLoaded(path));
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(kTables));
    const std::map<std::string, std::function<ExitCode()>> commands = {
        {"show",
         [&] {
             return qzsql::catalog::Show({path, ".", "json"});
         }},
        {"check", [&] { return qzsql::catalog::Check({path}); }},
        {"filter",
         [&] {
             return qzsql::catalog::Filter({path, "Table2", {"Field1", ">=", "7"}, {}, false});
         }},
        {"set",
         [&] {
             return qzsql::catalog::Set({path, ".", "Version", "77"});
         }},
    };
    const auto began = std::chrono::steady_clock::now();
    std::map<std::string, std::map<int, int>> answers;
    int sound = 0;
    for (std::size_t seed = 1; seed <= FileCount() && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 chance(static_cast<std::mt19937::result_type>(seed));
        const std::string damaged = Damaged(whole, chance);
        for (const auto& [name, command] : commands) {
            SCOPED_TRACE(name);
            onDisk_.Write(damaged);
            const bool wasSound = IsSound(path);
            const auto intact = IntactTables(Rows(path, kTableRows), rows);
            if (name == "show" && wasSound) ++sound;
            const int answer = RunInChild(command);
            ++answers[name][answer];
            EXPECT_TRUE(answer >= qzsql::kDone && answer <= qzsql::kUnreadable) << answer;
            if (answer == qzsql::kUnreadable || !wasSound) {
                EXPECT_EQ(onDisk_.Bytes(), damaged);
            } else {
                const auto loaded = TablesLoaded(path);
                EXPECT_TRUE(std::includes(loaded.begin(), loaded.end(), intact.begin(), intact.end()));
            }
        }
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    std::printf("%zu damaged stores, %d of them sound to SQLite; %.1f s\n", FileCount(), sound, took.count());
    for (const auto& [name, codes] : answers) {
        for (const auto& [code, times] : codes) std::printf("%s: %d times exit code %d\n", name.c_str(), times, code);
    }
}

}  // namespace
