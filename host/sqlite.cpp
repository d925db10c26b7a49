#include "host/sqlite.h"

#include <fmt/format.h>

#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>

namespace qzsql {

namespace {

constexpr const char* kDamaged = "damaged or cut off; put a sound copy in its place";

std::string Reason(sqlite3* handle) {
    const int system = sqlite3_system_errno(handle);
    return system == 0 ? sqlite3_errmsg(handle) : std::generic_category().message(system);
}

std::string Explain(sqlite3* handle) {
    switch (sqlite3_errcode(handle) & 0xFF) {
        case SQLITE_NOTADB:
            return "no SQLite file; name another file";
        case SQLITE_CORRUPT:
            return kDamaged;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "locked by another process; try again when that has ended";
        case SQLITE_READONLY:
            return "can't be written; make the file and its folder writable";
        case SQLITE_FULL:
            return "can't be written: the disk is full; make room and try again";
        case SQLITE_IOERR:
            return fmt::format("can't be read or written: {}; nothing was changed", Reason(handle));
        case SQLITE_CANTOPEN:
            return fmt::format("can't be opened: {}; look at the path and its permissions", Reason(handle));
        case SQLITE_ERROR:
            return fmt::format("damaged or of another make: {}", sqlite3_errmsg(handle));
        default:
            return sqlite3_errmsg(handle);
    }
}

constexpr int kPatience = 500;  // milliseconds that another process may hold a lock

// An absolute path keeps names like ":memory:" from meaning something else than a file. A pipe would keep SQLite
// waiting, and a device has no length.
std::string PathOfFile(const std::string& path) {
    if (path.empty()) throw SqliteError("the name of the file is empty; name a file");
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    const bool isFile = std::filesystem::is_regular_file(status) || std::filesystem::is_directory(status);
    if (std::filesystem::exists(status) && !isFile) throw SqliteError("a device or a pipe; name a file");
    return std::filesystem::absolute(path).string();
}

}  // namespace

Connection::Connection(const std::string& path, int flags) : path_(PathOfFile(path)) {
    sqlite3* handle = nullptr;
    const int code = sqlite3_open_v2(path_.c_str(), &handle, flags, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) Throw();
    sqlite3_busy_timeout(handle, kPatience);
}

// The transaction keeps others from growing the file meanwhile.
void Connection::CheckLength() {
    Execute("BEGIN");
    const auto length = Number("PRAGMA page_count") * Number("PRAGMA page_size");
    std::error_code error;
    if (length != static_cast<std::int64_t>(std::filesystem::file_size(path_, error))) throw SqliteError(kDamaged);
    Execute("COMMIT");
}

// A read meets some of the damage and passes by the rest; a save would make that final.
void Connection::CheckSoundness() {
    Statement check(*this, "PRAGMA integrity_check(1)");
    if (!check.Step() || check.Text(0) != u"ok") throw SqliteError(kDamaged);
}

void Connection::Execute(const char* sql) {
    if (sqlite3_exec(Handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Throw();
}

std::int64_t Connection::Number(const std::string& sql) {
    Statement statement(*this, sql);
    statement.Step();
    return statement.Number(0);
}

void Connection::Throw() const {
    ThrowIfOutOfMemory();
    throw SqliteError(Explain(Handle()));
}

void Connection::ThrowIfOutOfMemory() const {
    const int code = sqlite3_extended_errcode(Handle());
    if (code == SQLITE_NOMEM || code == SQLITE_IOERR_NOMEM) throw std::bad_alloc();
}

Statement::Statement(const Connection& connection, std::string_view sql) : connection_(&connection) {
    sqlite3_stmt* handle = nullptr;
    const int code =
        sqlite3_prepare_v2(connection.Handle(), sql.data(), static_cast<int>(sql.size()), &handle, nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) connection.Throw();
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE) connection_->Throw();
    return code == SQLITE_ROW;
}

void Statement::Run() {
    while (Step()) {
    }
    sqlite3_reset(handle_.get());
}

CString Statement::Text(int column) const {
    const bool isBytes = TypeOf(column) == SQLITE_BLOB;
    const void* data =
        isBytes ? sqlite3_column_blob(handle_.get(), column) : sqlite3_column_text(handle_.get(), column);
    if (data == nullptr) connection_->ThrowIfOutOfMemory();
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column));
    if (!isBytes) return CString::FromUtf8({static_cast<const char*>(data), size});
    std::u16string units(size / sizeof(char16_t), u'\0');
    if (!units.empty()) std::memcpy(units.data(), data, units.size() * sizeof(char16_t));
    return CString(std::move(units));
}

void Statement::Bind(int index, std::int64_t number) {
    if (sqlite3_bind_int64(handle_.get(), index, number) != SQLITE_OK) connection_->Throw();
}

void Statement::Bind(int index, const CString& text) {
    const std::u16string_view units = text.View();
    const bool isText = QZIsWellFormedUtf16(units) && units.find(u'\0') == std::u16string_view::npos;
    auto& utf8 = utf8_[index - 1];
    if (isText) utf8 = text.ToUtf8();
    const int code =
        isText
            ? sqlite3_bind_text64(handle_.get(), index, utf8.data(), utf8.size(), SQLITE_STATIC, SQLITE_UTF8)
            : sqlite3_bind_blob64(handle_.get(), index, units.data(), units.size() * sizeof(char16_t), SQLITE_STATIC);
    if (code != SQLITE_OK) connection_->Throw();
}

}  // namespace qzsql
