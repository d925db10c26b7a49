// Work of all kinds on eight threads at once gives what it gives on one. The threads come first, so that what is made
// at its first use is made among them.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "QZParserSQL/catalog/Encodings.h"
#include "QZParserSQL/catalog/QZFieldValue.h"
#include "QZParserSQL/front/BuildQueryInfo.h"
#include "QZParserSQL/platform/Console.h"
#include "host/model_text.h"
#include "host/static_walkers.h"
#include "tests/catalog/Concrete.h"
#include "tests/dialect/Views.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kThreads = 8;

/// Something to be done, and its result.
using Work = std::function<std::string()>;
using Works = std::vector<Work>;
using Results = std::vector<std::string>;

/// What each work gives, done in an order of its own.
Results Do(const Works& works, std::mt19937 random) {
    std::vector<std::size_t> order(works.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), random);
    Results results(works.size());
    for (const std::size_t i : order) results[i] = works[i]();
    return results;
}

void ExpectTheSameOnThreads(const Works& works) {
    std::vector<Results> results(kThreads);
    std::vector<std::thread> threads;
    std::atomic<std::size_t> waiting{kThreads};
    for (std::size_t number = 0; number < kThreads; ++number) {
        threads.emplace_back([&, number] {
            for (--waiting; waiting > 0;) std::this_thread::yield();
            results[number] = Do(works, std::mt19937(static_cast<unsigned>(number)));
        });
    }
    for (std::thread& thread : threads) thread.join();
    const Results alone = Do(works, std::mt19937(kThreads));
    EXPECT_EQ(std::count(alone.begin(), alone.end(), std::string()), 0);
    for (const Results& found : results) EXPECT_EQ(found, alone);
}

/// The queries of a corpus.
std::vector<std::u16string> QueriesOf(std::string_view dialect) {
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(fs::path(QZ_SOURCE_FOLDER) / "tests/corpus" / dialect)) {
        if (entry.path().extension() == ".sql") paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    std::vector<std::u16string> queries;
    for (const fs::path& path : paths) {
        std::ifstream file(path);
        queries.push_back(FromUtf8(std::string(std::istreambuf_iterator<char>(file), {})));
    }
    EXPECT_GE(queries.size(), 5U) << dialect;
    return queries;
}

template <class Parser>
std::string ShapeOf(const std::u16string& sql) {
    CString text(sql);
    Parser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    return Shape(*ViewOf(parser));
}

std::string FromListOf(const std::u16string& sql) {
    const Recognition recognition(sql, QZGrammarMSSQLfrom());
    return Outline(recognition.Grammar(), recognition.Root());
}

using Parse = std::string (*)(const std::u16string&);

void AddParses(Works& works, std::string_view dialect, Parse parse) {
    for (const std::u16string& sql : QueriesOf(dialect)) works.emplace_back([parse, sql] { return parse(sql); });
}

void AddParses(Works& works) {
    AddParses(works, "access", ShapeOf<CQZMSAccessSQL_v3Parcer>);
    AddParses(works, "mssql", ShapeOf<CQZMSSQLParser>);
    AddParses(works, "mssql-from", FromListOf);
    AddParses(works, "mysql", ShapeOf<CQZMySQLParcer>);
    AddParses(works, "oracle", ShapeOf<CQZOracleParser>);
}

/// The model of a query that has a catalog of its own, resolved.
std::string ModelOf(const std::u16string& sql, const QZGrammar& grammar, DBTypes kind) {
    concrete::Database database;
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.SetSQL(CString(sql));
    const bool isWhole =
        kind == kDbMSAccess ? QZBuildQuery(&query, kind, nullptr) : qzsql::FindStaticWalker(kind)(query, nullptr);
    query.ResolveSourceGUIDs();
    query.ResolveAllItems();
    std::string outline = isWhole ? "whole\n" : "cut\n";
    qzsql::AppendModelText(outline, {grammar, query});
    return outline;
}

void AddModels(Works& works, std::string_view dialect, const QZGrammar& grammar, DBTypes kind) {
    for (const std::u16string& sql : QueriesOf(dialect))
        works.emplace_back([sql, &grammar, kind] { return ModelOf(sql, grammar, kind); });
}

