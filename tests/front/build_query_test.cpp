// From the text of a query to its model, and what a build leaves alone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemUnion.h"
#include "tests/platform/PrintText.h"
#include "tests/support/ModelText.h"

namespace {

const SelectItemField& FieldAt(const CList<SelectItem*>& list, int index) {
    return dynamic_cast<const SelectItemField&>(*list.GetAt(list.FindIndex(index)));
}

std::vector<CString> FieldNames(const CList<SelectItem*>& list) {
    std::vector<CString> names;
    for (int i = 0; i < list.GetCount(); ++i) names.push_back(FieldAt(list, i).GetFieldName());
    return names;
}

using Names = std::vector<CString>;

TEST(BuildQueryInfo, DoesNothingForOtherKindsOfDatabases) {
    for (const int kind : {1, 3, 5, 8, 16, 20}) {
        BuiltQuery built;
        built.query.SetSQL(u"SELECT MyFunc(1) AS x FROM t WHERE a = 1");
        const std::string before = built.Outline();
        BuildQueryInfo(&built.query, static_cast<DBTypes>(kind));
        EXPECT_TRUE(QZBuildQuery(&built.query, static_cast<DBTypes>(kind), nullptr));
        EXPECT_EQ(built.Outline(), before) << kind;
        EXPECT_EQ(built.query.m_listSelect.GetCount(), 0);
        EXPECT_EQ(built.database.m_mapUserFunctions.GetCount(), 0);
    }
}

TEST(BuildQueryInfo, ASecondBuildEmptiesTheListsFirst) {
    const CString sql = u"SELECT a, b AS x FROM t WHERE a = 1 GROUP BY a HAVING a > 1 ORDER BY b UNION SELECT c FROM u";
    BuiltQuery built(sql);
    const std::string first = built.Outline();
    built.Build();
    EXPECT_EQ(built.Outline(), first);
}

TEST(BuildQueryInfo, ASecondBuildKeepsTheEntriesOfMaps) {
    BuiltQuery built(u"SELECT a AS x FROM t");
    built.Build(u"SELECT b AS y FROM u");
    EXPECT_EQ(built.query.m_listSelect.GetCount(), 1);
    EXPECT_EQ(built.query.m_mapAliases.GetCount(), 3);  // x, y and the one of the bare tables
    EXPECT_EQ(built.query.m_mapSources.GetCount(), 2);
    EXPECT_EQ(built.query.m_mapFields.GetCount(), 2);
    CQZAliasInfo* alias = nullptr;
    EXPECT_TRUE(built.query.m_mapAliases.Lookup(u"x", alias));
}

TEST(BuildQueryInfo, TheNameOfTheQueryHasNoSay) {
    const BuiltQuery plain(u"SELECT a FROM t");
    for (const CString name : {u"qryMailAll", u"QRYMAILALL"}) {
        BuiltQuery named;
        named.query.SetName(name);
        named.Build(u"SELECT a FROM t");
        named.query.SetName({});
        EXPECT_EQ(named.Outline(), plain.Outline());
    }
}

TEST(BuildQueryInfo, ReadsTheRewrittenTextAndKeepsItsOwn) {
    using Lines = std::vector<std::string>;
    Lines lines;
    QZSetConsoleSink([](void* kept, std::string_view line) { static_cast<Lines*>(kept)->emplace_back(line); }, &lines);
    BuiltQuery built;
    built.query.SetSQL(u"SELECT [t.a] FROM t\r\n");
    BuildQueryInfo(&built.query, kDbMSAccess);
    QZSetConsoleSink(nullptr, nullptr);
    EXPECT_EQ(lines, (Lines{"[t.a]", "[t.a]", "t.a", "Output = SELECT [t].[a] FROM t"}));
    EXPECT_EQ(built.query.GetSQL(), u"SELECT [t.a] FROM t");
    EXPECT_EQ(FieldAt(built.query.m_listSelect, 0).GetTableName(), u"[t]");
}

TEST(BuildText, IsWhatABuildReadsWithoutALineOnTheConsole) {
    std::size_t lines = 0;
    QZSetConsoleSink([](void* count, std::string_view) { ++*static_cast<std::size_t*>(count); }, &lines);
    CQZQueryInfo query;
    query.SetSQL(u"SELECT [t.a],\r\n[t.a.b] FROM t ");
    EXPECT_EQ(QZBuildText(query, kDbMSAccess), u"SELECT [t].[a], [t.a.b] FROM t");
    EXPECT_EQ(QZBuildText(query, kDbMSSQL), u"SELECT [t.a], [t.a.b] FROM t");
    QZSetConsoleSink(nullptr, nullptr);
    EXPECT_EQ(lines, 0U);
}

TEST(BuildQueryInfo, AnEmptyTextLeavesTheListsEmpty) {
    std::vector<QZReport> reports;
    const QZReporter reporter{
        [](void* kept, const QZReport& report) { static_cast<std::vector<QZReport>*>(kept)->push_back(report); },
        &reports};
    BuiltQuery built;
    EXPECT_TRUE(QZBuildQuery(&built.query, kDbMSAccess, &reporter));
    EXPECT_FALSE(reports.empty());
    EXPECT_EQ(built.Outline(), "Query\n");
}

TEST(BuildQueryInfo, AQueryWithoutADatabaseIsBuiltToo) {
    CQZQueryInfo query;
    query.SetSQL(u"SELECT MyFunc(1), t.* FROM t");
    EXPECT_TRUE(QZBuildQuery(&query, kDbMSAccess, nullptr));
    EXPECT_EQ(query.m_listSelect.GetCount(), 2);
    EXPECT_EQ(FieldAt(query.m_listSelect, 1).GetFieldName(), u"*");
}

// ------------------------------------------------------------------------------------------------- with a catalog

class WithCatalog : public testing::Test {
 protected:
    WithCatalog() {
        auto& table = built.database.AddTable(u"Orders");
        table.AddField(u"Id");
        table.AddField(u"Due");
        built.database.AddQuery(u"Open");
    }

