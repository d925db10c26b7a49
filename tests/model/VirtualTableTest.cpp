// Hosts that were compiled earlier call the virtual operations by their entry and reach data members by their place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

#include "tests/front/Slot.h"
#include "tests/model/Samples.h"

namespace {

constexpr std::size_t kFirst = 2;  // behind the destructor

TEST(VirtualTable, OfObjects) {
    std::size_t entry = kFirst;
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetSelected), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetSelected), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetLowerCase), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetLowerCase), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetGUID), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetGUID), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::NewGUID), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetName), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetName), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetSrcName), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetSrcName), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetDBType), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetType), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetType), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetTypeSrc), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetTypeSrc), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetTypeMappedString), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::BuildTypeMappedString), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetTypeMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetTypeMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetLength), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetLength), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetLengthMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetLengthMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetScale), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetScale), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetScaleMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetScaleMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetState), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetState), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetCorrect), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetCorrect), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetDbTypeSrcLast), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetDbTypeSrcLast), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetDbTypeSrcCur), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetDbTypeSrcCur), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetAutoIncrMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetAutoIncrMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetUnsignedMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetUnsignedMapped), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetIndexOff), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::SetIndexOff), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::Save), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::Load), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::CopyFrom), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::Clone), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::IsVirtualObject), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::IsRealObject), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::GetMaxNameLength), entry++);
    EXPECT_EQ(SlotOf(&CQZObjectInfo::HasQuerySource), entry++);
}

// The number of an object's entries, where those of derived classes begin.
const std::size_t kBehindObjects = SlotOf(&CQZObjectInfo::HasQuerySource) + 1;

TEST(VirtualTable, OfSourcesAndQueries) {
    std::size_t entry = kBehindObjects;
    EXPECT_EQ(SlotOf(&CQZSourceInfo::FindFieldByGUID), entry++);
    EXPECT_EQ(SlotOf(&CQZSourceInfo::FindFieldByName), entry++);
    EXPECT_EQ(SlotOf(&CQZSourceInfo::FindFieldBySrcName), entry++);
    EXPECT_EQ(SlotOf(&CQZSourceInfo::CheckChildren), entry++);
    EXPECT_EQ(SlotOf(&CQZQueryInfo::GetExtraText1), entry++);
    EXPECT_EQ(SlotOf(&CQZQueryInfo::GetExtraText2), entry++);
    EXPECT_EQ(SlotOf(&CQZQueryInfo::SaveQuery), entry++);
    EXPECT_EQ(SlotOf(&CQZQueryInfo::CopyQuery), entry++);
    EXPECT_EQ(SlotOf(&CQZQueryInfo::SetDatabase), entry++);
}

TEST(VirtualTable, OfAliases) { EXPECT_EQ(SlotOf(&CQZAliasInfo::CheckAlias), kBehindObjects); }

template <class Item>
class VirtualTableOf : public testing::Test {};

using Items = testing::Types<SelectItem, SelectItemField, SelectItemSubQuery, SelectItemUnion>;
TYPED_TEST_SUITE(VirtualTableOf, Items, );

TYPED_TEST(VirtualTableOf, Items) {
    EXPECT_EQ(SlotOf(&TypeParam::Clone), kFirst);
    EXPECT_EQ(SlotOf(&TypeParam::GetSQLText), kFirst + 1);
    EXPECT_EQ(SlotOf(&TypeParam::BuildText), kFirst + 2);
}

// Data members follow each other in their order.
TEST(Layout, OfItems) {
    const SelectItem item;
    const std::vector<const void*> members = {
        &item.IsNested,  &item.FuncName,   &item.TokenType,          &item.Text,    &item.ItemKind, &item.IsOperator,
        &item.QuoteOpen, &item.QuoteClose, &item.HasCalculatedField, &item.Children};
    EXPECT_TRUE(std::is_sorted(members.begin(), members.end(), std::less<>()));
}

}  // namespace
