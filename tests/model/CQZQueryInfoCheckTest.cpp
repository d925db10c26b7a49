// Whether a query can be converted.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/catalog/Concrete.h"
#include "tests/model/Samples.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;

// A table that tells a given code.
class CodedTable final : public concrete::Table {
 public:
    int CheckChildren(int nFlag) override {
        asked.push_back(nFlag);
        return code;
    }

    int code = 0;
    std::vector<int> asked;
};

// A query that tells a given code.
class CodedQuery final : public CQZQueryInfo {
 public:
    explicit CodedQuery(int code) : m_Code(code) {}
    int GetCorrect() override {
        ++asked;
        return m_Code;
    }

    int asked = 0;

 private:
    int m_Code;
};

class Check : public testing::Test {
 protected:
    Check() { query.SetDatabase(&database); }

    CodedTable& Table(const CString& name, int code) {
        auto& table = database.AddTable<CodedTable>(name);
        table.code = code;
        return table;
    }

    // Enters a source that is in the catalog.
    static void Read(CQZQueryInfo& reader, const CQZSourceInfo& source) {
        reader.m_mapSources.SetAt(source.GetSrcName(), source.GetGUID());
    }

    CodedTable& ReadTable(const CString& name, int code) {
        CodedTable& table = Table(name, code);
        Read(query, table);
        return table;
    }

    CodedQuery& Nest(int code) {
        auto* nested = new CodedQuery(code);
        query.m_listSubQueries.AddTail(nested);
        return *nested;
    }

    concrete::Database database;
    CQZQueryInfo query;
};

TEST_F(Check, OfAnEmptyQuerySucceeds) {
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(query.Resolved, 1);
}

TEST_F(Check, MarksAQueryThatIsNotSelectedToo) {
    query.SetSelected(0);
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(query.Resolved, 1);
}

