// Each allocation of a parse, of a build, of a load and of a save of a middle-sized input fails once: nothing crashes,
// nothing leaks, and who asked is told, or gets all there is.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "host/catalog_show.h"
#include "tests/dialect/Views.h"
#include "tests/faults/FailEach.h"
#include "tests/host/CatalogSamples.h"
#include "tests/host/StoreOnDisk.h"
#include "tests/support/ModelText.h"

namespace {

CString Corpus(const std::string& name) {
    std::ifstream file(QZ_SOURCE_FOLDER "/tests/corpus/" + name);
    std::ostringstream text;
    text << file.rdbuf();
    EXPECT_FALSE(text.str().empty()) << name;
    return CString::FromUtf8(text.str());
}

/// Counts the reports, and notes that memory ran out.
struct Reports {
    static void Add(void* self, const QZReport& report) {
        auto& reports = *static_cast<Reports*>(self);
        reports.isOutOfMemory |= report.kind == QZReportKind::OutOfMemory;
        ++reports.count;
    }

    QZReporter reporter{Add, this, nullptr};
    int count = 0;
    bool isOutOfMemory = false;
};

/// Behind a work: what the thread keeps for the next one is nothing that has leaked.
struct Released {
    Released() = default;
    Released(const Released&) = delete;
    Released& operator=(const Released&) = delete;
    ~Released() { QZReleaseMemory(); }
};

template <class Parser>
Work Parse(const CString& sql) {
    return [sql = CString(sql)]() mutable -> Made {
        const Released released;
        Reports reports;
        Parser parser;
        parser.SetReporter(&reports.reporter);
        parser.SetSQL(sql);
        parser.ParseSQL();
        const auto view = ViewOf(parser);
        if (view == nullptr) return {{}, true};
        return {Shape(*view) + std::to_string(reports.count), reports.isOutOfMemory};
    };
}

TEST(AllocationFaults, OfParses) {
    FailEach(Parse<CQZMSAccessSQL_v3Parcer>(Corpus("access/44-shipping-overview.sql")));
    FailEach(Parse<CQZMSSQLParser>(Corpus("mssql/43-report-totals.sql")));
    FailEach(Parse<CQZMySQLParcer>(Corpus("mysql/28-sum-of-cases.sql")));
    FailEach(Parse<CQZOracleParser>(Corpus("oracle/42-monthly-report.sql")));
}

// In errors the runtime takes memory of its own, and the parser puts tokens in.
TEST(AllocationFaults, OfParsesWithErrors) {
    const CString bad = u"# SELECT ((a FROM t WHERE b = # 'x' AND c IN (SELECT d FROM u WHERE) GROUP x; DROP";
    FailEach(Parse<CQZMSAccessSQL_v3Parcer>(bad));
    FailEach(Parse<CQZMSSQLParser>(bad));
    FailEach(Parse<CQZMySQLParcer>(bad));
    FailEach(Parse<CQZOracleParser>(bad));
}

Made BuildAndResolve(const CString& sql) {
    const Released released;
    Reports reports;
    concrete::Database database;
    concrete::Table& table = database.AddTable(u"Orders");
    for (const char16_t* name : {u"ID", u"Due", u"Customer"}) table.AddField(name);
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.SetSQL(sql);
    const bool isWhole = QZBuildQuery(&query, kDbMSAccess, &reports.reporter);
    query.ResolveSourceGUIDs();
    query.ResolveAllItems();
    const qzsql::ObjectLabels labels = {{table.GetGUID(), u"table:Orders"}};
    Made made;
    qzsql::AppendModelText(made.text, {QZGrammarMSAccessSQL_v3(), query, isWhole, &labels});
    made.isTold = reports.isOutOfMemory;
    return made;
}

// What a build without memory leaves can be resolved and shown like any other.
TEST(AllocationFaults, OfABuildWithResolution) {
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    const CString sql =
        u"SELECT t.*, t.Due AS Till, F(t.ID) + 1 AS n, (SELECT Max(ID) FROM Orders WHERE Orders.Due = [a.b]) AS m "
        u"FROM Orders AS t INNER JOIN (SELECT Customer FROM Orders) AS d ON t.Customer = d.Customer "
        u"WHERE Till > 3 AND n IN (1, 2) GROUP BY t.ID HAVING Count(*) > 1 ORDER BY Till DESC";
    FailEach([sql] { return BuildAndResolve(sql); });
    FailEach([sql] { return BuildAndResolve(sql + u" UNION ALL SELECT a, b, c, d, e, f FROM Orders"); });
    QZSetConsoleSink(nullptr, nullptr);
}

class CatalogFaults : public testing::Test {
 protected:
    CatalogFaults() {
        qzsql::CreateCatalog(onDisk_.Path(), qzsql::DefaultKind());
        qzsql::CatalogEdit edit(onDisk_.Path());
        qzsql::FillCatalog(edit.Database(), 5, 2);
        edit.Save();
    }

    std::string Shown() const { return qzsql::CatalogAsJson(*qzsql::LoadCatalog(onDisk_.Path())); }

    StoreOnDisk onDisk_;
};

TEST_F(CatalogFaults, OfALoad) {
    FailEach([this]() -> Made { return {Shown()}; });
}

// The store holds the catalog as it was or as it was to be.
TEST_F(CatalogFaults, OfASave) {
    const auto save = [this](int version) {
        qzsql::CatalogEdit edit(onDisk_.Path());
        edit.Database().SetMaxQuant(version);
        edit.Save();
    };
    save(7);
    const std::string after = Shown();
    save(100);
    const std::string before = Shown();
    ASSERT_NE(before, after);
    FailEach(
        [&]() -> Made {
            save(7);
            return {};
        },
        [&] {
            const std::string found = Shown();
            EXPECT_TRUE(found == before || found == after);
            if (found != before) save(100);
        });
}

}  // namespace
