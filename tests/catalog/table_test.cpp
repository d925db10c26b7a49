// A table's members, look-ups, checks, copies and filter.
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "Concrete.h"
#include "Slots.h"
#include "TableOptions.h"
#include "tests/support/MemoryStore.h"

namespace {

using concrete::Database;
using concrete::Field;
using concrete::Filter;
using concrete::FilterItem;
using concrete::ForeignKey;
using concrete::Index;
using concrete::Table;

static_assert(std::is_abstract_v<CQZTableInfo> && std::has_virtual_destructor_v<CQZTableInfo>);
static_assert(std::is_base_of_v<CQZSourceInfo, CQZTableInfo>);

TEST(CQZTableInfo, AddsItsOperationsBehindTheInheritedOnes) {
    using T = CQZTableInfo;
    EXPECT_EQ(
        SlotsOf(&T::RefreshSelection, &T::GetPrimaryKeyIndex, &T::GetCopyStructure, &T::GetCopyIndexes,
                &T::GetCopyForeignKeys, &T::GetCopyData, &T::GetSyncInsert, &T::GetSyncUpdate, &T::GetSyncDrop,
                &T::GetOverwriteTable, &T::GetModifyFields, &T::GetModifyIndexes, &T::GetModifyForeignKeys,
                &T::GetDatabase, &T::SetCopyStructure, &T::SetCopyIndexes, &T::SetCopyForeignKeys, &T::SetCopyData,
                &T::SetSyncInsert, &T::SetSyncUpdate, &T::SetSyncDrop, &T::SetOverwriteTable, &T::SetModifyFields,
                &T::SetModifyIndexes, &T::SetModifyForeignKeys, &T::SetDatabase, &T::CopyTable),
        SlotsFrom(SlotOf(&CQZSourceInfo::CheckChildren) + 1, 27));
}

TEST(CQZTableInfo, OverridesInThePlacesOfItsBases) {
    using T = CQZTableInfo;
    using O = CQZObjectInfo;
    using S = CQZSourceInfo;
    EXPECT_EQ(SlotsOf(&T::SetSelected, &T::Save, &T::Load, &T::Clone, &T::IsVirtualObject, &T::IsRealObject),
              SlotsOf(&O::SetSelected, &O::Save, &O::Load, &O::Clone, &O::IsVirtualObject, &O::IsRealObject));
    EXPECT_EQ(SlotsOf(&T::FindFieldByGUID, &T::FindFieldByName, &T::FindFieldBySrcName, &T::CheckChildren),
              SlotsOf(&S::FindFieldByGUID, &S::FindFieldByName, &S::FindFieldBySrcName, &S::CheckChildren));
}

TEST(CQZTableInfo, IsMadeWithItsDefaults) {
    const Table table;
    EXPECT_EQ(OptionsOf(table), kNewTable);
    EXPECT_EQ(table.GetDatabase(), nullptr);
    EXPECT_EQ(table.GetFilter(), nullptr);
    EXPECT_EQ(table.GetProcessed(), 0);
    EXPECT_TRUE(table.m_listFields.IsEmpty());
    EXPECT_TRUE(table.m_listIndexes.IsEmpty());
    EXPECT_TRUE(table.m_listForeignKeys.IsEmpty());
}

TEST(CQZTableInfo, IsReal) {
    const Table table;
    for (const int ignored : {0, 1}) {
        EXPECT_FALSE(table.IsVirtualObject(ignored));
        EXPECT_TRUE(table.IsRealObject(ignored));
    }
}

TEST(CQZTableInfo, TellsItsDatabase) {
    Database database;
    Table table;
    EXPECT_EQ(&table.SetDatabase(&database), &table);
    EXPECT_EQ(table.GetDatabase(), &database);
    table.SetDatabase(nullptr);
    EXPECT_EQ(table.GetDatabase(), nullptr);
}

TEST(CQZTableInfo, CopiesNoIndexesAndKeysThatItDoesNotHave) {
    Table table;
    EXPECT_EQ(table.GetCopyIndexes(), 0);
    EXPECT_EQ(table.GetCopyForeignKeys(), 0);
    table.AddIndex(u"i");
    EXPECT_EQ(table.GetCopyIndexes(), 1);
    EXPECT_EQ(table.GetCopyForeignKeys(), 0);
    table.AddForeignKey(u"k");
    EXPECT_EQ(table.GetCopyForeignKeys(), 1);
}

TEST(CQZTableInfo, TellsTheLowestBitOfTheOptionForIndexesAndKeys) {
    Table table;
    table.AddIndex(u"i");
    table.AddForeignKey(u"k");
    table.SetCopyIndexes(2);
    table.SetCopyForeignKeys(3);
    EXPECT_EQ(table.GetCopyIndexes(), 0);
    EXPECT_EQ(table.GetCopyForeignKeys(), 1);
}

// Look-ups.

/// Names of objects of which the second is another spelling of the first.
template <class Object>
void NameTwo(Object& first, Object& second) {
    first.SetName(u"Name");
    first.SetSrcName(u"Source");
    first.SetGUID(u"{ab}");
    second.SetName(u"NAME");
    second.SetSrcName(u"SOURCE");
    second.SetGUID(u"{AB}");
}

TEST(CQZTableInfo, FindsFieldsInAnyCase) {
    Table table;
    Field& first = table.AddField(u"");
    NameTwo(first, table.AddField(u""));
    EXPECT_EQ(table.FindFieldByGUID(u"{AB}"), &first);
    EXPECT_EQ(table.FindFieldByName(u"nAME"), &first);
    EXPECT_EQ(table.FindFieldBySrcName(u"sOURCE"), &first);
    EXPECT_EQ(table.FindFieldByGUID(u"{a}"), nullptr);
    EXPECT_EQ(table.FindFieldByName(u"source"), nullptr);
    EXPECT_EQ(table.FindFieldBySrcName(u"name"), nullptr);
}

TEST(CQZTableInfo, FindsIndexesInAnyCase) {
    Table table;
    Index& first = table.AddIndex(u"");
    NameTwo(first, table.AddIndex(u""));
    EXPECT_EQ(table.FindIndexByGUID(u"{AB}"), &first);
    EXPECT_EQ(table.FindIndexByName(u"nAME"), &first);
    EXPECT_EQ(table.FindIndexBySrcName(u"sOURCE"), &first);
    EXPECT_EQ(table.FindIndexByGUID(u"{a}"), nullptr);
    EXPECT_EQ(table.FindIndexByName(u"source"), nullptr);
    EXPECT_EQ(table.FindIndexBySrcName(u"name"), nullptr);
}

TEST(CQZTableInfo, FindsForeignKeysInAnyCaseButNotByGUID) {
    Table table;
    ForeignKey& first = table.AddForeignKey(u"");
    ForeignKey& second = table.AddForeignKey(u"");
    NameTwo(first, second);
    EXPECT_EQ(table.FindForeignKeyByGUID(u"{ab}"), &first);
    EXPECT_EQ(table.FindForeignKeyByGUID(u"{AB}"), &second);
    EXPECT_EQ(table.FindForeignKeyByGUID(u"{Ab}"), nullptr);
    EXPECT_EQ(table.FindForeignKeyByName(u"nAME"), &first);
    EXPECT_EQ(table.FindForeignKeyBySrcName(u"sOURCE"), &first);
    EXPECT_EQ(table.FindForeignKeyByName(u"source"), nullptr);
    EXPECT_EQ(table.FindForeignKeyBySrcName(u"name"), nullptr);
}

TEST(CQZTableInfo, FindsByTheNameThatTheCaseRuleGives) {
    Table table;
    Field& field = table.AddField(u"OrderDetails");
    field.SetName(u"OrderDetails");
    field.SetLowerCase(3);
    EXPECT_EQ(table.FindFieldByName(u"ORDER_details"), &field);
    EXPECT_EQ(table.FindFieldByName(u"OrderDetails"), nullptr);
    EXPECT_EQ(table.FindFieldBySrcName(u"orderdetails"), &field);
}

// Primary indexes.

TEST(CQZTableInfo, FindsThePrimaryKeyAnew) {
    Table table;
    EXPECT_EQ(table.GetPrimaryKeyIndex(), nullptr);
    Index& first = table.AddIndex(u"first");
    Index& second = table.AddIndex(u"second");
    first.primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryKeyIndex(), nullptr);
    second.primaryKey = 2;
    EXPECT_EQ(table.GetPrimaryKeyIndex(), &second);
    first.primaryKey = 1;
    EXPECT_EQ(table.GetPrimaryKeyIndex(), &first);
}

