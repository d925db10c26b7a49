// Whole catalogs in their stores.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/catalog_file.h"
#include "host/catalog_show.h"
#include "tests/host/CatalogSamples.h"
#include "tests/host/StoreOnDisk.h"
#include "tests/platform/PrintText.h"
#include "tests/support/MemoryStore.h"

namespace qzsql {
namespace {

Log SavedAs(CatalogDatabase& database) {
    MemoryStore store;
    database.Save(&store);
    return store.log;
}

class CatalogFileTest : public testing::Test {
 protected:
    CatalogFileTest() { CreateCatalog(onDisk_.Path(), DefaultKind()); }

    const std::string& Path() const { return onDisk_.Path(); }
    void RunSql(const std::string& sql) const { Connection(Path(), SQLITE_OPEN_READWRITE).Execute(sql.c_str()); }
    std::int64_t Number(const std::string& sql) const { return Connection(Path(), SQLITE_OPEN_READWRITE).Number(sql); }

    template <class Fill>
    void Save(Fill fill) const {
        CatalogEdit edit(Path());
        fill(edit.Database());
        edit.Save();
    }

    StoreOnDisk onDisk_;
};

TEST_F(CatalogFileTest, ANewCatalogHasTheOptionsOfANewDatabase) {
    const auto database = LoadCatalog(Path());
    EXPECT_EQ(database->GetDBType(), 2);
    EXPECT_TRUE(database->m_listTables.IsEmpty());
    EXPECT_TRUE(database->m_listQueries.IsEmpty());
    EXPECT_EQ(database->GetMaxQuant(), 100);
    EXPECT_EQ(database->GetBulkInsert(), 1);
    EXPECT_EQ(database->GetOverwriteDatabase(), 0);
    EXPECT_EQ(database->GetState(), 1);
}

TEST(CatalogKinds, EachIsKept) {
    for (const auto& [name, number] : {std::pair("mysql", 1), {"access", 2}, {"mssql", 8}, {"oracle", 16}}) {
        const StoreOnDisk onDisk;
        CreateCatalog(onDisk.Path(), *FindKind(std::string_view(name)));
        {
            CatalogEdit edit(onDisk.Path());
            FillCatalog(edit.Database(), 10, 2);
            edit.Save();
        }
        const auto database = LoadCatalog(onDisk.Path());
        EXPECT_EQ(database->GetDBType(), number);
        auto& table = *database->FindTable(u"Table5");
        EXPECT_EQ(table.GetDBType(), number);
        EXPECT_EQ(table.m_listFields.GetHead()->GetDBType(), number);
        EXPECT_EQ(table.m_listIndexes.GetHead()->GetDBType(), number);
        EXPECT_EQ(table.m_listForeignKeys.GetHead()->GetDBType(), number);
        EXPECT_EQ(table.GetFilter()->GetDBType(), number);
        EXPECT_EQ(database->FindQuery(u"Query10")->GetDBType(), number);
    }
}

TEST_F(CatalogFileTest, EverythingOfATableComesBack) {
    Save([](CatalogDatabase& database) {
        database.SetSchemaName(u"dbo");
        database.SetMaxThreads(7);
        auto& table = database.AddTable(u"Order Details");
        table.SetSyncDrop(0);
        auto& field = table.AddField(u"Größe");
        field.SetType(u"DECIMAL");
        field.SetLength(10).SetScale(2).SetLengthMapped(12).SetScaleMapped(3).SetDataType(5).SetState(4);
        field.SetTypeMapped(u"numeric");
        field.SetCollation(u"NOCASE");
        auto& index = table.AddIndex(u"byGröße");
        index.columns = {{u"Größe", {}}, {{}, {}}};
        index.Unique = 1;
        auto& key = table.AddForeignKey(u"fk");
        key.ReferencedTable = u"Orders";
        key.columns = {{u"Größe", u"ID"}, {u"b", u"c"}};
        table.SetCopyStructure(0);
    });
    const auto database = LoadCatalog(Path());
    EXPECT_EQ(database->GetSchemaName(), u"dbo");
    EXPECT_EQ(database->GetMaxThreads(), 7);
    auto& table = *database->FindTable(u"ORDER DETAILS");
    EXPECT_EQ(table.GetName(), u"Order Details");
    EXPECT_EQ(table.GetCopyStructure(), 0);
    EXPECT_EQ(table.GetCopyData(), 1);
    EXPECT_EQ(table.GetSyncDrop(), 0);
    auto& field = static_cast<CatalogField&>(*table.FindFieldBySrcName(u"größe"));
    EXPECT_EQ(field.GetType(), u"DECIMAL");
    EXPECT_EQ(field.GetLength(), 10);
    EXPECT_EQ(field.GetScale(), 2);
    EXPECT_EQ(field.GetDataType(), 5);
    EXPECT_EQ(field.GetState(), 4);
    EXPECT_EQ(field.GetCollation(), u"NOCASE");
    EXPECT_EQ(field.GetTypeText(), u"numeric(12,3)");
    field.BuildTypeMappedString();
    EXPECT_EQ(field.GetTypeMappedString(), u"numeric(12,3), COLLATE NOCASE");
    auto& index = static_cast<CatalogIndex&>(*table.FindIndexBySrcName(u"byGröße"));
    EXPECT_EQ(index.IsPrimaryIndex(), 1);
    EXPECT_EQ(index.IsPrimaryKey(), 0);
    ASSERT_EQ(index.columns.size(), 2U);
    EXPECT_EQ(index.columns[0].field, u"Größe");
    EXPECT_EQ(index.columns[1].field, u"");
    auto& key = static_cast<CatalogForeignKey&>(*table.FindForeignKeyBySrcName(u"fk"));
    EXPECT_EQ(key.ReferencedTable, u"Orders");
    ASSERT_EQ(key.columns.size(), 2U);
    EXPECT_EQ(key.columns[1].field, u"b");
    EXPECT_EQ(key.columns[1].referenced, u"c");
}

TEST_F(CatalogFileTest, RoundTripsOf1And100Tables) {
    for (const int tables : {1, 99}) {
        Log saved;
        Save([&](CatalogDatabase& database) {
            while (!database.m_listTables.IsEmpty()) QZOwned<CQZTableInfo>(database.m_listTables.RemoveHead());
            FillCatalog(database, tables, 20);
            saved = SavedAs(database);
        });
        const auto database = LoadCatalog(Path());
        EXPECT_EQ(database->Tables().size(), static_cast<std::size_t>(database->m_listTables.GetCount()));
        EXPECT_EQ(SavedAs(*database), saved);
    }
}

TEST_F(CatalogFileTest, TablesAndQueriesAreFoundWithoutRegardToCaseTheFirstOneFirst) {
    Save([](CatalogDatabase& database) {
        database.AddTable(u"Orders").SetName(u"first");
        database.AddTable(u"ORDERS").SetName(u"second");
        database.AddQuery(u"Open");
    });
    const auto database = LoadCatalog(Path());
    EXPECT_EQ(database->FindTable(u"oRDERS")->GetName(), u"first");
    EXPECT_EQ(database->FindTable(u"oRDERS"), database->FindTableBySrcName(u"oRDERS"));
    EXPECT_EQ(database->FindQuery(u"OPEN"), database->FindQueryBySrcName(u"open"));
    EXPECT_EQ(database->FindQuery(u"Orders"), nullptr);
    EXPECT_EQ(database->FindTable(u"Open"), nullptr);
}

TEST_F(CatalogFileTest, QueriesKeepTextAndDialect) {
    const CString text = u"SELECT a\r\n\tFROM [t]  \r\n";
    Save([&](CatalogDatabase& database) {
        auto& query = database.AddQuery(u"q");
        query.SetText(text);
        query.SetDialect(*FindKind(std::string_view("oracle")));
        database.AddQuery(u"r").SetText(u"");
    });
    {
        const auto database = LoadCatalog(Path());
        const auto& query = *database->FindQuery(u"q");
        EXPECT_EQ(query.Text(), text);
        EXPECT_EQ(query.GetSQL(), u"SELECT a \tFROM [t]");
        EXPECT_EQ(query.DialectName(), "oracle");
        EXPECT_EQ(query.GetDBType(), 16);
        EXPECT_EQ(query.GetDatabase(), database.get());
        EXPECT_EQ(database->FindQuery(u"r")->DialectName(), "access");
    }
    RunSql("UPDATE setting SET value = 'cobol' WHERE name = 'Dialect'");
    EXPECT_EQ(LoadCatalog(Path())->FindQuery(u"q")->DialectName(), "access");
}

TEST_F(CatalogFileTest, MissingKeysReadAsTheDefaultsOfLoading) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 1, 1); });
    RunSql("DELETE FROM setting");
    const auto database = LoadCatalog(Path());
    EXPECT_EQ(database->GetMaxQuant(), 1);
    EXPECT_EQ(database->GetBulkInsert(), 0);
    EXPECT_EQ(database->GetUseHistoryCopyData(), 0);
    EXPECT_EQ(database->GetCleanHistoryAfterUse(), 0);
    EXPECT_EQ(database->GetOverwriteDatabase(), 1);
    EXPECT_EQ(database->GetAutoStructureUpdate(), 1);
    EXPECT_EQ(database->GetState(), 0);
    ASSERT_EQ(database->Tables().size(), 1U);
    const auto& table = *database->Tables()[0];
    EXPECT_EQ(table.GetSrcName(), u"");
    EXPECT_EQ(table.GetSelected(), 1);
    EXPECT_EQ(table.GetCopyStructure(), 1);
    EXPECT_EQ(table.GetCopyData(), 1);
    EXPECT_EQ(table.GetSyncDrop(), 1);
    EXPECT_EQ(table.GetOverwriteTable(), 0);
    EXPECT_EQ(table.GetState(), 0);
    EXPECT_EQ(table.m_listFields.GetHead()->GetLength(), -1);
    EXPECT_EQ(table.m_listFields.GetHead()->GetState(), 0);
}

