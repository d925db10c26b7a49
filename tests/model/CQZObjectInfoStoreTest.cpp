// What an object's section holds, and in which order it is written and read.
#include <gtest/gtest.h>

#include "tests/model/Samples.h"
#include "tests/support/MemoryStore.h"

namespace {

using sample::Object;

class Mapped : public Object {
 public:
    void SetTypeMappedString(const CString& text) { TypeMappedString = text; }
};

void Fill(Mapped& object) {
    object.SetName(u"OrderDetails");
    object.SetSrcName(u"Order Details");
    object.SetType(u"Long");
    object.SetTypeMapped(u"Int");
    object.SetTypeMappedString(u"Int(11)");
    object.SetLength(1).SetLengthMapped(2).SetScale(3).SetScaleMapped(4).SetDataType(5).SetState(6).SetCorrect(7);
    object.SetDbTypeSrcLast(8).SetDbTypeSrcCur(16).SetAutoIncrMapped(10).SetUnsignedMapped(11).SetIndexOff(12);
    object.SetSelected(0);
}

TEST(CQZObjectInfoStore, IsWrittenInOrder) {
    Mapped object;
    Fill(object);
    object.SetLowerCase(-2);
    MemoryStore store;
    object.Save(&store);
    EXPECT_EQ(store.log, Log({"open Options 1",
                              "Selected=0",
                              "LowerCase=-2",
                              "close",
                              "open Common 1",
                              "Name='OrderDetails'",
                              "Type='Long'",
                              "TypeMapped='Int'",
                              "TypeMappedString='Int(11)'",
                              "SrcName='Order Details'",
                              "Length=1",
                              "LengthMapped=2",
                              "Scale=3",
                              "ScaleMapped=4",
                              "DataType=5",
                              "State=6",
                              "Correct=7",
                              "DbTypeSrcLast=8",
                              "DbTypeSrcCur=16",
                              "AutoIncrMapped=10",
                              "UnsignedMapped=11",
                              "IndexOff=12",
                              "close"}));
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(CQZObjectInfoStore, IsReadInOrder) {
    MemoryStore store;
    Object object;
    object.SetSrcName(u"Former");
    object.SetLength(1).SetLengthMapped(2).SetScale(3).SetScaleMapped(4);
    object.Load(&store, nullptr);
    EXPECT_EQ(store.log, Log({"open Options 0",
                              "SrcName? ''",
                              "Selected? 1",
                              "LowerCase? 0",
                              "close",
                              "open Common 0",
                              "Name? ''",
                              "Type? ''",
                              "TypeMapped? ''",
                              "TypeMappedString? ''",
                              "SrcName? ''",
                              "Length? 1",
                              "LengthMapped? 2",
                              "Scale? 3",
                              "ScaleMapped? 4",
                              "DataType? 0",
                              "State? 0",
                              "Correct? 0",
                              "DbTypeSrcLast? 0",
                              "DbTypeSrcCur? 0",
                              "AutoIncrMapped? 0",
                              "UnsignedMapped? 0",
                              "IndexOff? 0",
                              "close"}));
    EXPECT_EQ(store.Depth(), 0U);
    EXPECT_TRUE(store.root.sections.empty());
}

// Everything that was saved is there again, but for the identity.
TEST(CQZObjectInfoStore, ComesBackWithAnIdentityOfItsOwn) {
    Mapped saved;
    Fill(saved);
    saved.SetLowerCase(1);
    saved.Resolved = 1;
    saved.Calculated = 1;
    MemoryStore store;
    saved.Save(&store);

    Object loaded;
    const CString guid = loaded.GetGUID();
    loaded.Load(&store, nullptr);
    EXPECT_EQ(loaded.GetGUID(), guid);
    EXPECT_NE(loaded.GetGUID(), saved.GetGUID());
    EXPECT_EQ(loaded.Resolved, 0);
    EXPECT_EQ(loaded.Calculated, 0);
    EXPECT_EQ(loaded.GetSelected(), 0);
    EXPECT_EQ(loaded.GetLowerCase(), 1);
    EXPECT_EQ(loaded.GetSrcName(), u"Order Details");
    EXPECT_EQ(loaded.GetTypeMappedString(), u"INT(11)");

    loaded.SetLowerCase(0);
    saved.SetLowerCase(0);
    MemoryStore again;
    loaded.Save(&again);
    MemoryStore expected;
    saved.Save(&expected);
    EXPECT_EQ(again.log, expected.log);
}

TEST(CQZObjectInfoStore, LoadingLeavesIdentityAndMarks) {
    Object object;
    object.Resolved = 1;
    object.Calculated = 1;
    const CString guid = object.GetGUID();
    MemoryStore store;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetGUID(), guid);
    EXPECT_EQ(object.Resolved, 1);
    EXPECT_EQ(object.Calculated, 1);
}

TEST(CQZObjectInfoStore, WritesTheStoredNameWhateverTheCaseRule) {
    Object object;
    object.SetName(u"OrderDetails");
    object.SetType(u"Long");
    object.SetLowerCase(3);
    MemoryStore store;
    object.Save(&store);
    EXPECT_EQ(store.root["Common"].texts["Name"], u"OrderDetails");
    EXPECT_EQ(store.root["Common"].texts["Type"], u"Long");
    EXPECT_EQ(object.GetName(), u"order_details");
}

// The state of a new object is 1, a missing key reads as 0; a missing length keeps the -1 of a new object.
TEST(CQZObjectInfoStore, MissingKeysReadAsTheirDefaults) {
    Mapped object;
    Fill(object);
    object.SetLowerCase(2);
    MemoryStore store;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetSelected(), 1);
    EXPECT_EQ(object.GetLowerCase(), 0);
    EXPECT_EQ(object.GetName(), u"");
    EXPECT_EQ(object.GetSrcName(), u"");
    EXPECT_EQ(object.GetType(), u"");
    EXPECT_EQ(object.GetTypeMapped(), u"");
    EXPECT_EQ(object.GetTypeMappedString(), u"");
    EXPECT_EQ(object.GetLength(), 1);
    EXPECT_EQ(object.GetLengthMapped(), 2);
    EXPECT_EQ(object.GetScale(), 3);
    EXPECT_EQ(object.GetScaleMapped(), 4);
    EXPECT_EQ(object.GetDataType(), 0);
    EXPECT_EQ(object.GetState(), 0);
    EXPECT_EQ(object.GetCorrect(), 0);
    EXPECT_EQ(object.GetDbTypeSrcLast(), 0);
    EXPECT_EQ(object.GetDbTypeSrcCur(), 0);
    EXPECT_EQ(object.GetAutoIncrMapped(), 0);
    EXPECT_EQ(object.GetUnsignedMapped(), 0);
    EXPECT_EQ(object.GetIndexOff(), 0);
}