TEST(CQZTableInfo, FindsThePrimaryIndexOnce) {
    Table table;
    Index& first = table.AddIndex(u"first");
    Index& second = table.AddIndex(u"second");
    first.primaryKey = 1;
    second.primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryIndex(), &second);
    first.primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryIndex(), &second);
}

TEST(CQZTableInfo, TakesTheFirstOfSeveralPrimaryIndexes) {
    Table table;
    table.AddIndex(u"other");
    Index& first = table.AddIndex(u"first");
    Index& second = table.AddIndex(u"second");
    first.primaryIndex = 2;
    second.primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryIndex(), &first);
}

TEST(CQZTableInfo, RemembersThatThereIsNoPrimaryIndexUntilItIsCleared) {
    Table table;
    EXPECT_EQ(table.GetPrimaryIndex(), nullptr);
    table.AddIndex(u"late").primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryIndex(), nullptr);
    table.ClearChildren();
    Index& index = table.AddIndex(u"index");
    index.primaryIndex = 1;
    EXPECT_EQ(table.GetPrimaryIndex(), &index);
    table.ClearChildren();
    EXPECT_EQ(table.GetPrimaryIndex(), nullptr);
}

class IndexedTable final : public Table {
 public:
    void IndexesChanged() { m_bPrimaryIndexDirty = 1; }
};