TEST_F(CatalogFileTest, MissingSectionsReadAsEmpty) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 10, 2); });
    RunSql("DELETE FROM section WHERE name IN ('Queries', 'ForeignKeys', 'Filter', 'Columns')");
    {
        const auto database = LoadCatalog(Path());
        EXPECT_TRUE(database->m_listQueries.IsEmpty());
        ASSERT_EQ(database->Tables().size(), 10U);
        const auto& table = *database->Tables()[4];
        EXPECT_TRUE(table.m_listForeignKeys.IsEmpty());
        EXPECT_EQ(table.GetFilter(), nullptr);
        EXPECT_TRUE(static_cast<CatalogIndex*>(table.m_listIndexes.GetHead())->columns.empty());
    }
    RunSql("DELETE FROM section");
    EXPECT_TRUE(LoadCatalog(Path())->m_listTables.IsEmpty());
}

// The number of a section's name says nothing, and neither does its key.
TEST_F(CatalogFileTest, SectionsOutOfOrderComeInTheOrderOfTheirCreation) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 3, 1); });
    RunSql(
        "UPDATE section SET id = id + 1000000 WHERE name = 'Table1';"
        "UPDATE section SET parent = parent + 1000000 WHERE parent = (SELECT id - 1000000 FROM section WHERE name = "
        "'Table1');"
        "UPDATE section SET name = 'Table7' WHERE name = 'Table2'");
    std::vector<CString> names;
    const auto database = LoadCatalog(Path());
    for (const auto* table : database->Tables()) names.push_back(table->GetSrcName());
    EXPECT_EQ(names, std::vector<CString>({u"Table2", u"Table3", u"Table1"}));
}

