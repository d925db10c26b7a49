#include "tests/golden/Model.h"

#include <string_view>

#include "QZParserSQL/platform/Console.h"
#include "host/dialects.h"
#include "host/model.h"
#include "host/model_text.h"
#include "host/unicode.h"

std::string ModelOutline(const std::string& dialect, const std::string& sql) {
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    const qzsql::QueryModel model(*qzsql::FindDialect(dialect), qzsql::FromUtf8(sql), {});
    QZSetConsoleSink(nullptr, nullptr);
    std::string outline;
    qzsql::AppendModelText(outline, model.Shown());
    return outline;
}