TEST(CQZTableInfo, LooksForThePrimaryIndexAgainWhenTheConcreteClassSaysSo) {
    IndexedTable table;
    EXPECT_EQ(table.GetPrimaryIndex(), nullptr);
    Index& index = table.AddIndex(u"index");
    index.primaryIndex = 1;
    table.IndexesChanged();
    EXPECT_EQ(table.GetPrimaryIndex(), &index);
}

TEST(CQZTableInfo, DoesNotCopyTheCacheOfThePrimaryIndex) {
    Table table;
    table.AddIndex(u"index").primaryIndex = 1;
    table.GetPrimaryIndex();
    const std::unique_ptr<Table> copy(table.Clone(0));
    EXPECT_EQ(copy->GetPrimaryIndex(), copy->m_listIndexes.GetHead());
}

// Checks.

/// A table of which every child is correct and selected.
class CheckedTable : public testing::Test {
 protected:
    Table table;
    Field& field1 = table.AddField(u"f1");
    Field& field2 = table.AddField(u"f2");
    Index& index1 = table.AddIndex(u"i1");
    Index& index2 = table.AddIndex(u"i2");
    ForeignKey& key1 = table.AddForeignKey(u"k1");
    ForeignKey& key2 = table.AddForeignKey(u"k2");
};

TEST_F(CheckedTable, IsCorrect) {
    EXPECT_EQ(table.CheckChildren(0), 0);
    EXPECT_EQ(table.CheckChildren(1), 0);
}

TEST_F(CheckedTable, TellsItsOwnCodeFirst) {
    table.SetCorrect(101);
    field1.SetCorrect(2);
    EXPECT_EQ(table.CheckChildren(0), 101);
}

TEST_F(CheckedTable, StopsAtTheFirstFieldThatIsNotCorrect) {
    field1.SetCorrect(102);
    field2.SetCorrect(3);
    index1.SetCorrect(4);
    EXPECT_EQ(table.CheckChildren(0), 102);
    field1.SetCorrect(0);
    EXPECT_EQ(table.CheckChildren(0), 3);
}

