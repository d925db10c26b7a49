// Any text through the facade of a dialect and the whole of its view, with errors told to a host's function.
#include <cstdlib>
#include <memory>
#include <vector>

#include "QZParserSQL/CQZMSSQLParser.h"
#include "QZParserSQL/Grammar/CQZMySQLParcer.h"
#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/Oracle/CQZOracleParser.h"
#include "QZParserSQL/dialect/QZRecognizers.h"
#include "fuzz/FuzzInput.h"

namespace {

void WalkWhole(CQZSQLTree& root) {
    std::vector<CQZSQLTree*> waiting = {&root};
    std::size_t units = 0;
    while (!waiting.empty()) {
        CQZSQLTree& node = *waiting.back();
        waiting.pop_back();
        units += static_cast<std::size_t>(node.GetText().GetLength()) + node.GetType();
        for (std::uint32_t index = 0; index < node.GetChildCount(); ++index) waiting.push_back(node.GetChild(index));
    }
    if (units == static_cast<std::size_t>(-1)) std::abort();  // so that the texts are really read
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CString text = TextOf(BytesOf(data, size));
    const QZReporter reporter{[](void*, const QZReport& report) {
                                  if (report.message.empty()) std::abort();
                              },
                              nullptr, nullptr};
    QZ_FUZZ_PARSER parser;
    parser.SetReporter(&reporter);
    parser.SetSQL(text);
    parser.ParseSQL();
    CQZSQLTree* root = nullptr;
    parser.GetSQLTree(&root);
    const std::unique_ptr<CQZSQLTree> view(root);
    if (root == nullptr) std::abort();
    WalkWhole(*root);
    return 0;
}
