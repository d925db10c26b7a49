// Views as text, and the silence that bad texts need.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/MSAccess_v3/CQZMSAccessSQL_v3Parcer.h"
#include "QZParserSQL/platform/Console.h"

/// The texts of a view and all views below it: `nil(SELECT_QUERY(SELECT_LIST(...)) <EOF>)`.
inline std::string Shape(CQZSQLTree& view) {
    std::string shape = view.GetText().ToUtf8();
    for (std::uint32_t i = 0; i < view.GetChildCount(); ++i) {
        shape += (i == 0 ? "(" : " ") + Shape(*view.GetChild(i));
    }
    return view.GetChildCount() == 0 ? shape : shape + ")";
}

template <class Parser>
std::unique_ptr<CQZSQLTree> ViewOf(Parser& parser) {
    CQZSQLTree* view = nullptr;
    parser.GetSQLTree(&view);
    return std::unique_ptr<CQZSQLTree>(view);
}

/// Keeps the recognizers' messages as lines while it lives.
class Messages {
 public:
    Messages() { QZSetErrorSink(Add, this); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    ~Messages() { QZSetErrorSink(nullptr, nullptr); }

    const std::vector<std::string>& Lines() const { return m_Lines; }

 private:
    static void Add(void* self, std::string_view line) { static_cast<Messages*>(self)->m_Lines.emplace_back(line); }

    std::vector<std::string> m_Lines;
};