TEST_F(CheckedTable, TellsAFieldThatIsNotCorrectThoughItIsNotSelected) {
    field2.SetCorrect(3);
    field2.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(0), 3);
}

TEST_F(CheckedTable, AsksForSelectedFieldsOnlyWithTheFlag) {
    field2.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(0), 0);
    EXPECT_EQ(table.CheckChildren(1), 1);
    EXPECT_EQ(table.CheckChildren(-1), 1);
    field2.SetCorrect(5);
    EXPECT_EQ(table.CheckChildren(1), 5);
    field1.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(1), 1);
}

TEST_F(CheckedTable, StopsAtASelectedIndex) {
    index1.SetCorrect(4);
    index2.SetCorrect(5);
    key1.SetCorrect(6);
    EXPECT_EQ(table.CheckChildren(0), 4);
}

TEST_F(CheckedTable, ForgetsAnUnselectedIndexWhenAnotherFollows) {
    index1.SetCorrect(4);
    index1.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(0), 0);
    key2.SetCorrect(6);
    EXPECT_EQ(table.CheckChildren(0), 6);
}

TEST_F(CheckedTable, KeepsAnUnselectedIndexAtTheEndAndSkipsTheKeys) {
    index2.SetCorrect(5);
    index2.SetSelected(0);
    key1.SetCorrect(6);
    EXPECT_EQ(table.CheckChildren(0), 5);
}

TEST_F(CheckedTable, TreatsKeysLikeIndexes) {
    key1.SetCorrect(6);
    key1.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(0), 0);
    key2.SetCorrect(7);
    EXPECT_EQ(table.CheckChildren(0), 7);
    key2.SetSelected(0);
    EXPECT_EQ(table.CheckChildren(0), 7);
    key1.SetSelected(1);
    EXPECT_EQ(table.CheckChildren(0), 6);
}

TEST_F(CheckedTable, ChecksTheReferencesOfEachIndexAndKeyOnce) {
    table.CheckKeyReferences();
    EXPECT_EQ(index1.checks, std::vector<int>({0}));
    EXPECT_EQ(index2.checks, std::vector<int>({0}));
    EXPECT_EQ(key1.checks, std::vector<int>({0}));
    EXPECT_EQ(key2.checks, std::vector<int>({0}));
}

// The filter.

void AddCondition(CQZFilterInfo& filter, const char16_t* field) {
    filter.m_listItems.AddTail(new FilterItem(field, 1, QZFieldValue(u"10", 4), 2));
}

Log ConditionsOf(const Table& table) {
    Log fields;
    for (const CQZFilterItemInfo* item : table.GetFilter()->m_listItems) {
        fields.push_back(item->GetFieldID().ToUtf8());
    }
    return fields;
}

class FilteredTable : public testing::Test {
 protected:
    FilteredTable() {
        table.AddField(u"Price");
        table.AddField(u"Name");
    }

    Table table;
    Filter filter;
};

TEST_F(FilteredTable, TakesACloneOfTheFilter) {
    AddCondition(filter, u"Price");
    AddCondition(filter, u"NAME");
    table.SetFilter(&filter);
    ASSERT_NE(table.GetFilter(), nullptr);
    EXPECT_NE(table.GetFilter(), &filter);
    EXPECT_EQ(ConditionsOf(table), Log({"Price", "NAME"}));
    EXPECT_EQ(filter.m_listItems.GetCount(), 2);
}

TEST_F(FilteredTable, DropsConditionsOnFieldsThatItDoesNotHave) {
    for (const char16_t* field : {u"Gone", u"Price", u"", u"Lost", u"Name", u"Gone"}) AddCondition(filter, field);
    table.SetFilter(&filter);
    EXPECT_EQ(ConditionsOf(table), Log({"Price", "Name"}));
    EXPECT_EQ(filter.m_listItems.GetCount(), 6);
}

