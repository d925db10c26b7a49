// The work flags of a conversion, and what may start or finish by them.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "Concrete.h"

namespace {

using concrete::Database;
using concrete::Table;

/// Orders has a foreign key to Customers and one to Products; Lines has one to Orders.
class Processing : public testing::Test {
 protected:
    Processing() {
        Refer(orders, customers);
        Refer(orders, products);
        Refer(lines, orders);
    }

    static void Refer(Table& table, const Table& referenced) {
        table.AddForeignKey(u"k").referenced = referenced.GetGUID();
    }

    Database database;
    Table& lines = database.AddTable(u"Lines");
    Table& orders = database.AddTable(u"Orders");
    Table& customers = database.AddTable(u"Customers");
    Table& products = database.AddTable(u"Products");
};

TEST_F(Processing, SetsTheFlagOfEachTable) {
    database.SetProcessedAll(5);
    for (const CQZTableInfo* table : database.m_listTables) EXPECT_EQ(table->GetProcessed(), 5);
    orders.SetProcessed(0);
    EXPECT_EQ(orders.GetProcessed(), 0);
    EXPECT_EQ(lines.GetProcessed(), 5);
}

TEST_F(Processing, StartsWhenAllThatIsReferencedIsProcessed) {
    EXPECT_EQ(customers.CanStart(), 1);
    EXPECT_EQ(orders.CanStart(), 0);
    customers.SetProcessed(1);
    EXPECT_EQ(orders.CanStart(), 0);
    products.SetProcessed(2);
    EXPECT_EQ(orders.CanStart(), 1);
    EXPECT_EQ(lines.CanStart(), 0);
}

TEST_F(Processing, StartsDespiteKeysToMissingTables) {
    customers.AddForeignKey(u"k").referenced = u"{nowhere}";
    customers.AddForeignKey(u"k");
    EXPECT_EQ(customers.CanStart(), 1);
}

TEST_F(Processing, FindsTheReferencedTableInAnyCase) {
    customers.SetGUID(u"{AB}");
    static_cast<concrete::ForeignKey*>(orders.m_listForeignKeys.GetHead())->referenced = u"{ab}";
    products.SetProcessed(1);
    EXPECT_EQ(orders.CanStart(), 0);
    customers.SetProcessed(1);
    EXPECT_EQ(orders.CanStart(), 1);
}

TEST_F(Processing, ATableThatRefersToItselfWaitsForItself) {
    Refer(customers, customers);
    EXPECT_EQ(customers.CanStart(), 0);
    customers.SetProcessed(1);
    EXPECT_EQ(customers.CanStart(), 1);
}

TEST_F(Processing, FinishesWhenAllThatReferToItAreProcessed) {
    EXPECT_EQ(lines.CanFinish(), 1);
    EXPECT_EQ(customers.CanFinish(), 0);
    orders.SetProcessed(1);
    EXPECT_EQ(customers.CanFinish(), 1);
    EXPECT_EQ(orders.CanFinish(), 0);
    Refer(lines, customers);
    EXPECT_EQ(customers.CanFinish(), 0);
    lines.SetProcessed(1);
    EXPECT_EQ(customers.CanFinish(), 1);
}

TEST_F(Processing, ATableThatRefersToItselfDoesNotKeepItselfFromFinishing) {
    Refer(lines, lines);
    EXPECT_EQ(lines.CanFinish(), 1);
}

TEST_F(Processing, ComparesReferencesToItWithRegardToCase) {
    customers.SetGUID(u"{AB}");
    auto* key = static_cast<concrete::ForeignKey*>(orders.m_listForeignKeys.GetHead());
    key->referenced = u"{ab}";
    EXPECT_EQ(customers.CanFinish(), 1);
    key->referenced = u"{AB}";
    EXPECT_EQ(customers.CanFinish(), 0);
}

TEST_F(Processing, WithoutADatabaseMayStartAndFinish) {
    orders.SetDatabase(nullptr);
    EXPECT_EQ(orders.CanStart(), 1);
    EXPECT_EQ(orders.CanFinish(), 1);
}

TEST_F(Processing, IsSharedByThreads) {
    std::vector<std::thread> workers;
    std::atomic<int> tooEarly{0};
    for (Table* table : {&lines, &orders, &customers, &products}) {
        workers.emplace_back([table, &tooEarly] {
            while (table->CanStart() == 0) std::this_thread::yield();
            for (const CQZForeignKeyInfo* key : table->m_listForeignKeys) {
                const CQZTableInfo* referenced = table->GetDatabase()->FindTableByGUID(key->GetReferencedTableGUID());
                if (referenced->GetProcessed() == 0) ++tooEarly;
            }
            table->SetProcessed(1);
            while (table->CanFinish() == 0) std::this_thread::yield();
        });
    }
    for (std::thread& worker : workers) worker.join();
    EXPECT_EQ(tooEarly, 0);
    for (const CQZTableInfo* table : database.m_listTables) EXPECT_EQ(table->GetProcessed(), 1);
}

TEST_F(Processing, IsReadAndSetByManyThreadsAtOnce) {
    constexpr int kRounds = 2000;
    std::vector<std::thread> threads;
    std::atomic<int> strange{0};
    for (int id = 1; id <= 4; ++id) {
        threads.emplace_back([this, id, &strange] {
            for (int round = 0; round < kRounds; ++round) {
                orders.SetProcessed(id);
                const int seen = orders.GetProcessed();
                if (seen < 1 || seen > 4) ++strange;
                if (customers.CanFinish() != 1 || lines.CanStart() != 1) ++strange;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(strange, 0);
}

}  // namespace