TEST_F(CatalogFileTest, ForeignKeysFindTheirTableByItsNewIdentity) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 2, 2); });
    const auto database = LoadCatalog(Path());
    auto& referenced = *database->FindTable(u"Table1");
    auto& referring = *database->FindTable(u"Table2");
    EXPECT_EQ(referring.m_listForeignKeys.GetHead()->GetReferencedTableGUID(), referenced.GetGUID());
    EXPECT_EQ(referring.CanStart(), 0);
    referenced.SetProcessed(1);
    EXPECT_EQ(referring.CanStart(), 1);
}

TEST_F(CatalogFileTest, AForeignKeyToAMissingTableIsNotCorrect) {
    Save([](CatalogDatabase& database) {
        FillCatalog(database, 1, 2);
        static_cast<CatalogForeignKey*>(database.Tables()[0]->m_listForeignKeys.GetHead())->ReferencedTable = u"Gone";
    });
    const auto database = LoadCatalog(Path());
    auto& table = *database->Tables()[0];
    auto& key = static_cast<CatalogForeignKey&>(*table.m_listForeignKeys.GetHead());
    EXPECT_EQ(key.GetReferencedTableGUID(), u"");
    EXPECT_EQ(table.CanStart(), 1);
    database->CheckReferences();
    EXPECT_EQ(key.GetCorrect(), 1);
    EXPECT_EQ(key.Fault(), u"there is no table Gone");
    EXPECT_EQ(table.CheckChildren(0), 1);
    key.ReferencedTable = u"TABLE1";
    database->CheckReferences();
    EXPECT_EQ(table.CheckChildren(0), 0);
}

