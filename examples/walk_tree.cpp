// Parses a query of MS Access and walks its tree.
//
//     walk_tree "SELECT a FROM t"
//
// Prints the tree as an outline, and what the grammar could not take: it trails behind the query, before <EOF>.
#include <QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h>
#include <QZParserSQL/MSAccess_v3/MSAccessSQL_v3Tokens.h>

#include <cstdint>
#include <iostream>
#include <memory>
#include <string>

namespace {

std::unique_ptr<CQZSQLTree> ViewOf(CQZMSAccessSQL_v3Parcer& parser) {
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);  // the caller's; the views of its children are its own
}

void Print(CQZSQLTree& node, std::size_t depth) {
    std::cout << std::string(2 * depth, ' ') << node.GetText().ToUtf8() << '\n';
    for (std::uint32_t i = 0; i < node.GetChildCount(); ++i) Print(*node.GetChild(i), depth + 1);
}

// The root of a query that was understood to its end has two children: the query and the end of the text.
std::string Trailing(CQZSQLTree& root) {
    std::string text;
    for (std::uint32_t i = 0; i + 1 < root.GetChildCount(); ++i) {
        CQZSQLTree& child = *root.GetChild(i);
        if (child.GetType() != MSAccessSQL_v3::SELECT_QUERY) text += " " + child.GetText().ToUtf8();
    }
    return text;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "walk_tree SQL\n";
        return 2;
    }
    CString sql = CString::FromUtf8(argv[1]);  // read in place: it outlives the parser
    CQZMSAccessSQL_v3Parcer parser;
    parser.SetSQL(sql);
    parser.ParseSQL();
    const auto root = ViewOf(parser);  // goes before the parser does
    Print(*root, 0);
    const auto trailing = Trailing(*root);
    if (!trailing.empty()) std::cout << "not understood:" << trailing << '\n';
    return 0;
}
