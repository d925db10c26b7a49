// A catalog of 10,000 tables.
#include <gtest/gtest.h>

#include "host/catalog_check.h"
#include "host/catalog_show.h"
#include "tests/host/CatalogSamples.h"
#include "tests/host/StoreOnDisk.h"

namespace qzsql {
namespace {

TEST(LargeCatalog, RoundTripOf10000Tables) {
    const StoreOnDisk onDisk;
    CreateCatalog(onDisk.Path(), DefaultKind());
    std::string saved;
    {
        CatalogEdit edit(onDisk.Path());
        FillCatalog(edit.Database(), 10'000, 20);
        saved = CatalogAsJson(edit.Database());
        edit.Save();
    }
    const auto database = LoadCatalog(onDisk.Path());
    EXPECT_EQ(database->Tables().size(), 10'000U);
    EXPECT_EQ(database->Queries().size(), 1'000U);
    EXPECT_TRUE(CatalogAsJson(*database) == saved);
    const auto findings = CheckCatalog(*database);
    EXPECT_TRUE(findings.faults.empty());
    EXPECT_TRUE(findings.notes.empty());
}

}  // namespace
}  // namespace qzsql