void AddModels(Works& works) {
    AddModels(works, "access", QZGrammarMSAccessSQL_v3(), kDbMSAccess);
    AddModels(works, "mssql", QZGrammarMSSQL(), kDbMSSQL);
    AddModels(works, "mysql", QZGrammarMySQLSelect(), kDbMySQL);
    AddModels(works, "oracle", QZGrammarOracle(), kDbOracle);
}

/// Every encoding: UTF-8, the sets, a number without a set, UTF-16.
std::vector<int> Encodings() {
    std::vector<int> encodings;
    for (int encoding = qz::kUtf8; encoding <= 27; ++encoding) encodings.push_back(encoding);
    encodings.push_back(qz::kUtf16);
    return encodings;
}

/// A text that each encoding has a part of, in one of them.
std::string TextIn(int encoding) {
    constexpr std::u16string_view kText = u"Größe 12,5 Łódź ĞÜŞ Жук мир Ψυχή שלום ไทย ğš §";
    const std::string_view bytes(reinterpret_cast<const char*>(kText.data()), kText.size() * sizeof(char16_t));
    if (encoding == qz::kUtf16) return std::string(bytes);
    return qz::ConvertText(bytes, qz::kUtf16, encoding).get();
}

/// The bytes of a text in one encoding when it is converted to all of them.
std::string ConvertedFrom(int from) {
    const std::string text = TextIn(from);
    QZFieldValue value;
    if (from == qz::kUtf16) {
        value.SetWideString(std::u16string(reinterpret_cast<const char16_t*>(text.data()), text.size() / 2).c_str(), 4);
    } else {
        value.SetString(text.c_str(), from, 4);
    }
    std::string all;
    for (const int to : Encodings()) {
        if (to == qz::kUtf16) {
            all += CString(value.GetWideText()).ToUtf8();
        } else {
            all += value.GetText(to);
        }
        QZFieldValue other;
        if (to != qz::kUtf16) other.SetString(value.GetText(to), to, 4);
        all += other.Equals(value) ? " =\n" : " !\n";
    }
    return all;
}

std::string NumbersAndDates(int number) {
    const QZFieldValue days(number + 0.25, 3);
    const QZFieldValue day(QZDate{number + 0.25, 0}, 4);
    return std::string(days.GetText(9)) + " " + day.GetText(21) + " " + std::to_string(day.GetDate().m_dt) +
           (days.Equals(QZFieldValue(u"7,25", 3)) ? " seven" : "");
}

void AddValues(Works& works) {
    for (const int encoding : Encodings()) works.emplace_back([encoding] { return ConvertedFrom(encoding); });
    for (int number = 0; number < 10; ++number) works.emplace_back([number] { return NumbersAndDates(number); });
}

/// Keeps the console's lines and the recognizers' messages out of the tests' output, and counts the console's.
class CountedConsole {
 public:
    CountedConsole() {
        QZSetConsoleSink([](void* lines, std::string_view) { ++*static_cast<std::size_t*>(lines); }, &m_Lines);
    }
    CountedConsole(const CountedConsole&) = delete;
    CountedConsole& operator=(const CountedConsole&) = delete;
    ~CountedConsole() { QZSetConsoleSink(nullptr, nullptr); }

    std::size_t Lines() const { return m_Lines; }

 private:
    std::size_t m_Lines = 0;
    Messages m_Messages;
};

TEST(EightThreads, ParseAllDialects) {
    const CountedConsole console;
    Works works;
    AddParses(works);
    ExpectTheSameOnThreads(works);
}

TEST(EightThreads, BuildModels) {
    const CountedConsole console;
    Works works;
    AddModels(works);
    ExpectTheSameOnThreads(works);
    EXPECT_EQ(console.Lines(), QueriesOf("access").size() * (kThreads + 1)) << "each rewritten text, by itself";
}

// Twenty-five sets in turn, so that the five tables of the encodings used last are replaced all the time.
TEST(EightThreads, ConvertValues) {
    Works works;
    for (int round = 0; round < 5; ++round) AddValues(works);
    ExpectTheSameOnThreads(works);
}

TEST(EightThreads, DoAllOfThisAtOnce) {
    const CountedConsole console;
    Works works;
    AddParses(works);
    AddModels(works);
    AddValues(works);
    ExpectTheSameOnThreads(works);
}

}  // namespace