    BuiltQuery built;
};

TEST_F(WithCatalog, TheStarOfATableIsItsFields) {
    built.Build(u"SELECT a, orders.*, b FROM Orders");
    EXPECT_EQ(FieldNames(built.query.m_listSelect), (Names{u"a", u"Id", u"Due", u"b"}));
    EXPECT_EQ(FieldAt(built.query.m_listSelect, 1).GetTableName(), u"Orders");
    CFieldObject* record = nullptr;
    ASSERT_TRUE(built.query.m_mapFields.Lookup(u"OrdersId_0", record));
    EXPECT_EQ(record->TableName, u"Orders");
    EXPECT_EQ(record->FieldName, u"Id");
    EXPECT_FALSE(built.query.m_mapFields.Lookup(u"orders*_0", record));
}

TEST_F(WithCatalog, TheStarOfATableInAnExpressionOfAnAliasLeavesNoRecord) {
    built.Build(u"SELECT Orders.* AS x FROM Orders");
    CQZAliasInfo* alias = nullptr;
    ASSERT_TRUE(built.query.m_mapAliases.Lookup(u"x", alias));
    EXPECT_EQ(alias->Expression->Children.GetCount(), 3);  // Id, Due and the name
}

TEST_F(WithCatalog, TheStarOfAQueryStays) {
    built.Build(u"SELECT Open.*, * FROM Open");
    EXPECT_EQ(FieldNames(built.query.m_listSelect), (Names{u"*", u"*"}));
}

TEST_F(WithCatalog, TheStarOfATableWithoutFieldsIsNothing) {
    built.database.AddTable(u"Empty");
    built.Build(u"SELECT Empty.*, a FROM Empty");
    EXPECT_EQ(FieldNames(built.query.m_listSelect), (Names{u"a"}));
}

TEST_F(WithCatalog, SourcesGetTheirGuids) {
    built.Build(u"SELECT a FROM orders, Open, Unknown");
    CString value;
    ASSERT_TRUE(built.query.m_mapSources.Lookup(u"orders", value));
    EXPECT_EQ(value, built.database.m_listTables.GetHead()->GetGUID());
    ASSERT_TRUE(built.query.m_mapSources.Lookup(u"Open", value));
    EXPECT_EQ(value, built.database.m_listQueries.GetHead()->GetGUID());
    ASSERT_TRUE(built.query.m_mapSources.Lookup(u"Unknown", value));
    EXPECT_EQ(value, u"Unknown");
}

TEST_F(WithCatalog, ATableGoesBeforeAQueryOfItsName) {
    built.database.AddQuery(u"Orders");
    built.Build(u"SELECT a FROM Orders");
    CString value;
    ASSERT_TRUE(built.query.m_mapSources.Lookup(u"Orders", value));
    EXPECT_EQ(value, built.database.m_listTables.GetHead()->GetGUID());
}

TEST_F(WithCatalog, NestedQueriesGetTheCatalogAndItsGuids) {
    built.Build(u"SELECT a FROM (SELECT Orders.* FROM Orders) AS x UNION SELECT b FROM Open");
    const std::string outline = built.Outline();
    EXPECT_NE(outline.find("Class=Field ItemKind=5 TableName=\"Orders\" FieldName=\"Due\""), std::string::npos);
    const auto& member = dynamic_cast<const SelectItemUnion&>(*built.query.m_listUnion.GetHead());
    EXPECT_EQ(member.Query->GetDatabase(), &built.database);
    CString value;
    ASSERT_TRUE(member.Query->m_mapSources.Lookup(u"Open", value));
    EXPECT_EQ(value, built.database.m_listQueries.GetHead()->GetGUID());
}

TEST_F(WithCatalog, CallsOfUserFunctionsAreRecordedFromAllPlaces) {
    built.Build(u"SELECT F(1), G() FROM Orders WHERE H(I(1)) > 1 AND a IN (SELECT J(1) FROM t) UNION SELECT K(1)");
    EXPECT_EQ(built.database.m_mapUserFunctions.GetCount(), 6);
    CString count;
    for (const CString name : {u"F", u"G", u"H", u"I", u"J", u"K"}) {
        ASSERT_TRUE(built.database.m_mapUserFunctions.Lookup(name, count)) << name.ToUtf8();
        EXPECT_EQ(count, u"1") << name.ToUtf8();
    }
}

}  // namespace
