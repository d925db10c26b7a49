// Row filters and their conditions.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <type_traits>

#include "Concrete.h"
#include "QZParserSQL/catalog/QZOwned.h"
#include "Slots.h"
#include "tests/support/MemoryStore.h"

namespace {

using concrete::Factory;
using concrete::Field;
using concrete::Filter;
using concrete::FilterItem;

static_assert(std::is_abstract_v<CQZFilterInfo> && !std::has_virtual_destructor_v<CQZFilterInfo>);
static_assert(std::is_abstract_v<CQZFilterItemInfo> && !std::has_virtual_destructor_v<CQZFilterItemInfo>);
// An owner cannot end them in the wrong way.
static_assert(!std::is_destructible_v<CQZFilterInfo> && !std::is_destructible_v<CQZFilterItemInfo>);

QZFieldValue Value(const char16_t* text) { return QZFieldValue(text, 4); }

CString TextOf(const QZFieldValue& value) { return value.GetWideText(); }

TEST(CQZFilterItemInfo, KeepsTheOrderOfItsOperations) {
    using I = CQZFilterItemInfo;
    EXPECT_EQ(SlotsOf(&I::GetSQLText, &I::Save, &I::Load, &I::Clone, &I::Destroy), SlotsFrom(0, 5));
}

TEST(CQZFilterInfo, KeepsTheOrderOfItsOperations) {
    using F = CQZFilterInfo;
    EXPECT_EQ(SlotsOf(&F::GetDBType, &F::GetSQLText, &F::Save, &F::Load, &F::Clone, &F::Destroy), SlotsFrom(0, 6));
}

TEST(CQZFilterItemInfo, IsEmptyAtFirst) {
    const FilterItem item;
    EXPECT_EQ(item.GetFieldID(), u"");
    EXPECT_EQ(item.GetCondition(), 0);
    EXPECT_EQ(item.GetConditionAdd(), 0);
    EXPECT_TRUE(item.GetValue().IsNull());
    EXPECT_EQ(item.GetField(), nullptr);
}

TEST(CQZFilterItemInfo, TakesFourValuesAtOnce) {
    const FilterItem made(u"Price", 3, Value(u"10"), 7);
    FilterItem set;
    set.Set(u"Price", 3, Value(u"10"), 7);
    for (const FilterItem* item : {&made, static_cast<const FilterItem*>(&set)}) {
        EXPECT_EQ(item->GetFieldID(), u"Price");
        EXPECT_EQ(item->GetCondition(), 3);
        EXPECT_EQ(TextOf(item->GetValue()), u"10");
        EXPECT_EQ(item->GetConditionAdd(), 7);
        EXPECT_EQ(item->GetField(), nullptr);
    }
}

TEST(CQZFilterItemInfo, HasASetterForEachValue) {
    Field field;
    FilterItem item;
    item.SetFieldID(u"Price");
    item.SetCondition(-3);
    item.SetConditionAdd(-7);
    item.SetValue(Value(u"10"));
    item.SetField(&field);
    EXPECT_EQ(item.GetFieldID(), u"Price");
    EXPECT_EQ(item.GetCondition(), -3);
    EXPECT_EQ(item.GetConditionAdd(), -7);
    EXPECT_EQ(TextOf(item.GetValue()), u"10");
    EXPECT_EQ(item.GetField(), &field);
}

TEST(CQZFilterItemInfo, IsCopiedWithItsField) {
    Field field;
    FilterItem item(u"Price", 3, Value(u"10"), 7);
    item.SetField(&field);
    const QZOwned<CQZFilterItemInfo> clone(item.Clone());
    item.SetFieldID(u"Name");
    item.SetValue(QZFieldValue());
    EXPECT_EQ(clone->GetFieldID(), u"Price");
    EXPECT_EQ(clone->GetCondition(), 3);
    EXPECT_EQ(clone->GetConditionAdd(), 7);
    EXPECT_EQ(TextOf(clone->GetValue()), u"10");
    EXPECT_EQ(clone->GetField(), &field);
}

// Assigning a value copies its binary part, copying it does not.
TEST(CQZFilterItemInfo, TakesTheBinaryPartOfAValueButDoesNotCopyIt) {
    QZFieldValue value = Value(u"10");
    value.SetBinary(reinterpret_cast<const unsigned char*>("123"), 3);
    FilterItem set;
    set.SetValue(value);
    FilterItem all;
    all.Set(u"Price", 3, value, 7);
    for (const FilterItem& item : {std::cref(set), std::cref(all)}) {
        std::uint32_t length = 0;
        EXPECT_NE(item.GetValue().GetBinary(length), nullptr);
        EXPECT_EQ(length, 3U);
        EXPECT_EQ(FilterItem(item).GetValue().GetBinary(length), nullptr);
    }
}

TEST(CQZFilterItemInfo, SavesItsValueInASectionOfItsOwn) {
    MemoryStore store;
    FilterItem(u"Price", 3, Value(u"10"), 7).Save(&store);
    EXPECT_EQ(store.log, Log({"FieldID='Price'", "Condition=3", "ConditionAdd=7", "open Value 1", "IsNULL=0", "Type=4",
                              "Value='10'", "close"}));
}

TEST(CQZFilterItemInfo, LoadsWhatItSaved) {
    MemoryStore store;
    FilterItem(u"Price", 3, Value(u"10"), 7).Save(&store);
    store.log.clear();
    FilterItem item;
    item.Load(&store);
    EXPECT_EQ(item.GetFieldID(), u"Price");
    EXPECT_EQ(item.GetCondition(), 3);
    EXPECT_EQ(item.GetConditionAdd(), 7);
    EXPECT_EQ(TextOf(item.GetValue()), u"10");
    EXPECT_EQ(item.GetValue().GetType(), 4);
    EXPECT_EQ(store.log, Log({"FieldID? ''", "Condition? 0", "ConditionAdd? 0", "open Value 0", "IsNULL? 0", "Type? -1",
                              "Value? ''", "close"}));
}

TEST(CQZFilterItemInfo, LoadsDefaultsFromAnEmptyStore) {
    MemoryStore store;
    FilterItem item(u"Price", 3, Value(u"10"), 7);
    item.Load(&store);
    EXPECT_EQ(item.GetFieldID(), u"");
    EXPECT_EQ(item.GetCondition(), 0);
    EXPECT_EQ(item.GetConditionAdd(), 0);
    EXPECT_FALSE(item.GetValue().IsNull());
    EXPECT_EQ(TextOf(item.GetValue()), u"");
    EXPECT_EQ(item.GetValue().GetType(), -1);
    EXPECT_EQ(store.root.Find("Value"), nullptr);
}

TEST(CQZFilterItemInfo, LoadsAValueOfType0AsOneWithoutAType) {
    MemoryStore store;
    store.root["Value"].numbers["Type"] = 0;
    store.root["Value"].texts["Value"] = u"10";
    FilterItem item;
    item.Load(&store);
    EXPECT_TRUE(item.GetValue().IsNull());
    EXPECT_EQ(item.GetValue().GetType(), -1);
}

Filter TwoConditions() {
    Filter filter(16);
    filter.SetSQLQuery(u"Price > 10");
    filter.SetUseSQLQuery(1);
    filter.m_listItems.AddTail(new FilterItem(u"Price", 1, Value(u"10"), 2));
    filter.m_listItems.AddTail(new FilterItem(u"Name", 3, QZFieldValue(), 4));
    return filter;
}

Log FieldIDs(const CQZFilterInfo& filter) {
    Log names;
    for (const CQZFilterItemInfo* item : filter.m_listItems) names.push_back(item->GetFieldID().ToUtf8());
    return names;
}

TEST(CQZFilterInfo, IsEmptyAtFirst) {
    const Filter filter;
    EXPECT_TRUE(filter.m_listItems.IsEmpty());
    EXPECT_EQ(filter.GetSQLQuery(), u"");
    EXPECT_EQ(filter.GetUseSQLQuery(), 0);
}

TEST(CQZFilterInfo, ClearsItsItems) {
    Filter filter = TwoConditions();
    filter.ClearItems();
    EXPECT_TRUE(filter.m_listItems.IsEmpty());
    EXPECT_EQ(filter.GetSQLQuery(), u"Price > 10");
}

TEST(CQZFilterInfo, ClonesItsItemsInOrder) {
    const Filter filter = TwoConditions();
    const QZOwned<CQZFilterInfo> clone(filter.Clone());
    EXPECT_EQ(FieldIDs(*clone), Log({"Price", "Name"}));
    EXPECT_NE(clone->m_listItems.GetHead(), filter.m_listItems.GetHead());
    EXPECT_EQ(clone->GetSQLQuery(), u"Price > 10");
    EXPECT_EQ(clone->GetUseSQLQuery(), 1);
    EXPECT_EQ(clone->GetSQLText(), filter.note);
}

TEST(CQZFilterInfo, SavesItsItemsNumberedFrom1) {
    MemoryStore store;
    TwoConditions().Save(&store);
    EXPECT_EQ(store.log, Log({"SQLQuery='Price > 10'",
                              "UseSQLQuery=1",  //
                              "open Condition1 1",
                              "FieldID='Price'",
                              "Condition=1",
                              "ConditionAdd=2",  //
                              "open Value 1",
                              "IsNULL=0",
                              "Type=4",
                              "Value='10'",
                              "close",
                              "close",  //
                              "open Condition2 1",
                              "FieldID='Name'",
                              "Condition=3",
                              "ConditionAdd=4",
                              "open Value 1",  //
                              "IsNULL=1",
                              "Type=-1",
                              "close",
                              "close"}));
}

TEST(CQZFilterInfo, LoadsWhatItSavedInPlaceOfWhatItHeld) {
    MemoryStore store;
    TwoConditions().Save(&store);
    Factory factory;
    Filter filter(16);
    filter.m_listItems.AddTail(new FilterItem(u"Old", 1, QZFieldValue(), 1));
    filter.Load(&store, &factory);
    EXPECT_EQ(FieldIDs(filter), Log({"Price", "Name"}));
    EXPECT_EQ(filter.GetSQLQuery(), u"Price > 10");
    EXPECT_EQ(filter.GetUseSQLQuery(), 1);
    EXPECT_EQ(TextOf(filter.m_listItems.GetHead()->GetValue()), u"10");
    EXPECT_TRUE(filter.m_listItems.GetTail()->GetValue().IsNull());
    EXPECT_EQ(factory.made, Log({"FilterItem 16", "FilterItem 16"}));
}

TEST(CQZFilterInfo, LoadsItemsInTheOrderOfTheSubsections) {
    MemoryStore store;
    store.root["Condition9"].texts["FieldID"] = u"a";
    store.root["Condition1"].texts["FieldID"] = u"b";
    store.root["Other"].texts["FieldID"] = u"c";
    Factory factory;
    Filter filter;
    filter.Load(&store, &factory);
    EXPECT_EQ(FieldIDs(filter), Log({"a", "b", "c"}));
}

TEST(CQZFilterInfo, LoadsDefaultsFromAnEmptyStore) {
    MemoryStore store;
    Factory factory;
    Filter filter = TwoConditions();
    filter.Load(&store, &factory);
    EXPECT_TRUE(filter.m_listItems.IsEmpty());
    EXPECT_EQ(filter.GetSQLQuery(), u"");
    EXPECT_EQ(filter.GetUseSQLQuery(), 0);
}

TEST(CQZFilterInfo, PassesOverItemsThatTheHostHasNoClassFor) {
    MemoryStore store;
    TwoConditions().Save(&store);
    Factory factory;
    factory.missing = "FilterItem";
    Filter filter;
    filter.Load(&store, &factory);
    EXPECT_TRUE(filter.m_listItems.IsEmpty());
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(CQZFilterInfo, LosesNoItemWhenTheStoreThrows) {
    MemoryStore store;
    TwoConditions().Save(&store);
    store.throwsAt = u"ConditionAdd";
    Factory factory;
    Filter filter;
    EXPECT_THROW(filter.Load(&store, &factory), std::string);
    EXPECT_TRUE(filter.m_listItems.IsEmpty());
    EXPECT_EQ(store.Depth(), 0U);
}

}  // namespace