TEST_F(CatalogFileTest, KeysOnMissingFieldsAreNotCorrect) {
    const auto database = LoadCatalog(Path());
    FillCatalog(*database, 2, 2);
    auto& table = *database->FindTable(u"Table2");
    auto& index = static_cast<CatalogIndex&>(*table.m_listIndexes.GetHead());
    auto& key = static_cast<CatalogForeignKey&>(*table.m_listForeignKeys.GetHead());
    index.columns = {{{}, {}}};
    EXPECT_EQ(index.Fault(), u"");
    index.columns.push_back({u"x", {}});
    EXPECT_EQ(index.Fault(), u"the table Table2 has no field x");
    key.columns = {{u"x", u"Field1"}};
    EXPECT_EQ(key.Fault(), u"the table Table2 has no field x");
    key.columns = {{u"Field1", u"x"}};
    EXPECT_EQ(key.Fault(), u"the table Table1 has no field x");
    database->CheckReferences();
    EXPECT_EQ(index.GetCorrect(), 1);
    EXPECT_EQ(key.GetCorrect(), 1);
}

TEST_F(CatalogFileTest, LoadedObjectsKnowWhomTheyBelongTo) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 1, 1); });
    const auto database = LoadCatalog(Path());
    auto& table = *database->Tables()[0];
    for (CQZObjectInfo* child : {static_cast<CQZObjectInfo*>(table.m_listFields.GetHead()),
                                 static_cast<CQZObjectInfo*>(table.m_listIndexes.GetHead()),
                                 static_cast<CQZObjectInfo*>(table.m_listForeignKeys.GetHead())}) {
        EXPECT_EQ(table.GetSelected(), 1);
        child->SetSelected(0);
    }
    EXPECT_EQ(table.GetSelected(), 0);
    EXPECT_EQ(table.GetCopyStructure(), 0);
    EXPECT_EQ(database->GetSelected(), 0);
}

TEST_F(CatalogFileTest, WhatIsNotSavedChangesNothing) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 2, 2); });
    RunSql("DELETE FROM section WHERE name = 'Queries'");
    const auto before = onDisk_.Bytes();
    {
        CatalogEdit edit(Path());
        edit.Database().AddTable(u"x");
    }
    EXPECT_EQ(onDisk_.Bytes(), before);
}

