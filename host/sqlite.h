// SQLite connections and statements that close themselves and throw.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "QZParserSQL/platform/CString.h"

namespace qzsql {

/// What SQLite answered, in words that say what is wrong and what to do.
struct SqliteError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class Connection {
 public:
    /// A file that exists. Throws SqliteError, and std::bad_alloc like all that follows.
    Connection(const std::string& path, int flags);

    /// Throws SqliteError where the file is not as long as its pages; SQLite overlooks half a page.
    void CheckLength();
    /// Throws SqliteError where SQLite finds damage. Reads the whole file.
    void CheckSoundness();
    /// Runs statements without results.
    void Execute(const char* sql);
    /// The first column of the one row of a query.
    std::int64_t Number(const std::string& sql);
    [[noreturn]] void Throw() const;
    void ThrowIfOutOfMemory() const;

    sqlite3* Handle() const { return handle_.get(); }

 private:
    std::string path_;
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

/// A statement to be run any number of times. Columns and parameters are numbered as SQLite does, from 0 and from 1.
class Statement {
 public:
    Statement(const Connection& connection, std::string_view sql);

    /// Begins anew with these parameters. Texts must live until the statement is begun again or read to its end.
    template <class... Values>
    Statement& Begin(const Values&... values) {
        sqlite3_reset(handle_.get());
        int index = 0;
        (Bind(++index, values), ...);
        return *this;
    }
    /// False behind the last row.
    bool Step();
    /// Runs to the end.
    void Run();

    int TypeOf(int column) const { return sqlite3_column_type(handle_.get(), column); }
    bool IsNull(int column) const { return TypeOf(column) == SQLITE_NULL; }
    std::int64_t Number(int column) const { return sqlite3_column_int64(handle_.get(), column); }
    /// The same texts come back as Begin was given. Text of another origin that is not UTF-8 is mended with U+FFFD.
    CString Text(int column) const;

 private:
    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };

    void Bind(int index, std::int64_t number);
    /// As text, or as the bytes of its units where UTF-8 can't hold it.
    void Bind(int index, const CString& text);

    const Connection* connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
    std::string utf8_[4];
};

}  // namespace qzsql
