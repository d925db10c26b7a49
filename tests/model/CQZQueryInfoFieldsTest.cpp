// How a query finds the fields that its references mean.
#include <gtest/gtest.h>

#include <string>

#include "tests/catalog/Concrete.h"
#include "tests/model/Samples.h"

namespace {

using sample::AddAlias;
using sample::AddRecord;

class Fields : public testing::Test {
 protected:
    Fields() : query(database.AddQuery(u"query")), table(database.AddTable(u"t")), a(table.AddField(u"a")) {}

    static void Read(CQZQueryInfo& reader, const CQZSourceInfo& source) {
        reader.m_mapSources.SetAt(source.GetSrcName(), source.GetGUID());
    }

    // A stored query with a source.
    concrete::Query& Query(const CString& name, const CQZSourceInfo& source) {
        concrete::Query& stored = database.AddQuery(name);
        Read(stored, source);
        return stored;
    }

    concrete::Table& Table(const CString& name, const CString& field) {
        concrete::Table& added = database.AddTable(name);
        added.AddField(field);
        return added;
    }

    static int StoredCorrect(CQZQueryInfo& asked) { return asked.CQZObjectInfo::GetCorrect(); }

    concrete::Database database;
    concrete::Query& query;
    concrete::Table& table;
    concrete::Field& a;
};

TEST_F(Fields, OfAnySourceAreFoundWithoutATable) {
    Read(query, Table(u"other", u"b"));
    Read(query, table);
    EXPECT_EQ(query.FindFieldInSources(u"", u"A"), &a);
    EXPECT_EQ(query.FindFieldInSources(u"", u"c"), nullptr);
    EXPECT_EQ(StoredCorrect(query), 0);
}

TEST_F(Fields, OfTheSourceThatWasReadFirstWin) {
    concrete::Table& first = Table(u"first", u"a");
    Read(query, first);
    Read(query, table);
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), first.m_listFields.GetHead());
    EXPECT_EQ(query.FindFieldInAnySource(u"a"), first.m_listFields.GetHead());
}

TEST_F(Fields, AreNotFoundBehindASourceThatIsMissing) {
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    Read(query, table);
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), nullptr);
    EXPECT_EQ(StoredCorrect(query), 1);
}

TEST_F(Fields, AreFoundBeforeASourceThatIsMissing) {
    Read(query, table);
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), &a);
    EXPECT_EQ(StoredCorrect(query), 0);
}

TEST_F(Fields, OfAnySourceAreFoundAlthoughOneIsMissing) {
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    Read(query, table);
    EXPECT_EQ(query.FindFieldInAnySource(u"a"), &a);
    EXPECT_EQ(query.FindFieldInAnySource(u"b"), nullptr);
    EXPECT_EQ(StoredCorrect(query), 0);
}

TEST_F(Fields, OfSourcesOfAQueryAreFoundThroughIt) {
    Read(query, Query(u"inner", table));
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), &a);
    EXPECT_EQ(query.Resolved, 0);
}

// The alias of a query that is read answers, and the query that asked is marked.
TEST_F(Fields, MayBeAliasesOfAQueryThatIsRead) {
    concrete::Query& inner = Query(u"inner", table);
    CQZAliasInfo& alias = AddAlias(inner, u"Total");
    alias.SetName(u"another name");
    Read(query, inner);
    EXPECT_EQ(query.FindFieldInSources(u"", u"TOTAL"), &alias);
    EXPECT_EQ(query.Resolved, 1);
    EXPECT_EQ(inner.Resolved, 0);
}

TEST_F(Fields, AreNoAliasesOfTheQueryItself) {
    Read(query, table);
    AddAlias(query, u"Total");
    EXPECT_EQ(query.FindFieldInSources(u"", u"Total"), nullptr);
}

TEST_F(Fields, OfANamedTableAreFound) {
    concrete::Table& other = Table(u"other", u"a");
    EXPECT_EQ(query.FindFieldInSources(u"T", u"A"), &a);
    EXPECT_EQ(query.FindFieldInSources(u"other", u"a"), other.m_listFields.GetHead());
    EXPECT_EQ(query.FindFieldInSources(u"t", u"b"), nullptr);
    EXPECT_EQ(StoredCorrect(query), 0);
    EXPECT_EQ(query.FindFieldInSources(u"nowhere", u"a"), nullptr);
    EXPECT_EQ(StoredCorrect(query), 1);
}

