#include "host/settings_store.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <limits>
#include <system_error>
#include <utility>

namespace qzsql {

namespace {

constexpr int kApplication = 0x515A5354;  // "QZST"

constexpr const char* kLayout = R"(
CREATE TABLE section (id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, name TEXT NOT NULL);
CREATE UNIQUE INDEX section_name ON section (parent, name);
CREATE TABLE setting (section INTEGER NOT NULL, name TEXT NOT NULL, value NOT NULL, PRIMARY KEY (section, name))
    WITHOUT ROWID;
)";

/// A removal that knows all sections below the first parameter. UNION, so that sections of a damaged file that lie
/// within each other end the walk.
std::string FromBelow(const char* rest) {
    return fmt::format(
        "WITH RECURSIVE below (id) AS (SELECT id FROM section WHERE parent = ?1 UNION SELECT section.id FROM section "
        "JOIN below ON section.parent = below.id) DELETE FROM {}",
        rest);
}

StoreError Failure(const std::string& path, std::string_view what) {
    return StoreError(fmt::format("{}: {}", path, what));
}

template <class Do>
auto WithPath(const std::string& path, Do act) {
    try {
        return act();
    } catch (const SqliteError& error) {
        throw Failure(path, error.what());
    }
}

/// Nobody may put code into the way of our statements, and nobody may guess a file that is not a store.
void Prepare(Connection& connection, SettingsStore::Use use) {
    sqlite3_db_config(connection.Handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection.Handle(), SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    connection.Execute("PRAGMA trusted_schema = OFF; PRAGMA temp_store = MEMORY; PRAGMA cache_size = -65536");
    connection.CheckLength();
    if (connection.Number("PRAGMA application_id") != kApplication) {
        throw SqliteError("no store of qzsql; name another file, or make a store with: qzsql catalog init STORE");
    }
    const auto version = connection.Number("PRAGMA user_version");
    if (version != SettingsStore::kVersion) {
        throw SqliteError(
            fmt::format("a store of version {}, while this qzsql reads version {}; use the qzsql that "
                        "wrote it",
                        version, SettingsStore::kVersion));
    }
    if (use == SettingsStore::Use::Read) {
        connection.Execute("PRAGMA query_only = ON");
    } else {
        connection.CheckSoundness();
    }
}

Connection OpenStore(const std::string& path, SettingsStore::Use use) {
    return WithPath(path, [&] {
        Connection connection(path, SQLITE_OPEN_READWRITE);
        Prepare(connection, use);
        return connection;
    });
}

void CreateFile(const std::string& path) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0 && errno == EEXIST) throw Failure(path, "is there already; name a new file, or remove it first");
    if (descriptor < 0) {
        throw Failure(path, fmt::format("can't be made: {}; look at the path and its permissions",
                                        std::generic_category().message(errno)));
    }
    close(descriptor);
}

}  // namespace

void SettingsStore::Create(const std::string& path) {
    CreateFile(path);
    try {
        WithPath(path, [&] {
            Connection connection(path, SQLITE_OPEN_READWRITE);
            connection.Execute("BEGIN IMMEDIATE");
            connection.Execute(kLayout);
            connection.Execute(
                fmt::format("PRAGMA application_id = {}; PRAGMA user_version = {}; COMMIT", kApplication, kVersion)
                    .c_str());
        });
    } catch (...) {
        unlink(path.c_str());
        throw;
    }
}

SettingsStore::Statements::Statements(const Connection& connection)
    : subsections(connection, "SELECT name FROM section WHERE parent = ?1 ORDER BY id"),
      find(connection, "SELECT id FROM section WHERE parent = ?1 AND name = ?2"),
      add(connection, "INSERT INTO section (parent, name) VALUES (?1, ?2)"),
      read(connection, "SELECT value FROM setting WHERE section = ?1 AND name = ?2"),
      write(connection, "INSERT OR REPLACE INTO setting VALUES (?1, ?2, ?3)"),
      emptyKeys(connection, FromBelow("setting WHERE section = ?1 OR section IN below")),
      emptySections(connection, FromBelow("section WHERE id IN below")) {}

SettingsStore::SettingsStore(std::string path, Use use)
    : path_(std::move(path)),
      use_(use),
      connection_(OpenStore(path_, use)),
      statements_(WithPath(path_, [this] { return Statements(connection_); })) {}