TEST_F(CatalogFileTest, NothingStaleComesBack) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 1, 1); });
    const auto sections = Number("SELECT count(*) FROM section");
    const auto keys = Number("SELECT count(*) FROM setting");
    Save([](CatalogDatabase& database) { database.AddTable(u"more").AddField(u"f"); });
    EXPECT_GT(Number("SELECT count(*) FROM section"), sections);
    Save([](CatalogDatabase& database) {
        QZOwned<CQZTableInfo>(database.m_listTables.RemoveTail());
        database.Connect();
    });
    EXPECT_EQ(Number("SELECT count(*) FROM section"), sections);
    EXPECT_EQ(Number("SELECT count(*) FROM setting"), keys);
    EXPECT_EQ(LoadCatalog(Path())->FindTable(u"more"), nullptr);
}

TEST_F(CatalogFileTest, AKindThatNobodyKnowsIsRefused) {
    RunSql("UPDATE setting SET value = 77 WHERE name = 'DBType'");
    try {
        LoadCatalog(Path());
        ADD_FAILURE() << "was loaded";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.what(), Path() + ": a catalog of database kind 77, which this qzsql does not know");
    }
}

TEST_F(CatalogFileTest, AFilterOfAKindThatNobodyKnowsIsPassedOver) {
    Save([](CatalogDatabase& database) { FillCatalog(database, 5, 1); });
    EXPECT_NE(LoadCatalog(Path())->Tables()[4]->GetFilter(), nullptr);
    RunSql(
        "UPDATE setting SET value = 77 WHERE name = 'DBType' AND section IN (SELECT id FROM section WHERE name = "
        "'Filter')");
    EXPECT_EQ(LoadCatalog(Path())->Tables()[4]->GetFilter(), nullptr);
}

TEST(CatalogFactoryTest, MakesNothingForUnknownKinds) {
    CatalogFactory factory;
    for (const int kind : {0, 3, 5, 9, 20, -1}) {
        EXPECT_EQ(factory.CreateTable(kind), nullptr);
        EXPECT_EQ(factory.CreateQuery(kind), nullptr);
        EXPECT_EQ(factory.CreateField(kind), nullptr);
        EXPECT_EQ(factory.CreateIndex(kind), nullptr);
        EXPECT_EQ(factory.CreateForeignKey(kind), nullptr);
        EXPECT_EQ(factory.CreateFilter(kind), nullptr);
        EXPECT_EQ(factory.CreateFilterItem(kind), nullptr);
    }
}

TEST(CatalogCopies, HoldWhatIsSelectedAndBelongTogether) {
    CatalogDatabase database(DefaultKind());
    FillCatalog(database, 10, 2);
    database.FindTable(u"Table3")->SetSelected(0);
    database.FindTable(u"Table5")->m_listFields.GetHead()->SetSelected(0);
    const std::unique_ptr<CatalogDatabase> copy(database.Clone(1));
    EXPECT_EQ(copy->FindTable(u"Table3"), nullptr);
    auto& table = *copy->FindTable(u"Table5");
    EXPECT_NE(&table, database.FindTable(u"Table5"));
    EXPECT_EQ(table.GetDatabase(), copy.get());
    EXPECT_EQ(table.m_listFields.GetCount(), 2);  // a table is copied with all its children
    EXPECT_EQ(copy->FindQuery(u"Query10")->Text(), database.FindQuery(u"Query10")->Text());
    copy->CheckReferences();
    EXPECT_EQ(copy->FindTable(u"Table4")->m_listForeignKeys.GetHead()->GetCorrect(), 1);  // it points to Table3
    EXPECT_EQ(table.m_listForeignKeys.GetHead()->GetCorrect(), 0);
}

}  // namespace
}  // namespace qzsql