TEST_F(Fields, OfANamedTableAreFoundWhetherItIsMarkedOrNot) {
    table.Resolved = 1;
    EXPECT_EQ(query.FindFieldInSources(u"t", u"a"), &a);
}

// An unmarked query answers for itself.
TEST_F(Fields, OfANamedQueryAreThoseItFindsItself) {
    concrete::Query& inner = Query(u"inner", table);
    EXPECT_EQ(query.FindFieldInSources(u"inner", u"a"), nullptr);
    AddRecord(inner, u"", u"a");
    EXPECT_EQ(query.FindFieldInSources(u"inner", u"a"), &a);
}

class Marked : public Fields {
 protected:
    Marked() : inner(Query(u"inner", table)) { inner.Resolved = 1; }

    CQZSourceFildInfo* Find(const CString& field) { return query.FindFieldInSources(u"inner", field); }

    concrete::Query& inner;
};

TEST_F(Marked, QueryIsSearchedByItsRecords) {
    EXPECT_EQ(Find(u"a"), nullptr);
    AddRecord(inner, u"t", u"A");
    EXPECT_EQ(Find(u"a"), &a);
    EXPECT_EQ(Find(u"b"), nullptr);
}

// A star leads to the sources of the query that asks.
TEST_F(Marked, QuerysStarLeadsToTheAskersSources) {
    AddRecord(inner, u"t", u"*");
    EXPECT_EQ(Find(u"a"), nullptr);
    concrete::Table& own = Table(u"own", u"a");
    Read(query, own);
    EXPECT_EQ(Find(u"a"), own.m_listFields.GetHead());
}

TEST_F(Marked, QueryIsSearchedByTheFieldOfItsAlias) {
    CQZAliasInfo& alias = AddAlias(inner, u"Total");
    EXPECT_EQ(Find(u"total"), nullptr);
    alias.SetAliasField(u"a");
    EXPECT_EQ(Find(u"total"), &a);
    alias.SetAliasField(u"b");
    EXPECT_EQ(Find(u"total"), nullptr);
}

TEST_F(Marked, QuerysFirstAliasOfTheNameDecides) {
    AddAlias(inner, u"Total").SetAliasField(u"b");
    auto* second = new CQZAliasInfo;
    second->SetSrcName(u"Total");
    second->SetAliasField(u"a");
    inner.m_mapAliases.SetAt(u"total_FIELD", second);
    EXPECT_EQ(Find(u"total"), nullptr);
    inner.m_mapAliases[u"total"]->SetSrcName(u"other");
    EXPECT_EQ(Find(u"total"), &a);
}

TEST_F(Marked, QuerysRecordsComeBeforeItsAliases) {
    concrete::Field& b = table.AddField(u"b");
    AddAlias(inner, u"a").SetAliasField(u"b");
    EXPECT_EQ(Find(u"a"), &b);
    AddRecord(inner, u"t", u"a");
    EXPECT_EQ(Find(u"a"), &a);
}

// A mark that a look-up sets changes the way of the next one.
TEST_F(Fields, AreSearchedDeeperOnceAnAliasMarkedTheQuery) {
    concrete::Query& inner = Query(u"inner", table);
    CQZAliasInfo& alias = AddAlias(inner, u"Total");
    alias.SetAliasField(u"a");
    EXPECT_EQ(query.FindFieldInSources(u"inner", u"Total"), &alias);
    EXPECT_EQ(inner.Resolved, 1);
    EXPECT_EQ(query.FindFieldInSources(u"inner", u"Total"), &a);
}

// The first record's alias marks the inner query, so that the same reference leads deeper in the same look-up.
TEST_F(Fields, AreSearchedDeeperWithinTheLookUpThatMarkedTheQuery) {
    concrete::Query& inner = Query(u"inner", table);
    AddAlias(inner, u"Total").SetAliasField(u"a");
    AddRecord(query, u"inner", u"Total");
    auto* second = new CFieldObject(*query.m_mapFields[u"innerTotal_0"]);
    second->UnderAs = 1;
    query.m_mapFields.SetAt(second->GetKey(), second);
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), &a);
}

class BySrcName : public Fields {
 protected:
    BySrcName() { Read(query, table); }
};

TEST_F(BySrcName, AFieldNeedsARecord) {
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), nullptr);
    AddRecord(query, u"t", u"A");
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), &a);
    EXPECT_EQ(query.Resolved, 0);
}

