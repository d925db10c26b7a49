// What an object's section holds, and in which order it is written and read.
#include <gtest/gtest.h>

#include "tests/model/RecordingStore.h"
#include "tests/model/Samples.h"

namespace {

using sample::Log;
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
    RecordingStore store;
    object.Save(&store);
    EXPECT_EQ(store.calls, Log({"open Options 1",
                                "int Selected = 0",
                                "int LowerCase = -2",
                                "close",
                                "open Common 1",
                                "text Name = \"OrderDetails\" 0",
                                "text Type = \"Long\" 0",
                                "text TypeMapped = \"Int\" 0",
                                "text TypeMappedString = \"Int(11)\" 0",
                                "text SrcName = \"Order Details\" 0",
                                "int Length = 1",
                                "int LengthMapped = 2",
                                "int Scale = 3",
                                "int ScaleMapped = 4",
                                "int DataType = 5",
                                "int State = 6",
                                "int Correct = 7",
                                "int DbTypeSrcLast = 8",
                                "int DbTypeSrcCur = 16",
                                "int AutoIncrMapped = 10",
                                "int UnsignedMapped = 11",
                                "int IndexOff = 12",
                                "close"}));
    EXPECT_EQ(store.Depth(), 0U);
}

TEST(CQZObjectInfoStore, IsReadInOrder) {
    RecordingStore store;
    Object object;
    object.SetSrcName(u"Former");
    object.SetLength(1).SetLengthMapped(2).SetScale(3).SetScaleMapped(4);
    object.Load(&store, nullptr);
    EXPECT_EQ(store.calls, Log({"open Options 0",
                                "text SrcName \"\" 0",
                                "int Selected 1",
                                "int LowerCase 0",
                                "close",
                                "open Common 0",
                                "text Name \"\" 0",
                                "text Type \"\" 0",
                                "text TypeMapped \"\" 0",
                                "text TypeMappedString \"\" 0",
                                "text SrcName \"\" 0",
                                "int Length 1",
                                "int LengthMapped 2",
                                "int Scale 3",
                                "int ScaleMapped 4",
                                "int DataType 0",
                                "int State 0",
                                "int Correct 0",
                                "int DbTypeSrcLast 0",
                                "int DbTypeSrcCur 0",
                                "int AutoIncrMapped 0",
                                "int UnsignedMapped 0",
                                "int IndexOff 0",
                                "close"}));
    EXPECT_EQ(store.Depth(), 0U);
    EXPECT_TRUE(store.Root().subsections.empty());
}

// Everything that was saved is there again, but for the identity.
TEST(CQZObjectInfoStore, ComesBackWithAnIdentityOfItsOwn) {
    Mapped saved;
    Fill(saved);
    saved.SetLowerCase(1);
    saved.Resolved = 1;
    saved.Calculated = 1;
    RecordingStore store;
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
    RecordingStore again;
    loaded.Save(&again);
    RecordingStore expected;
    saved.Save(&expected);
    EXPECT_EQ(again.calls, expected.calls);
}

TEST(CQZObjectInfoStore, LoadingLeavesIdentityAndMarks) {
    Object object;
    object.Resolved = 1;
    object.Calculated = 1;
    const CString guid = object.GetGUID();
    RecordingStore store;
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
    RecordingStore store;
    object.Save(&store);
    EXPECT_EQ(store.Root()[u"Common"].texts[u"Name"], u"OrderDetails");
    EXPECT_EQ(store.Root()[u"Common"].texts[u"Type"], u"Long");
    EXPECT_EQ(object.GetName(), u"order_details");
}

// The state of a new object is 1, a missing key reads as 0; a missing length keeps the -1 of a new object.
TEST(CQZObjectInfoStore, MissingKeysReadAsTheirDefaults) {
    Mapped object;
    Fill(object);
    object.SetLowerCase(2);
    RecordingStore store;
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
    RecordingStore store;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLength(), -1);
    EXPECT_EQ(object.GetLengthMapped(), -1);
    EXPECT_EQ(object.GetState(), 0);
}

CString LoadedSrcName(RecordingStore& store) {
    Object object;
    object.Load(&store, nullptr);
    return object.GetSrcName();
}

TEST(CQZObjectInfoStore, ReadsTheSourceNameFromWhereOlderLayoutsHaveIt) {
    RecordingStore store;
    store.Root()[u"Options"].texts[u"SrcName"] = u"older";
    EXPECT_EQ(LoadedSrcName(store), u"older");
    store.Root()[u"Common"].texts[u"SrcName"] = u"newer";
    EXPECT_EQ(LoadedSrcName(store), u"newer");
    store.Root()[u"Common"].texts[u"SrcName"] = u"";
    EXPECT_EQ(LoadedSrcName(store), u"");
}

TEST(CQZObjectInfoStore, KeepsSixteenBitsOfTheCaseRule) {
    RecordingStore store;
    store.Root()[u"Options"].ints[u"LowerCase"] = 0x10002;
    Object object;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLowerCase(), 2);
    store.Root()[u"Options"].ints[u"LowerCase"] = 0xFFFF;
    object.Load(&store, nullptr);
    EXPECT_EQ(object.GetLowerCase(), -1);
}

TEST(CQZObjectInfoStore, ReadsTypesAsTheyStand) {
    RecordingStore store;
    store.Root()[u"Common"].texts[u"Type"] = u" long ";
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
    RecordingStore store;
    query.Save(&store);
    RecordingStore sameStore;
    query.SaveQuery(&sameStore, 0);
    EXPECT_EQ(store.calls, sameStore.calls);
    EXPECT_EQ(store.calls.size(), 23U);
    EXPECT_EQ(store.Root()[u"Common"].ints[u"Correct"], 3);

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
    RecordingStore store;
    query.SaveQuery(&store, 0);
    EXPECT_EQ(store.calls.size(), 23U);
    Object other;
    other.SetName(u"other");
    query.CopyQuery(&other);
    EXPECT_EQ(query.GetName(), u"other");
}

}  // namespace
