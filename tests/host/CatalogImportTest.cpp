// The schema of an SQLite database as a catalog.
#include <gtest/gtest.h>

#include "host/catalog_import.h"
#include "host/settings_store.h"
#include "host/sqlite.h"
#include "host/wrong_usage.h"
#include "tests/host/StoreOnDisk.h"
#include "tests/platform/PrintText.h"

namespace qzsql {
namespace {

using Names = std::vector<CString>;

class CatalogImportTest : public testing::Test {
 protected:
    Imported Import(const char* schema) {
        Connection(onDisk_.Path(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).Execute(schema);
        return ImportSqlite(onDisk_.Path(), database_, *FindKind(std::string_view("mysql")));
    }
    CatalogTable& Table(const CString& name) { return *database_.FindTable(name); }

    StoreOnDisk onDisk_;
    CatalogDatabase database_{DefaultKind()};
};

template <class List>
Names NamesOf(const List& list) {
    Names names;
    for (const auto* object : list) names.push_back(object->GetSrcName());
    return names;
}

Names FieldsOf(const KeyColumns& columns, CString KeyColumn::*name = &KeyColumn::field) {
    Names names;
    for (const auto& column : columns) names.push_back(column.*name);
    return names;
}

CatalogIndex& IndexAt(CatalogTable& table, int place) {
    return static_cast<CatalogIndex&>(*table.m_listIndexes.GetAt(table.m_listIndexes.FindIndex(place)));
}

CatalogForeignKey& KeyAt(CatalogTable& table, int place) {
    return static_cast<CatalogForeignKey&>(*table.m_listForeignKeys.GetAt(table.m_listForeignKeys.FindIndex(place)));
}

TEST_F(CatalogImportTest, FieldsWithTypesLengthsAndCollations) {
    const auto imported = Import(R"(CREATE TABLE "Größe x" (a INTEGER, b varchar ( 50 ) COLLATE NOCASE,
        c DECIMAL(10, 2), d, e AS (a + 1)))");
    EXPECT_EQ(imported.tables, 1);
    auto& table = Table(u"größe X");
    EXPECT_EQ(table.GetName(), u"Größe x");
    EXPECT_EQ(table.GetDatabase(), &database_);
    EXPECT_EQ(NamesOf(table.m_listFields), Names({u"a", u"b", u"c", u"d", u"e"}));
    const auto& b = static_cast<CatalogField&>(*table.FindFieldBySrcName(u"b"));
    EXPECT_EQ(b.GetType(), u"varchar");
    EXPECT_EQ(b.GetLength(), 50);
    EXPECT_EQ(b.GetCollation(), u"NOCASE");
    const auto& c = static_cast<CatalogField&>(*table.FindFieldBySrcName(u"c"));
    EXPECT_EQ(c.GetType(), u"DECIMAL");
    EXPECT_EQ(c.GetLength(), 10);
    EXPECT_EQ(c.GetScale(), 2);
    EXPECT_EQ(c.GetCollation(), u"");
    const auto& d = *table.FindFieldBySrcName(u"d");
    EXPECT_EQ(d.GetType(), u"");
    EXPECT_EQ(d.GetLength(), -1);
}

TEST_F(CatalogImportTest, PrimaryKeysAndOtherIndexes) {
    Import(R"(CREATE TABLE rowid_key (id INTEGER PRIMARY KEY, a);
        CREATE TABLE pair (a, b, c UNIQUE, PRIMARY KEY (b, a));
        CREATE INDEX i1 ON pair (c, lower(a)); CREATE UNIQUE INDEX i2 ON pair (a);
        CREATE TABLE none (a))");
    auto& single = Table(u"rowid_key");
    ASSERT_EQ(NamesOf(single.m_listIndexes), Names({u"PRIMARY"}));
    EXPECT_EQ(single.GetPrimaryKeyIndex(), single.m_listIndexes.GetHead());
    EXPECT_EQ(FieldsOf(IndexAt(single, 0).columns), Names({u"id"}));
    auto& pair = Table(u"pair");
    ASSERT_EQ(NamesOf(pair.m_listIndexes), Names({u"PRIMARY", u"sqlite_autoindex_pair_1", u"i1", u"i2"}));
    EXPECT_EQ(FieldsOf(IndexAt(pair, 0).columns), Names({u"b", u"a"}));
    EXPECT_EQ(IndexAt(pair, 1).Unique, 1);
    EXPECT_EQ(IndexAt(pair, 1).Primary, 0);
    EXPECT_EQ(FieldsOf(IndexAt(pair, 2).columns), Names({u"c", u""}));
    EXPECT_EQ(IndexAt(pair, 2).Unique, 0);
    EXPECT_EQ(IndexAt(pair, 3).Unique, 1);
    EXPECT_TRUE(Table(u"none").m_listIndexes.IsEmpty());
    EXPECT_EQ(Table(u"none").GetPrimaryIndex(), nullptr);
}

TEST_F(CatalogImportTest, ForeignKeysInTheOrderOfTheirDeclaration) {
    Import(R"(CREATE TABLE child (a REFERENCES parent, b, c, FOREIGN KEY (b, c) REFERENCES Parent (x, y),
            FOREIGN KEY (c) REFERENCES gone (z));
        CREATE TABLE parent (x, y, PRIMARY KEY (x, y)))");
    auto& child = Table(u"child");
    ASSERT_EQ(NamesOf(child.m_listForeignKeys), Names({u"child_fk1", u"child_fk2", u"child_fk3"}));
    EXPECT_EQ(KeyAt(child, 0).ReferencedTable, u"parent");
    EXPECT_EQ(FieldsOf(KeyAt(child, 0).columns), Names({u"a"}));
    EXPECT_EQ(FieldsOf(KeyAt(child, 0).columns, &KeyColumn::referenced), Names({u""}));
    EXPECT_EQ(FieldsOf(KeyAt(child, 1).columns), Names({u"b", u"c"}));
    EXPECT_EQ(FieldsOf(KeyAt(child, 1).columns, &KeyColumn::referenced), Names({u"x", u"y"}));
    EXPECT_EQ(KeyAt(child, 1).GetReferencedTableGUID(), Table(u"parent").GetGUID());
    EXPECT_EQ(KeyAt(child, 2).GetReferencedTableGUID(), u"");
}

TEST_F(CatalogImportTest, ViewsAreQueriesWithTheirText) {
    const auto imported = Import(R"(CREATE TABLE t (a, b);
        CREATE VIEW "as view" AS SELECT a FROM t;
        CREATE VIEW named(x, y) AS SELECT a, b FROM t)");
    EXPECT_EQ(imported.tables, 1);
    EXPECT_EQ(imported.queries, 2);
    EXPECT_EQ(database_.FindQuery(u"as view")->Text(), u"SELECT a FROM t");
    EXPECT_EQ(database_.FindQuery(u"as view")->DialectName(), "mysql");
    EXPECT_EQ(database_.FindQuery(u"named")->Text(), u"SELECT a, b FROM t");
    ASSERT_EQ(imported.notes.size(), 1U);
    EXPECT_EQ(imported.notes[0], "view named: the names that it gives its columns are not in the query's text");
}

TEST_F(CatalogImportTest, InternalTablesStayOut) {
    Import("CREATE TABLE t (a INTEGER PRIMARY KEY AUTOINCREMENT); CREATE TABLE sqliteX (a)");
    EXPECT_EQ(NamesOf(database_.m_listTables), Names({u"t", u"sqliteX"}));
}

TEST_F(CatalogImportTest, ANameThatIsThereIsRefused) {
    database_.AddQuery(u"T");
    try {
        Import("CREATE TABLE t (a)");
        ADD_FAILURE() << "was imported";
    } catch (const WrongUsage& error) {
        EXPECT_STREQ(error.what(), "the store has an object t already; import into a new store (qzsql catalog init)");
    }
}

TEST_F(CatalogImportTest, WhatIsNoDatabaseIsRefused) {
    onDisk_.Write("no database" + std::string(1000, ' '));
    try {
        ImportSqlite(onDisk_.Path(), database_, DefaultKind());
        ADD_FAILURE() << "was imported";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.what(), onDisk_.Path() + ": no SQLite file; name another file");
    }
}