template <class Do>
void SettingsStore::Try(Do act) {
    if (failure_) return;
    try {
        act();
    } catch (...) {
        failure_ = std::current_exception();
    }
}

bool SettingsStore::MayWrite() {
    if (!IsUsable()) return false;
    Try([this] {
        if (use_ == Use::Read) throw SqliteError("was opened for reading and can't be changed");
    });
    return !failure_;
}

CList<CString> SettingsStore::GetSubSections() {
    CList<CString> names;
    if (!IsUsable()) return names;
    Try([&] {
        statements_.subsections.Begin(Open());
        while (statements_.subsections.Step()) names.AddTail(statements_.subsections.Text(0));
    });
    return names;
}

std::int64_t SettingsStore::Find(const CString& name) {
    std::int64_t section = kMissing;
    if (!IsUsable()) return section;
    Try([&] {
        if (statements_.find.Begin(Open(), name).Step()) section = statements_.find.Number(0);
        statements_.find.Begin();
    });
    return section;
}

std::int64_t SettingsStore::FindOrAdd(const CString& name, bool create) {
    std::int64_t section = Find(name);
    if (section != kMissing || !create || use_ == Use::Read || !IsUsable()) return section;
    Try([&] {
        statements_.add.Begin(Open(), name).Run();
        section = sqlite3_last_insert_rowid(connection_.Handle());
    });
    return section;
}

int SettingsStore::SectionExists(const CString& name) { return Find(name) != kMissing ? 1 : 0; }

int SettingsStore::OpenSection(const CString& name, int create) {
    if (open_.empty()) Begin();
    const std::int64_t section = FindOrAdd(name, create != 0);
    open_.push_back(section);
    return section != kMissing ? 1 : 0;
}

void SettingsStore::CloseSection() {
    if (open_.empty()) return;
    open_.pop_back();
    if (open_.empty()) End();
}

void SettingsStore::Begin() {
    isDiscarded_ = false;
    exceptions_ = std::uncaught_exceptions();
    Try([this] { connection_.Execute(use_ == Use::Read ? "BEGIN" : "BEGIN IMMEDIATE"); });
}

void SettingsStore::End() {
    statements_.subsections.Begin();
    const bool isGivenUp = isDiscarded_ || std::uncaught_exceptions() > exceptions_;
    if (!isGivenUp) Try([this] { connection_.Execute("COMMIT"); });
    // What could not be committed is given up; a failure of that is the failure that is told already.
    if (sqlite3_get_autocommit(connection_.Handle()) == 0) {
        sqlite3_exec(connection_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

int SettingsStore::ReadInt(const CString& key, int defaultValue) {
    int value = defaultValue;
    if (!IsUsable()) return value;
    Try([&] {
        auto& read = statements_.read.Begin(Open(), key);
        if (read.Step() && read.TypeOf(0) == SQLITE_INTEGER) {
            const std::int64_t number = read.Number(0);
            const bool isInRange =
                number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
            if (isInRange) value = static_cast<int>(number);
        }
        read.Begin();
    });
    return value;
}

CString SettingsStore::ReadString(const CString& key, const CString& defaultValue, int /*reserved*/) {
    CString value = defaultValue;
    if (!IsUsable()) return value;
    Try([&] {
        auto& read = statements_.read.Begin(Open(), key);
        const int type = read.Step() ? read.TypeOf(0) : SQLITE_NULL;
        if (type == SQLITE_TEXT || type == SQLITE_BLOB) value = read.Text(0);
        read.Begin();
    });
    return value;
}

template <class Value>
void SettingsStore::Write(const CString& key, const Value& value) {
    if (!MayWrite()) return;
    Try([&] { statements_.write.Begin(Open(), key, value).Run(); });
}

void SettingsStore::WriteInt(const CString& key, int value) { Write(key, value); }

void SettingsStore::WriteString(const CString& key, const CString& value, int /*reserved*/) { Write(key, value); }

void SettingsStore::EmptySection() {
    if (!MayWrite()) return;
    Try([this] {
        statements_.emptyKeys.Begin(Open()).Run();
        statements_.emptySections.Begin(Open()).Run();
    });
}

void SettingsStore::ThrowIfFailed() {
    if (!failure_) return;
    WithPath(path_, [this] { std::rethrow_exception(std::exchange(failure_, nullptr)); });
}

}  // namespace qzsql
