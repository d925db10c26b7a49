// Any text through the build of its model, its resolution and its showing, as the host does it. The first byte chooses
// the dialect.
#include <cstdlib>
#include <string>

#include "QZParserSQL/platform/Console.h"
#include "fuzz/FuzzInput.h"
#include "host/dialects.h"
#include "host/model.h"
#include "host/model_json.h"

namespace {

constexpr const char* kDialects[] = {"access", "mssql", "mysql", "oracle"};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    FuzzInput input(BytesOf(data, size));
    const qzsql::Dialect& dialect = *qzsql::FindDialect(kDialects[input.Below(std::size(kDialects))]);
    const CString text = TextOf(input.Rest());
    const qzsql::QueryModel model(dialect, text.View(), {nullptr, true});
    std::string shown;
    qzsql::AppendModelJson(shown, model.Shown());
    if (shown.empty() || shown.back() != '}') std::abort();
    return 0;
}
