// The interfaces of the host: the order of their operations, and sections that are closed whatever happens.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "QZParserSQL/catalog/QZObjectFactory.h"
#include "Slots.h"
#include "tests/support/MemoryStore.h"

namespace {

static_assert(std::is_abstract_v<QZSettingsStore>);
static_assert(std::is_abstract_v<QZObjectFactory>);

TEST(QZSettingsStore, KeepsTheOrderOfItsOperations) {
    using S = QZSettingsStore;
    EXPECT_EQ(SlotsOf(&S::GetSubSections, &S::SectionExists, &S::OpenSection, &S::CloseSection, &S::ReadInt,
                      &S::ReadString, &S::WriteInt, &S::WriteString),
              SlotsFrom(0, 8));
}

TEST(QZObjectFactory, KeepsTheOrderOfItsOperationsBehindTwoOfTheHost) {
    using F = QZObjectFactory;
    EXPECT_EQ(SlotsOf(&F::HostOperation1, &F::HostOperation2), SlotsFrom(0, 2));
    EXPECT_EQ(SlotsOf(&F::CreateTable, &F::CreateQuery, &F::CreateField, &F::CreateIndex, &F::CreateForeignKey,
                      &F::CreateFilter, &F::CreateFilterItem),
              SlotsFrom(2, 7));
}

TEST(QZOpenSection, OpensAndCloses) {
    MemoryStore store;
    {
        const QZOpenSection outer(store, u"Outer", 1);
        const QZOpenSection inner(store, u"Inner", 0);
        store.WriteInt(u"Key", 5);
    }
    EXPECT_EQ(store.log, Log({"open Outer 1", "open Inner 0", "Key=5", "close", "close"}));
}

TEST(QZOpenSection, ClosesWhenSomethingIsThrown) {
    MemoryStore store;
    store.throwsAt = u"Key";
    const auto read = [&] {
        const QZOpenSection section(store, u"Section", 1);
        store.ReadInt(u"Key", 0);
    };
    EXPECT_THROW(read(), std::string);
    EXPECT_EQ(store.Depth(), 0U);
}

}  // namespace