TEST_F(BySrcName, ARecordsFieldMustHaveTheName) {
    table.AddField(u"b");
    AddRecord(query, u"t", u"b");
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), nullptr);
}

TEST_F(BySrcName, AStarLeadsToAllSources) {
    AddRecord(query, u"", u"*");
    EXPECT_EQ(query.FindFieldBySrcName(u"A"), &a);
    EXPECT_EQ(query.FindFieldBySrcName(u"b"), nullptr);
}

TEST_F(BySrcName, AStarComesBeforeOtherRecords) {
    concrete::Table& other = Table(u"other", u"a");
    AddRecord(query, u"other", u"a");
    AddRecord(query, u"t", u"*");
    Read(query, other);
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), &a);
}

TEST_F(BySrcName, AnAliasMarksTheQuery) {
    CQZAliasInfo& alias = AddAlias(query, u"Total");
    alias.SetName(u"renamed");
    EXPECT_EQ(query.FindFieldBySrcName(u"renamed"), nullptr);
    EXPECT_EQ(query.Resolved, 0);
    EXPECT_EQ(query.FindFieldBySrcName(u"total"), &alias);
    EXPECT_EQ(query.Resolved, 1);
}

TEST_F(BySrcName, ARecordComesBeforeAnAlias) {
    AddRecord(query, u"t", u"a");
    AddAlias(query, u"a");
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), &a);
    EXPECT_EQ(query.Resolved, 0);
}

class Circle : public Fields {
 protected:
    Circle() : one(database.AddQuery(u"one")), two(database.AddQuery(u"two")) {
        Read(one, two);
        Read(two, one);
        Read(two, table);
        for (concrete::Query* member : {&one, &two}) {
            AddRecord(*member, u"", u"*");
            AddRecord(*member, u"two", u"a");
            AddRecord(*member, u"one", u"b");
        }
    }

    concrete::Query& one;
    concrete::Query& two;
};

TEST_F(Circle, IsSearchedToItsEnd) {
    for (concrete::Query* member : {&one, &two}) {
        EXPECT_EQ(member->FindFieldInSources(u"", u"a"), &a);
        EXPECT_EQ(member->FindFieldInSources(u"", u"b"), nullptr);
        EXPECT_EQ(member->FindFieldInSources(u"one", u"b"), nullptr);
        EXPECT_EQ(member->FindFieldInAnySource(u"a"), &a);
        EXPECT_EQ(member->FindFieldBySrcName(u"a"), &a);
        EXPECT_EQ(member->FindFieldBySrcName(u"b"), nullptr);
    }
}

TEST_F(Circle, IsSearchedToItsEndWhenItIsMarked) {
    one.Resolved = 1;
    two.Resolved = 1;
    EXPECT_EQ(one.FindFieldInSources(u"two", u"b"), nullptr);
    EXPECT_EQ(two.FindFieldInSources(u"two", u"a"), &a);
    EXPECT_EQ(two.FindFieldInSources(u"one", u"b"), nullptr);
}

TEST_F(Fields, OfAQueryThatReadsItselfAreSearchedToTheEnd) {
    Read(query, query);
    AddRecord(query, u"query", u"a");
    AddRecord(query, u"", u"*");
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), nullptr);
    EXPECT_EQ(query.FindFieldBySrcName(u"a"), nullptr);
    CQZAliasInfo& alias = AddAlias(query, u"a");
    EXPECT_EQ(query.FindFieldInSources(u"", u"a"), &alias);
}

// Ten records in each of forty layers: along every path that leads down these are 10^40 look-ups.
TEST_F(Fields, OfManyLayersAreAskedForOnce) {
    constexpr int kLayers = 40;
    constexpr int kRecords = 10;
    const CQZSourceInfo* below = &table;
    for (int layer = 0; layer < kLayers; ++layer) {
        concrete::Query& above = Query(u"layer" + CString::FromInt(layer), *below);
        for (int record = 0; record < kRecords; ++record)
            AddRecord(above, below->GetSrcName(), u"missing" + CString::FromInt(record));
        AddRecord(above, below->GetSrcName(), u"a");
        below = &above;
    }
    Read(query, *below);
    EXPECT_EQ(query.FindFieldInAnySource(u"nothing"), nullptr);
    EXPECT_EQ(query.FindFieldInAnySource(u"a"), &a);
}

}  // namespace