TEST_F(FilteredTable, KnowsTheFieldOfAConditionByItsSourceName) {
    table.FindFieldBySrcName(u"Price")->SetName(u"Cost");
    AddCondition(filter, u"Cost");
    table.SetFilter(&filter);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

/// Knows one more name of each field.
class TableOfTwoNames final : public Table {
 public:
    CQZFieldInfo* FindFieldBySrcName(CString strSrcName) override {
        return Table::FindFieldBySrcName(strSrcName.Left(strSrcName.GetLength() - 1));
    }
};

TEST(FilteredTables, AskTheirOwnLookUpForTheFieldOfACondition) {
    TableOfTwoNames table;
    table.AddField(u"Price");
    Filter filter;
    AddCondition(filter, u"Price2");
    table.SetFilter(&filter);
    EXPECT_NE(table.GetFilter(), nullptr);
}

TEST_F(FilteredTable, DropsAFilterWithoutConditionsAndText) {
    AddCondition(filter, u"Gone");
    table.SetFilter(&filter);
    EXPECT_EQ(table.GetFilter(), nullptr);
    filter.SetUseSQLQuery(1);
    table.SetFilter(&filter);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

TEST_F(FilteredTable, KeepsAFilterThatHasAText) {
    AddCondition(filter, u"Gone");
    filter.SetSQLQuery(u"Price > 10");
    table.SetFilter(&filter);
    ASSERT_NE(table.GetFilter(), nullptr);
    EXPECT_EQ(ConditionsOf(table), Log());
    EXPECT_EQ(table.GetFilter()->GetSQLQuery(), u"Price > 10");
}

TEST_F(FilteredTable, ReplacesAndRemovesTheFilter) {
    filter.SetSQLQuery(u"first");
    table.SetFilter(&filter);
    filter.SetSQLQuery(u"second");
    table.SetFilter(&filter);
    EXPECT_EQ(table.GetFilter()->GetSQLQuery(), u"second");
    table.SetFilter(nullptr);
    EXPECT_EQ(table.GetFilter(), nullptr);
    table.SetFilter(nullptr);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

TEST_F(FilteredTable, LosesTheFilterToOneThatIsDropped) {
    filter.SetSQLQuery(u"text");
    table.SetFilter(&filter);
    filter.SetSQLQuery(u"");
    table.SetFilter(&filter);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

TEST_F(FilteredTable, MaySetItsOwnFilter) {
    AddCondition(filter, u"Price");
    table.SetFilter(&filter);
    table.SetFilter(table.GetFilter());
    EXPECT_EQ(ConditionsOf(table), Log({"Price"}));
}

TEST_F(FilteredTable, ClearsItsChildrenAndItsFilter) {
    filter.SetSQLQuery(u"text");
    table.SetFilter(&filter);
    table.AddIndex(u"i");
    table.AddForeignKey(u"k");
    table.ClearChildren();
    EXPECT_EQ(table.GetFilter(), nullptr);
    EXPECT_TRUE(table.m_listFields.IsEmpty());
    EXPECT_TRUE(table.m_listIndexes.IsEmpty());
    EXPECT_TRUE(table.m_listForeignKeys.IsEmpty());
}

// Copies.

/// A table whose options are all other than at first, with selected and unselected children and a filter.
void Fill(Table& table) {
    table.SetName(u"Target");
    table.SetSrcName(u"Source");
    table.AddField(u"f1");
    table.AddField(u"f2").SetSelected(0);
    table.AddIndex(u"i1").SetSelected(0);
    table.AddIndex(u"i2");
    table.AddForeignKey(u"k1");
    table.AddForeignKey(u"k2").SetSelected(0);
    table.SetSyncInsert(0).SetSyncUpdate(0).SetSyncDrop(0);
    table.SetModifyFields(1);
    table.SetModifyIndexes(1);
    table.SetModifyForeignKeys(1);
    table.SetCopyData(0);
    Filter filter(7);
    AddCondition(filter, u"f1");
    AddCondition(filter, u"f2");
    table.SetFilter(&filter);
}

template <class List>
Log NamesOf(const List& list) {
    Log names;
    for (const auto* object : list) names.push_back(object->GetSrcName().ToUtf8());
    return names;
}

TEST(CQZTableInfo, ClonesAllThatItOwns) {
    Database database;
    Table table;
    table.SetDatabase(&database);
    table.SetProcessed(1);
    Fill(table);
    const std::unique_ptr<Table> copy(table.Clone(0));
    EXPECT_EQ(copy->GetGUID(), table.GetGUID());
    EXPECT_EQ(copy->GetName(), u"Target");
    EXPECT_EQ(copy->GetSrcName(), u"Source");
    EXPECT_EQ(OptionsOf(*copy), OptionsOf(table));
    EXPECT_EQ(NamesOf(copy->m_listFields), Log({"f1", "f2"}));
    EXPECT_EQ(NamesOf(copy->m_listIndexes), Log({"i1", "i2"}));
    EXPECT_EQ(NamesOf(copy->m_listForeignKeys), Log({"k1", "k2"}));
    EXPECT_EQ(ConditionsOf(*copy), Log({"f1", "f2"}));
    EXPECT_NE(copy->GetFilter(), table.GetFilter());
    EXPECT_EQ(copy->GetDatabase(), nullptr);
    EXPECT_EQ(copy->GetProcessed(), 0);
}

TEST(CQZTableInfo, GivesItsClonesNewChildrenThatKnowTheirOwner) {
    Table table;
    Fill(table);
    const std::unique_ptr<Table> copy(table.Clone(0));
    EXPECT_NE(copy->m_listFields.GetHead(), table.m_listFields.GetHead());
    EXPECT_EQ(copy->m_listFields.GetHead()->GetGUID(), table.m_listFields.GetHead()->GetGUID());
    for (auto* field : copy->m_listFields) EXPECT_EQ(static_cast<Field*>(field)->owner, copy.get());
    for (auto* index : copy->m_listIndexes) EXPECT_EQ(static_cast<Index*>(index)->owner, copy.get());
    for (auto* key : copy->m_listForeignKeys) EXPECT_EQ(static_cast<ForeignKey*>(key)->owner, copy.get());
}

TEST(CQZTableInfo, ClonesSelectedChildrenOnly) {
    Table table;
    Fill(table);
    const std::unique_ptr<Table> copy(table.Clone(1));
    EXPECT_EQ(NamesOf(copy->m_listFields), Log({"f1"}));
    EXPECT_EQ(NamesOf(copy->m_listIndexes), Log({"i2"}));
    EXPECT_EQ(NamesOf(copy->m_listForeignKeys), Log({"k1"}));
    EXPECT_EQ(ConditionsOf(*copy), Log({"f1"}));
    EXPECT_EQ(OptionsOf(*copy), OptionsOf(table));
}

TEST(CQZTableInfo, ClonesOptionsAsTheyAreStored) {
    Table table;
    const std::unique_ptr<Table> copy(table.Clone(0));
    copy->AddIndex(u"i");
    EXPECT_EQ(copy->GetCopyIndexes(), 1);
}

class Unclonable final : public concrete::Child<CQZFieldInfo> {
 public:
    Unclonable* Clone(int) const override { throw std::string("no"); }
    CString GetTypeText() const override { return CString(); }
    CString GetCollation() const override { return CString(); }
};

TEST(CQZTableInfo, FreesWhatItClonedWhenAChildThrows) {
    Table table;
    table.AddField(u"f1");
    table.AddField<Unclonable>(u"f2");
    EXPECT_THROW(delete table.Clone(0), std::string);
}

TEST(CQZTableInfo, CopiesOptionsFromAnotherTable) {
    Table table;
    table.SetName(u"Mine");
    table.SetSrcName(u"Own");
    const CString guid = table.GetGUID();
    Table other;
    Fill(other);
    other.SetSelected(1);
    table.AddIndex(u"new");
    table.AddForeignKey(u"new");
    table.CopyTable(&other, 7);
    EXPECT_EQ(OptionsOf(table), OptionsOf(other));
    EXPECT_EQ(table.GetName(), u"Target");
    EXPECT_EQ(table.GetSrcName(), u"Own");
    EXPECT_EQ(table.GetGUID(), guid);
}

TEST(CQZTableInfo, TakesOverThatTheOtherTableHasNoIndexesAndKeys) {
    Table table;
    table.AddIndex(u"i");
    table.AddForeignKey(u"k");
    Table other;
    table.CopyTable(&other, 0);
    EXPECT_EQ(table.GetCopyIndexes(), 0);
    EXPECT_EQ(table.GetCopyForeignKeys(), 0);
}

TEST(CQZTableInfo, CopiesChildrenByTheirSourceNames) {
    Table table;
    Table other;
    const auto add = [](auto& child, const char16_t* name, int correct) {
        child.SetName(name);
        child.SetCorrect(correct);
        child.SetSelected(correct);
    };
    add(table.AddField(u"a"), u"mine", 0);
    add(table.AddIndex(u"b"), u"mine", 0);
    add(table.AddForeignKey(u"c"), u"mine", 0);
    add(other.AddField(u"A"), u"field", 1);
    add(other.AddIndex(u"B"), u"index", 2);
    add(other.AddForeignKey(u"C"), u"key", 3);
    table.CopyTable(&other, 0);
    const auto expect = [](const CQZObjectInfo* child, const char16_t* name, const char16_t* source, int selected) {
        EXPECT_EQ(child->GetName(), name);
        EXPECT_EQ(child->GetSrcName(), source);
        EXPECT_EQ(child->GetSelected(), selected);
    };
    expect(table.m_listFields.GetHead(), u"field", u"a", 1);
    expect(table.m_listIndexes.GetHead(), u"index", u"b", 2);
    expect(table.m_listForeignKeys.GetHead(), u"key", u"c", 3);
}

void ExpectNewChildrenSelected(CQZDatabaseInfo* database, int selected) {
    Table table;
    table.SetDatabase(database);
    Field& field = table.AddField(u"new");
    Index& index = table.AddIndex(u"new");
    ForeignKey& key = table.AddForeignKey(u"new");
    Table other;
    table.CopyTable(&other, 0);
    EXPECT_EQ(field.selections, std::vector<int>({selected}));
    EXPECT_EQ(index.selections, std::vector<int>({selected}));
    EXPECT_EQ(key.selections, std::vector<int>({selected}));
}

TEST(CQZTableInfo, SelectsChildrenThatTheOtherTableLacksAsTheDatabaseSays) {
    Database database;
    database.SetAutoStructureUpdate(1);
    ExpectNewChildrenSelected(&database, 1);
    database.SetAutoStructureUpdate(0);
    ExpectNewChildrenSelected(&database, 0);
    ExpectNewChildrenSelected(nullptr, 0);
}

TEST(CQZTableInfo, CopiesAFilterOfTheRightKindOnly) {
    Table other;
    Fill(other);
    Table table;
    table.AddField(u"F2");
    table.CopyTable(&other, 7);
    EXPECT_EQ(ConditionsOf(table), Log({"f2"}));
    table.CopyTable(&other, 8);
    EXPECT_EQ(table.GetFilter(), nullptr);
    table.CopyTable(&other, 7);
    other.SetFilter(nullptr);
    table.CopyTable(&other, 7);
    EXPECT_EQ(table.GetFilter(), nullptr);
}

TEST(CQZTableInfo, MayBeCopiedFromItself) {
    Table table;
    Fill(table);
    const Options before = OptionsOf(table);
    table.CopyTable(&table, 7);
    EXPECT_EQ(OptionsOf(table), before);
    EXPECT_EQ(ConditionsOf(table), Log({"f1", "f2"}));
}

}  // namespace