TEST_F(Check, UnmarksAQueryThatIsNotSelectedAndFails) {
    query.Resolved = 1;
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_EQ(query.Resolved, 1);
    query.SetSelected(0);
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(Check, IsRunByGetCorrectAndCheckChildren) {
    query.SetCorrect(55);
    EXPECT_EQ(query.GetCorrect(), 0);
    EXPECT_EQ(query.CheckChildren(1), 0);
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    EXPECT_EQ(query.GetCorrect(), 1);
    EXPECT_EQ(query.CheckChildren(0), 1);
}

TEST_F(Check, AsksSourcesWithoutTheFlag) {
    const CodedTable& table = ReadTable(u"t", 0);
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(table.asked, std::vector<int>({0}));
}

TEST_F(Check, FailsForAMissingSource) {
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    const CodedTable& next = ReadTable(u"t", 0);
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_EQ(query.Resolved, 0);
    EXPECT_TRUE(next.asked.empty());
}

TEST_F(Check, FailsForASourceThatIsNotSelected) {
    CodedTable& table = ReadTable(u"t", 0);
    table.SetSelected(0);
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_TRUE(table.asked.empty());
}

TEST_F(Check, PassesASourceThatIsAnAlias) {
    query.m_mapSources.SetAt(u"x", u"X");
    AddAlias(query, u"x");
    EXPECT_EQ(query.CheckQuery(), 0);
}

TEST_F(Check, PassesASourceThatIsAnAliasOfAQueryItReads) {
    concrete::Query& inner = database.AddQuery(u"inner");
    AddAlias(inner, u"x");
    query.m_mapSources.SetAt(u"x", u"x");
    EXPECT_EQ(query.CheckQuery(), 1);
    Read(query, inner);
    EXPECT_EQ(query.CheckQuery(), 0);
}

TEST_F(Check, AnUnselectedSourceThatIsAnAliasIsStillAsked) {
    CodedTable& table = ReadTable(u"t", 7);
    table.SetSelected(0);
    AddAlias(query, table.GetGUID());
    EXPECT_EQ(query.CheckQuery(), 7);
    EXPECT_EQ(table.asked.size(), 1U);
}

struct CodeRow {
    int code;
    bool endsTheWalk;
    int result;

    friend void PrintTo(const CodeRow& row, std::ostream* out) { *out << row.code; }
};

class SourceCode : public Check, public testing::WithParamInterface<CodeRow> {};

TEST_P(SourceCode, EndsTheWalkUnlessItIsANote) {
    ReadTable(u"first", GetParam().code);
    const CodedTable& second = ReadTable(u"second", 0);
    EXPECT_EQ(query.CheckQuery(), GetParam().result);
    EXPECT_EQ(second.asked.empty(), GetParam().endsTheWalk);
    EXPECT_EQ(query.Resolved, GetParam().result == 0 ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Codes, SourceCode,
                         testing::Values(CodeRow{0, false, 0}, CodeRow{1, true, 1}, CodeRow{2, true, 2},
                                         CodeRow{100, true, 100}, CodeRow{101, false, 0}, CodeRow{5000, false, 0},
                                         CodeRow{-1, true, -1}));

TEST_F(Check, TheCodeOfTheLastSourceWins) {
    ReadTable(u"first", 102);
    ReadTable(u"second", 101);
    EXPECT_EQ(query.CheckQuery(), 101);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(Check, AnAliasBehindASourceKeepsItsNote) {
    ReadTable(u"first", 101);
    query.m_mapSources.SetAt(u"x", u"x");
    AddAlias(query, u"x");
    EXPECT_EQ(query.CheckQuery(), 101);
}

TEST_F(Check, EndsAtASourceNamedStar) {
    CodedQuery& nested = Nest(7);
    query.m_mapSources.SetAt(u"*", u"*");
    const CodedTable& behind = ReadTable(u"t", 5);
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(query.Resolved, 0);
    EXPECT_TRUE(behind.asked.empty());
    EXPECT_EQ(nested.asked, 0);
}

TEST_F(Check, AStarGivesTheCodeThatStandsThen) {
    ReadTable(u"t", 101);
    query.m_mapSources.SetAt(u"*", u"*");
    EXPECT_EQ(query.CheckQuery(), 101);
}

TEST_F(Check, AsksNestedQueriesUntilOneTellsACode) {
    const CodedQuery& first = Nest(0);
    const CodedQuery& second = Nest(101);
    const CodedQuery& third = Nest(0);
    EXPECT_EQ(query.CheckQuery(), 101);
    EXPECT_EQ(first.asked, 1);
    EXPECT_EQ(second.asked, 1);
    EXPECT_EQ(third.asked, 0);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(Check, DoesNotAskNestedQueriesAfterAnError) {
    const CodedQuery& nested = Nest(0);
    CodedTable& table = ReadTable(u"t", 1);
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_EQ(nested.asked, 0);
    table.code = 101;
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(nested.asked, 1);
    table.code = -1;
    EXPECT_EQ(query.CheckQuery(), 0);
    EXPECT_EQ(nested.asked, 2);
}

TEST_F(Check, GoesIntoNestedQueries) {
    auto* nested = new CQZQueryInfo;
    nested->m_mapSources.SetAt(u"nowhere", u"nowhere");
    query.m_listSubQueries.AddTail(nested);
    EXPECT_EQ(query.CheckQuery(), 1);
}

TEST_F(Check, OfQueriesThatReadEachOtherEnds) {
    concrete::Query& one = database.AddQuery(u"one");
    concrete::Query& two = database.AddQuery(u"two");
    Read(one, two);
    Read(two, one);
    Read(two, two);
    EXPECT_EQ(one.CheckQuery(), 0);
    EXPECT_EQ(one.Resolved, 1);
    EXPECT_EQ(two.Resolved, 1);
    Read(two, Table(u"t", 3));
    EXPECT_EQ(one.CheckQuery(), 3);
    EXPECT_EQ(two.CheckQuery(), 3);
}

class CheckOfFields : public Check {
 protected:
    CheckOfFields() : table(database.AddTable(u"t")), field(table.AddField(u"a")) { Read(query, table); }

    concrete::Table& table;
    concrete::Field& field;
};

TEST_F(CheckOfFields, SucceedsForFieldsThatExist) {
    AddRecord(query, u"t", u"a");
    AddRecord(query, u"", u"A");
    EXPECT_EQ(query.CheckFields(), 0);
    EXPECT_EQ(query.CheckQuery(), 0);
}

TEST_F(CheckOfFields, FailsForAMissingField) {
    AddRecord(query, u"t", u"b");
    EXPECT_EQ(query.CheckFields(), 1);
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(CheckOfFields, FailsForAFieldThatIsNotSelected) {
    AddRecord(query, u"t", u"a");
    field.SetSelected(0);
    EXPECT_EQ(query.CheckFields(), 1);
}

// A missing field does not end the walk; a field that is not selected does.
TEST_F(CheckOfFields, GoesOnAfterAMissingField) {
    AddRecord(query, u"t", u"b");
    AddRecord(query, u"", u"");
    AddRecord(query, u"t", u"a");
    EXPECT_EQ(query.CheckFields(), 1);
}

TEST_F(CheckOfFields, AFailureKeepsSourcesUnasked) {
    const CodedTable& other = ReadTable(u"other", 5);
    AddRecord(query, u"t", u"b");
    EXPECT_EQ(query.CheckQuery(), 1);
    EXPECT_TRUE(other.asked.empty());
}

TEST_F(CheckOfFields, PassesOverStarsAndEmptyNames) {
    AddRecord(query, u"nowhere", u"*");
    AddRecord(query, u"t", u"");
    EXPECT_EQ(query.CheckFields(), 0);
}

struct ConstantRow {
    const char16_t* table;
    const char16_t* field;
    int code;

    friend void PrintTo(const ConstantRow& row, std::ostream* out) { *out << CString(row.field).ToUtf8(); }
};

class Constant : public CheckOfFields, public testing::WithParamInterface<ConstantRow> {};

TEST_P(Constant, IsLookedUpOnlyWithATable) {
    AddRecord(query, GetParam().table, GetParam().field);
    EXPECT_EQ(query.CheckFields(), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Names, Constant,
                         testing::Values(ConstantRow{u"", u"Yes", 0}, ConstantRow{u"", u"YES", 0},
                                         ConstantRow{u"", u"no", 0}, ConstantRow{u"", u"No", 0},
                                         ConstantRow{u"t", u"Yes", 1}, ConstantRow{u"t", u"No", 1},
                                         ConstantRow{u"", u"Not", 1}));

TEST_F(CheckOfFields, PassesOverAliases) {
    AddAlias(query, u"Total");
    AddRecord(query, u"", u"TOTAL");
    AddRecord(query, u"total", u"unknown");
    EXPECT_EQ(query.CheckFields(), 0);
}

TEST_F(CheckOfFields, PassesOverAliasesOfTheQueriesItReads) {
    concrete::Query& inner = database.AddQuery(u"inner");
    AddAlias(inner, u"Total");
    AddRecord(query, u"total", u"unknown");
    EXPECT_EQ(query.CheckFields(), 1);
    Read(query, inner);
    EXPECT_EQ(query.CheckFields(), 0);
}

class Alias : public Check {
 protected:
    int Has(const CString& first, const CString& second) {
        declaring = nullptr;
        return query.HasAlias(first, second, declaring);
    }

    CQZQueryInfo* declaring = nullptr;
};

TEST_F(Alias, IsFoundByEitherNameInAnyCase) {
    AddAlias(query, u"Größe");
    EXPECT_EQ(Has(u"", u"GRÖßE"), 1);
    EXPECT_EQ(declaring, &query);
    EXPECT_EQ(Has(u"größe", u""), 1);
    EXPECT_EQ(declaring, &query);
    EXPECT_EQ(Has(u"x", u"y"), 0);
    EXPECT_EQ(declaring, nullptr);
}

TEST_F(Alias, IsFoundByItsTargetName) {
    CQZAliasInfo& alias = AddAlias(query, u"SourceName");
    alias.SetName(u"TargetName");
    EXPECT_EQ(Has(u"targetname", u""), 1);
    EXPECT_EQ(Has(u"SourceName", u""), 0);
    alias.SetLowerCase(3);
    EXPECT_EQ(Has(u"target_name", u""), 1);
}

TEST_F(Alias, IsFoundInQueriesThatAreRead) {
    concrete::Query& one = database.AddQuery(u"one");
    concrete::Query& two = database.AddQuery(u"two");
    concrete::Query& three = database.AddQuery(u"three");
    Read(query, one);
    Read(query, two);
    Read(one, three);
    AddAlias(three, u"x");
    EXPECT_EQ(Has(u"x", u""), 1);
    EXPECT_EQ(declaring, &three);
    AddAlias(two, u"x");
    EXPECT_EQ(Has(u"x", u""), 1);
    EXPECT_EQ(declaring, &three);
    AddAlias(one, u"x");
    EXPECT_EQ(Has(u"x", u""), 1);
    EXPECT_EQ(declaring, &one);
}

// The value of a source leads to the query, not its key.
TEST_F(Alias, IsNotFoundInSourcesThatAreNotTied) {
    AddAlias(database.AddQuery(u"one"), u"x");
    query.m_mapSources.SetAt(u"one", u"one");
    EXPECT_EQ(Has(u"x", u""), 0);
    query.ResolveSourceGUIDs();
    EXPECT_EQ(Has(u"x", u""), 1);
}

TEST_F(Alias, IsLookedForOnceInACircle) {
    concrete::Query& one = database.AddQuery(u"one");
    concrete::Query& two = database.AddQuery(u"two");
    Read(query, one);
    Read(one, two);
    Read(two, one);
    EXPECT_EQ(Has(u"x", u""), 0);
    AddAlias(two, u"x");
    EXPECT_EQ(Has(u"x", u""), 1);
    EXPECT_EQ(declaring, &two);
}

}  // namespace
