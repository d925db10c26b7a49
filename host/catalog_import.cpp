#include "host/catalog_import.h"

#include <fmt/format.h>

#include <cctype>
#include <charconv>
#include <map>
#include <system_error>

#include "host/settings_store.h"
#include "host/sqlite.h"
#include "host/wrong_usage.h"

namespace qzsql {

namespace {

constexpr std::string_view kBlanks = " \t\r\n\f";

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool ReadNumber(std::string_view text, int& number) {
    text = Trim(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= 0;
}

/// Moves over the words of a statement.
class Words {
 public:
    explicit Words(std::string_view text) : text_(text) {}

    /// A name, a quoted name, a balanced pair of parentheses, or a single other character; empty at the end.
    std::string_view Next() {
        SkipBlanks();
        const auto begin = at_;
        if (at_ == text_.size()) return {};
        if (text_[at_] == '(') {
            SkipParentheses();
        } else if (!SkipQuoted()) {
            while (at_ < text_.size() && IsWord(text_[at_])) ++at_;
            if (at_ == begin) ++at_;
        }
        return text_.substr(begin, at_ - begin);
    }
    std::string_view Rest() const { return text_.substr(at_); }

 private:
    static bool IsWord(char c) {
        const auto byte = static_cast<unsigned char>(c);
        return std::isalnum(byte) != 0 || c == '_' || c == '$' || byte >= 0x80;
    }

    bool Skip(std::string_view opens, std::string_view closes) {
        if (text_.substr(at_, opens.size()) != opens) return false;
        const auto end = text_.find(closes, at_ + opens.size());
        at_ = end == std::string_view::npos ? text_.size() : end + closes.size();
        return true;
    }
    void SkipBlanks() {
        do {
            at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
        } while (Skip("--", "\n") || Skip("/*", "*/"));
    }
    /// A mark written twice within the quotes begins the next pair of them, to the same end.
    bool SkipQuoted() {
        const auto begin = at_;
        while (Skip("\"", "\"") || Skip("`", "`") || Skip("'", "'") || Skip("[", "]")) {
        }
        return at_ != begin;
    }
    void SkipParentheses() {
        int depth = 0;
        do {
            SkipBlanks();
            if (at_ == text_.size()) return;
            if (SkipQuoted()) continue;
            depth += text_[at_] == '(' ? 1 : text_[at_] == ')' ? -1 : 0;
            ++at_;
        } while (depth > 0);
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

std::string BytesOf(const Statement& row, int column) { return row.Text(column).ToUtf8(); }

class Import {
 public:
    Import(const std::string& path, CatalogDatabase& database, const DatabaseKind& dialect)
        : connection_(path, SQLITE_OPEN_READONLY), database_(database), dialect_(dialect) {
        connection_.Execute("PRAGMA trusted_schema = OFF");
    }

    Imported Run() {
        connection_.Execute("BEGIN");  // one state of the schema
        Statement objects(connection_,
                          "SELECT type, name, sql FROM sqlite_schema WHERE type IN ('table', 'view') AND name NOT LIKE "
                          "'sqlite\\_%' ESCAPE '\\' ORDER BY rowid");
        objects.Begin();
        while (objects.Step()) {
            const CString name = objects.Text(1);
            RefuseTwice(name);
            if (BytesOf(objects, 0) == "table") {
                AddTable(name);
            } else {
                AddView(name, BytesOf(objects, 2));
            }
        }
        database_.Connect();
        return imported_;
    }

 private:
    void RefuseTwice(const CString& name) const {
        const bool isThere = database_.FindTable(name) != nullptr || database_.FindQuery(name) != nullptr;
        if (isThere) {
            throw WrongUsage(fmt::format(
                "the store has an object {} already; import into a new store (qzsql catalog init)", name.ToUtf8()));
        }
    }

    void AddTable(const CString& name) {
        auto& table = database_.AddTable(name);
        const KeyColumns primary = AddFields(table);
        if (!primary.empty()) {
            auto& index = table.AddIndex(u"PRIMARY");
            index.columns = primary;
            index.Primary = index.Unique = 1;
        }
        AddIndexes(table);
        AddForeignKeys(table);
        ++imported_.tables;
    }

    /// Returns the primary key.
    KeyColumns AddFields(CatalogTable& table) {
        std::map<std::int64_t, KeyColumn> primary;
        fields_.Begin(table.GetSrcName());
        while (fields_.Step()) {
            auto& field = table.AddField(fields_.Text(0));
            const auto type = ReadDeclaredType(BytesOf(fields_, 1));
            field.SetType(CString::FromUtf8(type.name));
            field.SetLength(type.length).SetScale(type.scale);
            field.SetCollation(CollationOf(table.GetSrcName(), field.GetSrcName()));
            if (fields_.Number(2) > 0) primary[fields_.Number(2)] = {field.GetSrcName(), {}};
        }
        KeyColumns columns;
        for (const auto& [place, column] : primary) columns.push_back(column);
        return columns;
    }

    /// Empty for the usual one.
    CString CollationOf(const CString& table, const CString& field) const {
        const char* collation = nullptr;
        const int code =
            sqlite3_table_column_metadata(connection_.Handle(), "main", table.ToUtf8().c_str(), field.ToUtf8().c_str(),
                                          nullptr, &collation, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK || collation == nullptr || std::string_view(collation) == "BINARY") return {};
        return CString::FromUtf8(collation);
    }

    void AddIndexes(CatalogTable& table) {
        indexes_.Begin(table.GetSrcName());
        while (indexes_.Step()) {
            auto& index = table.AddIndex(indexes_.Text(0));
            index.Unique = static_cast<int>(indexes_.Number(1));
            indexFields_.Begin(index.GetSrcName());
            while (indexFields_.Step()) index.columns.push_back({indexFields_.Text(0), {}});
        }
    }

    void AddForeignKeys(CatalogTable& table) {
        std::int64_t current = -1;
        CatalogForeignKey* key = nullptr;
        keys_.Begin(table.GetSrcName());
        while (keys_.Step()) {
            if (keys_.Number(0) != current) {
                current = keys_.Number(0);
                const auto number = table.m_listForeignKeys.GetCount() + 1;
                key = &table.AddForeignKey(table.GetSrcName() + u"_fk" + CString::FromInt(number));
                key->ReferencedTable = keys_.Text(1);
            }
            key->columns.push_back({keys_.Text(2), keys_.Text(3)});
        }
    }

    void AddView(const CString& name, const std::string& statement) {
        const auto view = ReadViewText(statement);
        auto& query = database_.AddQuery(name);
        query.SetDialect(dialect_);
        query.SetText(CString::FromUtf8(view.select));
        if (view.namesColumns) {
            imported_.notes.push_back(
                fmt::format("view {}: the names that it gives its columns are not in the query's text", name.ToUtf8()));
        }
        ++imported_.queries;
    }

    Connection connection_;
    CatalogDatabase& database_;
    const DatabaseKind& dialect_;
    Imported imported_;
    Statement fields_{connection_, "SELECT name, type, pk FROM pragma_table_xinfo(?1) WHERE hidden <> 1 ORDER BY cid"};
    Statement indexes_{connection_,
                       "SELECT name, \"unique\" FROM pragma_index_list(?1) WHERE origin <> 'pk' ORDER BY seq DESC"};
    Statement indexFields_{connection_, "SELECT name FROM pragma_index_info(?1) ORDER BY seqno"};
    // The numbers of keys fall in the order of their declaration.
    Statement keys_{connection_,
                    "SELECT id, \"table\", \"from\", \"to\" FROM pragma_foreign_key_list(?1) ORDER BY id DESC, seq"};
};

}  // namespace

DeclaredType ReadDeclaredType(std::string_view declared) {
    declared = Trim(declared);
    DeclaredType whole{std::string(declared)};
    const auto open = declared.find('(');
    if (open == std::string_view::npos || declared.back() != ')') return whole;
    const auto inside = declared.substr(open + 1, declared.size() - open - 2);
    const auto comma = inside.find(',');
    DeclaredType type{std::string(Trim(declared.substr(0, open)))};
    if (!ReadNumber(inside.substr(0, comma), type.length)) return whole;
    if (comma != std::string_view::npos && !ReadNumber(inside.substr(comma + 1), type.scale)) return whole;
    return type;
}

ViewText ReadViewText(std::string_view statement) {
    Words words(statement);
    for (int skipped = 0; skipped < 3; ++skipped) words.Next();  // CREATE VIEW name
    auto word = words.Next();
    const bool namesColumns = !word.empty() && word.front() == '(';
    if (namesColumns) words.Next();
    return {std::string(Trim(words.Rest())), namesColumns};
}

Imported ImportSqlite(const std::string& path, CatalogDatabase& database, const DatabaseKind& dialect) {
    try {
        return Import(path, database, dialect).Run();
    } catch (const SqliteError& error) {
        throw StoreError(fmt::format("{}: {}", path, error.what()));
    }
}

}  // namespace qzsql
