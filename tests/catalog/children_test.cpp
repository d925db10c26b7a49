// Fields, indexes and foreign keys: what the library asks of the host's classes.
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "Concrete.h"
#include "Slots.h"
#include "tests/support/MemoryStore.h"

namespace {

using concrete::Field;
using concrete::ForeignKey;
using concrete::Index;

static_assert(std::is_abstract_v<CQZFieldInfo> && std::has_virtual_destructor_v<CQZFieldInfo>);
static_assert(std::is_abstract_v<CQZIndexInfo> && std::has_virtual_destructor_v<CQZIndexInfo>);
static_assert(std::is_abstract_v<CQZForeignKeyInfo> && std::has_virtual_destructor_v<CQZForeignKeyInfo>);
static_assert(std::is_base_of_v<CQZSourceFildInfo, CQZFieldInfo>);

const std::size_t kBehindBase = SlotOf(&CQZObjectInfo::HasQuerySource) + 1;

TEST(CQZFieldInfo, AddsItsOperationsBehindTheInheritedOnes) {
    using F = CQZFieldInfo;
    EXPECT_EQ(SlotsOf(&F::SetOwner, &F::GetTypeText, &F::GetCollation), SlotsFrom(kBehindBase, 3));
    EXPECT_EQ(SlotOf(&F::Clone), SlotOf(&CQZObjectInfo::Clone));
    EXPECT_EQ(SlotOf(&F::BuildTypeMappedString), SlotOf(&CQZObjectInfo::BuildTypeMappedString));
}

TEST(CQZIndexInfo, AddsItsOperationsBehindTheInheritedOnes) {
    using I = CQZIndexInfo;
    EXPECT_EQ(SlotsOf(&I::SetOwner, &I::CheckReference, &I::IsPrimaryKey, &I::IsPrimaryIndex),
              SlotsFrom(kBehindBase, 4));
    EXPECT_EQ(SlotOf(&I::Clone), SlotOf(&CQZObjectInfo::Clone));
}

TEST(CQZForeignKeyInfo, AddsItsOperationsBehindTheInheritedOnes) {
    using K = CQZForeignKeyInfo;
    EXPECT_EQ(SlotsOf(&K::SetOwner, &K::CheckReference, &K::GetReferencedTableGUID), SlotsFrom(kBehindBase, 3));
    EXPECT_EQ(SlotOf(&K::Clone), SlotOf(&CQZObjectInfo::Clone));
}

TEST(CQZFieldInfo, ComposesTheTypeClause) {
    Field field;
    field.typeText = u"varchar(20)";
    field.BuildTypeMappedString();
    EXPECT_EQ(field.GetTypeMappedString(), u"varchar(20)");
    field.collation = u"L";
    field.BuildTypeMappedString();
    EXPECT_EQ(field.GetTypeMappedString(), u"varchar(20), COLLATE L");
    field.collation = u"100% %s";
    field.BuildTypeMappedString();
    EXPECT_EQ(field.GetTypeMappedString(), u"varchar(20), COLLATE 100% %s");
    field.typeText = u"";
    field.collation = u"";
    field.BuildTypeMappedString();
    EXPECT_EQ(field.GetTypeMappedString(), u"");
}

TEST(CQZFieldInfo, KeepsItsIdentityInAClone) {
    Field field;
    const std::unique_ptr<CQZFieldInfo> clone(field.Clone(0));
    EXPECT_EQ(clone->GetGUID(), field.GetGUID());
}

template <class Object>
void ExpectToPersistAsAnyObject() {
    Object saved;
    saved.SetName(u"Price");
    saved.SetSrcName(u"PRICE");
    saved.SetLength(20);
    saved.SetCorrect(3);
    saved.SetSelected(0);
    MemoryStore store;
    saved.Save(&store);
    concrete::Factory factory;
    Object loaded;
    loaded.Load(&store, &factory);
    EXPECT_EQ(loaded.GetName(), u"Price");
    EXPECT_EQ(loaded.GetSrcName(), u"PRICE");
    EXPECT_EQ(loaded.GetLength(), 20);
    EXPECT_EQ(loaded.GetCorrect(), 3);
    EXPECT_EQ(loaded.GetSelected(), 0);
    EXPECT_NE(loaded.GetGUID(), saved.GetGUID());
    EXPECT_EQ(factory.made, Log());
}

TEST(Children, PersistAsAnyObject) {
    ExpectToPersistAsAnyObject<Field>();
    ExpectToPersistAsAnyObject<Index>();
    ExpectToPersistAsAnyObject<ForeignKey>();
}

}  // namespace