TEST(DeclaredTypes, AreTakenApart) {
    const auto expect = [](std::string_view declared, std::string_view name, int length, int scale) {
        const auto type = ReadDeclaredType(declared);
        EXPECT_EQ(type.name, name) << declared;
        EXPECT_EQ(type.length, length) << declared;
        EXPECT_EQ(type.scale, scale) << declared;
    };
    expect("INTEGER", "INTEGER", -1, 0);
    expect("VARCHAR(50)", "VARCHAR", 50, 0);
    expect(" double precision ", "double precision", -1, 0);
    expect("DECIMAL (10 , 2)", "DECIMAL", 10, 2);
    expect("VARCHAR(MAX)", "VARCHAR(MAX)", -1, 0);
    expect("DECIMAL(10,x)", "DECIMAL(10,x)", -1, 0);
    expect("DECIMAL(-1)", "DECIMAL(-1)", -1, 0);
    expect("VARCHAR(99999999999)", "VARCHAR(99999999999)", -1, 0);
    expect("VARCHAR(50) BINARY", "VARCHAR(50) BINARY", -1, 0);
    expect("()", "()", -1, 0);
    expect(")(", ")(", -1, 0);
    expect("", "", -1, 0);
}

TEST(ViewTexts, BeginBehindAs) {
    const auto select = [](std::string_view statement) { return ReadViewText(statement).select; };
    EXPECT_EQ(select("CREATE VIEW v AS SELECT 1"), "SELECT 1");
    EXPECT_EQ(select("CREATE VIEW v as\n  SELECT a AS b FROM t  "), "SELECT a AS b FROM t");
    EXPECT_EQ(select("CREATE VIEW \"a \"\" AS b\" AS SELECT 1"), "SELECT 1");
    EXPECT_EQ(select("CREATE VIEW [x AS y]AS SELECT 1"), "SELECT 1");
    EXPECT_EQ(select("CREATE VIEW `v` /* AS */ -- AS\n AS SELECT 1"), "SELECT 1");
    EXPECT_EQ(select("CREATE VIEW v(a, \"b)\", [c(]) AS SELECT 1"), "SELECT 1");
    EXPECT_TRUE(ReadViewText("CREATE VIEW v(a) AS SELECT 1").namesColumns);
    EXPECT_FALSE(ReadViewText("CREATE VIEW v AS SELECT (1)").namesColumns);
    EXPECT_EQ(select("CREATE VIEW"), "");
    EXPECT_EQ(select("CREATE VIEW v("), "");
}

}  // namespace
}  // namespace qzsql
