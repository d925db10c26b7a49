// Whether a catalog holds together.
#include <gtest/gtest.h>

#include <ctime>

#include "host/catalog_check.h"
#include "host/query_sources.h"
#include "tests/host/CatalogSamples.h"
#include "tests/platform/PrintText.h"

namespace qzsql {
namespace {

using Lines = std::vector<std::string>;
using Names = std::vector<CString>;

class CatalogCheckTest : public testing::Test {
 protected:
    void AddQuery(const CString& name, const CString& text) { database_.AddQuery(name).SetText(text); }

    CatalogDatabase database_{DefaultKind()};
};

Names SourcesOf(const CString& text, bool isUnderstood = true) {
    CatalogQuery query(DefaultKind());
    query.SetText(text);
    const auto sources = ReadSources(query);
    EXPECT_EQ(sources.isUnderstood, isUnderstood);
    return sources.names;
}

TEST(QuerySources, AreReadFromEverySelect) {
    EXPECT_EQ(SourcesOf(u"SELECT t.a FROM t AS x, [Order Details] WHERE a.b = 1"), Names({u"t", u"Order Details"}));
    EXPECT_EQ(SourcesOf(u"SELECT a FROM (t INNER JOIN u ON t.i = u.i) LEFT JOIN v ON u.i = v.i"),
              Names({u"t", u"u", u"v"}));
    EXPECT_EQ(SourcesOf(u"SELECT a FROM (SELECT b FROM t) AS q UNION SELECT c FROM u"), Names({u"t", u"u"}));
    EXPECT_EQ(SourcesOf(u"SELECT a FROM db.t"), Names({u"t"}));
    EXPECT_EQ(SourcesOf(u"SELECT 1"), Names());
    EXPECT_EQ(SourcesOf(u"SELECT a FROM t THEN FROM u", false), Names({u"t"}));
}

TEST_F(CatalogCheckTest, NothingIsWrongWithACatalogThatHoldsTogether) {
    FillCatalog(database_, 10, 2);
    AddQuery(u"q", u"SELECT Field1 FROM Query10, Table1");
    AddQuery(u"constant", u"SELECT 1");
    const auto findings = CheckCatalog(database_);
    EXPECT_EQ(findings.faults, Lines());
    EXPECT_EQ(findings.notes, Lines());
}

TEST_F(CatalogCheckTest, KeysThatPointNowhere) {
    FillCatalog(database_, 2, 2);
    static_cast<CatalogIndex*>(database_.Tables()[0]->m_listIndexes.GetHead())->columns = {{u"x", {}}};
    static_cast<CatalogForeignKey*>(database_.Tables()[1]->m_listForeignKeys.GetHead())->ReferencedTable = u"Gone";
    EXPECT_EQ(CheckCatalog(database_).faults, Lines({"Table1: index PRIMARY: the table Table1 has no field x",
                                                     "Table2: foreign key Before2: there is no table Gone"}));
}

TEST_F(CatalogCheckTest, ATableThatIsNotCorrectByItself) {
    FillCatalog(database_, 1, 2);
    database_.Tables()[0]->m_listFields.GetTail()->SetCorrect(5);
    EXPECT_EQ(CheckCatalog(database_).faults, Lines({"Table1: the check of the table gives 5"}));
}

TEST_F(CatalogCheckTest, QueriesThatReadWhatIsNotThereOrNotSelected) {
    FillCatalog(database_, 2, 2);
    database_.Tables()[1]->SetSelected(0);
    AddQuery(u"q1", u"SELECT Field1 FROM Gone");
    AddQuery(u"q2", u"SELECT Field1 FROM table2");
    AddQuery(u"q3", u"SELECT 1 FROM q1");
    AddQuery(u"q4", u"SELECT [Field1] FROM [TABLE1]");
    EXPECT_EQ(CheckCatalog(database_).faults,
              Lines({"q1: reads Gone, which is no table or query of the catalog",
                     "q2: reads table2, which is not selected", "q3: something that it reads is not right"}));
}

TEST_F(CatalogCheckTest, QueriesThatReferToFieldsThatAreNotThereOrNotSelected) {
    FillCatalog(database_, 1, 3);
    database_.Tables()[0]->m_listFields.GetTail()->SetSelected(0);
    AddQuery(u"q1", u"SELECT Field1, nothing FROM Table1 WHERE Yes = No");
    AddQuery(u"q2", u"SELECT x.Field1 AS renamed FROM Table1 AS x");
    AddQuery(u"q3", u"SELECT renamed, [Field2] FROM q2");
    AddQuery(u"q4", u"SELECT Table1.* FROM Table1");  // all of its fields
    AddQuery(u"q5", u"SELECT Field1 FROM Table1 WHERE Table1.field3 > 1");
    EXPECT_EQ(CheckCatalog(database_).faults, Lines({"q1: refers to the field nothing, which its sources do not have",
                                                     "q4: refers to the field Field3, which is not selected",
                                                     "q5: refers to the field field3, which is not selected"}));
}

TEST_F(CatalogCheckTest, RingsAreNamedAndNotEntered) {
    FillCatalog(database_, 1, 2);
    AddQuery(u"leads", u"SELECT a FROM q2, Gone");
    AddQuery(u"q1", u"SELECT a FROM q2");
    AddQuery(u"q2", u"SELECT a FROM (SELECT b FROM Q3) AS x");
    AddQuery(u"q3", u"SELECT a FROM t UNION SELECT b FROM q1");
    AddQuery(u"self", u"SELECT a FROM self");
    AddQuery(u"fine", u"SELECT Field1 FROM Table1");
    const auto findings = CheckCatalog(database_);
    EXPECT_EQ(findings.faults, Lines({"q2: reads itself in a ring of queries: q2 -> q3 -> q1 -> q2",
                                      "self: reads itself in a ring of queries: self -> self",
                                      "leads: reads Gone, which is no table or query of the catalog",
                                      "q3: reads t, which is no table or query of the catalog"}));
    EXPECT_EQ(findings.notes, Lines({"leads: checked no further, since it reads queries in a ring",
                                     "q1: checked no further, since it reads queries in a ring",
                                     "q2: checked no further, since it reads queries in a ring",
                                     "q3: checked no further, since it reads queries in a ring",
                                     "self: checked no further, since it reads queries in a ring"}));
}

// A table of the same name is read instead of the query, so that nothing is closed.
TEST_F(CatalogCheckTest, ATableBreaksARing) {
    AddQuery(u"q1", u"SELECT a FROM q2");
    AddQuery(u"q2", u"SELECT a FROM q1");
    database_.AddTable(u"Q1").AddField(u"a");
    EXPECT_EQ(CheckCatalog(database_).faults, Lines());
}

TEST_F(CatalogCheckTest, WhatIsNotUnderstoodIsNoted) {
    FillCatalog(database_, 1, 2);
    AddQuery(u"q", u"SELECT Field1 FROM Table1 THEN");
    const auto findings = CheckCatalog(database_);
    EXPECT_EQ(findings.faults, Lines());
    EXPECT_EQ(findings.notes, Lines({"q: not understood to its end, see: qzsql check -d access"}));
}

TEST_F(CatalogCheckTest, LongChainsOfQueries) {
    constexpr int kMany = 100;
    FillCatalog(database_, 1, 2);
    for (int i = 0; i < kMany; ++i) {
        AddQuery(u"q" + CString::FromInt(i), u"SELECT Field1 FROM q" + CString::FromInt((i + 1) % kMany));
    }
    EXPECT_EQ(CheckCatalog(database_).faults.size(), 1U);
    database_.Queries().back()->SetText(u"SELECT Field1 FROM Table1");
    EXPECT_EQ(CheckCatalog(database_).faults, Lines());
}

/// Processor time in seconds.
template <class Do>
double TimeOf(Do act) {
    const auto begun = std::clock();
    act();
    return static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
}

// Each query is checked once: anew for every query that leads to it, this would take ten thousand times as long as to
// read the texts.
TEST_F(CatalogCheckTest, LongChainsAreCheckedInTheTimeThatTheirLengthNeeds) {
    constexpr int kMany = 300;
    FillCatalog(database_, 1, 2);
    CString source = u"Table1";
    for (int i = 0; i < kMany; ++i) {
        const CString name = u"q" + CString::FromInt(i);
        AddQuery(name, u"SELECT " + source + u".Field1 FROM " + source);
        source = name;
    }
    const double reading = TimeOf([this] {
        for (const auto* query : database_.Queries()) ReadSources(*query);
    });
    EXPECT_LT(TimeOf([this] { EXPECT_EQ(CheckCatalog(database_).faults, Lines()); }), 1000 * reading);
}

TEST_F(CatalogCheckTest, AFaultIsToldOfAllThatReadItsQueryInWhateverOrderTheyStand) {
    FillCatalog(database_, 1, 2);
    AddQuery(u"last", u"SELECT Field1 FROM middle");
    AddQuery(u"first", u"SELECT Field1, Gone FROM Table1");
    AddQuery(u"middle", u"SELECT Field1 FROM first");
    EXPECT_EQ(CheckCatalog(database_).faults, Lines({"last: something that it reads is not right",
                                                     "first: refers to the field Gone, which its sources do not have",
                                                     "middle: something that it reads is not right"}));
}

TEST_F(CatalogCheckTest, ACodeIsNotKeptBehindTheCheck) {
    FillCatalog(database_, 1, 2);
    AddQuery(u"q", u"SELECT Field1 FROM Table1");
    EXPECT_EQ(CheckCatalog(database_).faults, Lines());
    auto& query = *database_.FindQuery(u"q");
    EXPECT_EQ(query.CheckChildren(0), 0);
    database_.FindTable(u"Table1")->SetSelected(0);
    EXPECT_EQ(query.CheckChildren(0), 1);
}

TEST_F(CatalogCheckTest, QueriesOfTheOtherDialectsAreCheckedForWhatTheyRead) {
    FillCatalog(database_, 1, 2);
    const std::pair<const char*, const char16_t*> queries[] = {
        {"mssql", u"SELECT a FROM [Table1] AS x, dbo.[Not There]"},
        {"mysql", u"SELECT a FROM `Table1` x, db.Gone"},
        {"oracle", u"SELECT a FROM \"Table1\" x, db.Gone"},
    };
    for (const auto& [dialect, text] : queries) {
        AddQuery(CString::FromUtf8(dialect), text);
        database_.Queries().back()->SetDialect(*FindKind(std::string_view(dialect)));
    }
    const auto findings = CheckCatalog(database_);
    EXPECT_EQ(findings.faults, Lines({"mssql: reads Not There, which is no table or query of the catalog",
                                      "mysql: reads Gone, which is no table or query of the catalog",
                                      "oracle: reads Gone, which is no table or query of the catalog"}));
    EXPECT_EQ(findings.notes, Lines());
}

}  // namespace
}  // namespace qzsql