TEST(CQZObjectInfoStore, ANewObjectKeepsItsLengthsButNotItsState) {
    Object object;
    MemoryStore store;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLength(), -1);
    EXPECT_EQ(object.GetLengthMapped(), -1);
    EXPECT_EQ(object.GetState(), 0);
}

CString LoadedSrcName(MemoryStore& store) {
    Object object;
    object.Load(&store, nullptr);
    return object.GetSrcName();
}

TEST(CQZObjectInfoStore, ReadsTheSourceNameFromWhereOlderLayoutsHaveIt) {
    MemoryStore store;
    store.root["Options"].texts["SrcName"] = u"older";
    EXPECT_EQ(LoadedSrcName(store), u"older");
    store.root["Common"].texts["SrcName"] = u"newer";
    EXPECT_EQ(LoadedSrcName(store), u"newer");
    store.root["Common"].texts["SrcName"] = u"";
    EXPECT_EQ(LoadedSrcName(store), u"");
}

TEST(CQZObjectInfoStore, KeepsSixteenBitsOfTheCaseRule) {
    MemoryStore store;
    store.root["Options"].numbers["LowerCase"] = 0x10002;
    Object object;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLowerCase(), 2);
    store.root["Options"].numbers["LowerCase"] = 0xFFFF;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLowerCase(), -1);
}

TEST(CQZObjectInfoStore, ReadsTypesAsTheyStand) {
    MemoryStore store;
    store.root["Common"].texts["Type"] = u" long ";
    Object object;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetType(), u" long ");
}

// Lists and text of a query are not persisted, and its own operations write what the inherited ones write.
TEST(CQZQueryInfoStore, HoldsIdentityAndOptionsOnly) {
    CQZQueryInfo query;
    query.SetName(u"Q");
    query.SetSQL(u"SELECT a FROM t");
    query.m_listSelect.AddTail(sample::Item(u"a"));
    query.SetCorrect(3);
    MemoryStore store;
    query.Save(&store);
    MemoryStore sameStore;
    query.SaveQuery(&sameStore, 0);
    EXPECT_EQ(store.log, sameStore.log);
    EXPECT_EQ(store.log.size(), 23U);
    EXPECT_EQ(store.root["Common"].numbers["Correct"], 3);

    CQZQueryInfo loaded;
    loaded.Load(&store, nullptr);
    EXPECT_EQ(loaded.GetName(), u"Q");
    EXPECT_EQ(loaded.GetSQL(), u"");
    EXPECT_TRUE(loaded.m_listSelect.IsEmpty());
}

class Override final : public CQZQueryInfo {
 public:
    void Save(QZSettingsStore*) override { ADD_FAILURE() << "SaveQuery writes what every object has"; }
    void CopyFrom(CQZObjectInfo*, int) override { ADD_FAILURE() << "CopyQuery takes what every object has"; }
};

TEST(CQZQueryInfoStore, OperationsOfQueriesDoNotReachOverridesOfTheInherited) {
    Override query;
    MemoryStore store;
    query.SaveQuery(&store, 0);
    EXPECT_EQ(store.log.size(), 23U);
    Object other;
    other.SetName(u"other");
    query.CopyQuery(&other);
    EXPECT_EQ(query.GetName(), u"other");
}

}  // namespace
