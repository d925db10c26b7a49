// Does on a stack of 8 MiB what a host does with a query: parses it through the facade, walks the view, builds the
// model where there is one, and walks that. Tells whether all of the text is in the tree, what was reported, and
// whether the model is whole.
//
//     on_common_stack DIALECT FILE
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "QZParserSQL/front/BuildQueryInfo.h"
#include "host/model_text.h"
#include "host/static_walkers.h"
#include "tests/catalog/Concrete.h"
#include "tests/dialect/OnStack.h"
#include "tests/dialect/Views.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace {

constexpr std::size_t kCommonStack = std::size_t{8} << 20;

void TellTree(std::size_t childrenOfRoot, std::size_t nodes) {
    std::cout << (childrenOfRoot == 2 ? "whole" : "trailing") << '\n' << nodes << " nodes\n";
}

std::size_t NodesOf(CQZSQLTree& root) {
    std::size_t nodes = 0;
    std::vector<CQZSQLTree*> waiting{&root};
    for (; !waiting.empty(); ++nodes) {
        CQZSQLTree* node = waiting.back();
        waiting.pop_back();
        for (std::uint32_t i = 0; i < node->GetChildCount(); ++i) waiting.push_back(node->GetChild(i));
    }
    return nodes;
}

template <class Parser>
void Parse(CString& text) {
    Parser parser;
    parser.SetSQL(text);
    parser.ParseSQL();
    const auto view = ViewOf(parser);
    TellTree(view->GetChildCount(), NodesOf(*view));
}

void ParseFromList(CString& text) {
    const Recognition recognition{std::u16string(text.View()), QZGrammarMSSQLfrom()};
    for (const QZReport& report : recognition.Reports()) {
        std::cout << report.position.line << ':' << report.position.column << ": " << report.message << '\n';
    }
    TellTree(QZChildCount(recognition.Root()), TreeLines(recognition.Root()).size());
}

void Build(const CString& text, const QZGrammar& grammar, DBTypes kind) {
    concrete::Database database;
    CQZQueryInfo query;
    query.SetDatabase(&database);
    query.SetSQL(text);
    const bool isWhole =
        kind == kDbMSAccess ? QZBuildQuery(&query, kind, nullptr) : qzsql::FindStaticWalker(kind)(query, nullptr);
    std::string outline;
    qzsql::AppendModelText(outline, {grammar, query});
    std::cout << (isWhole ? "model of " : "part of a model of ") << outline.size() << " characters\n";
}

struct Dialect {
    std::function<void(CString&)> parse;
    std::function<void(const CString&)> build;
};

Dialect DialectOf(const std::string& name) {
    const auto building = [](const QZGrammar& grammar, DBTypes kind) {
        return [&grammar, kind](const CString& text) { Build(text, grammar, kind); };
    };
    const std::map<std::string, Dialect> dialects{
        {"access", {Parse<CQZMSAccessSQL_v3Parcer>, building(QZGrammarMSAccessSQL_v3(), kDbMSAccess)}},
        {"mssql", {Parse<CQZMSSQLParser>, building(QZGrammarMSSQL(), kDbMSSQL)}},
        {"mssql-from", {ParseFromList, [](const CString&) {}}},
        {"mysql", {Parse<CQZMySQLParcer>, building(QZGrammarMySQLSelect(), kDbMySQL)}},
        {"oracle", {Parse<CQZOracleParser>, building(QZGrammarOracle(), kDbOracle)}},
    };
    return dialects.at(name);
}

}  // namespace

int main(int, char** arguments) {
    const Dialect dialect = DialectOf(arguments[1]);
    std::ifstream file(arguments[2]);
    CString text(FromUtf8(std::string(std::istreambuf_iterator<char>(file), {})));
    const Messages messages;
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    RunOnStack(kCommonStack, [&] {
        dialect.parse(text);
        for (const std::string& line : messages.Lines()) {
            if (line.find("makes no token") == std::string::npos) std::cout << line << '\n';
        }
        dialect.build(text);
    });
}
