// Trees for the walkers that a test puts together by hand: also such as no text gives.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/CQZSQLTree.h"

/// A node of a grammar (QZGrammarMSSQL) with its children. Without a text it is one that the grammar makes and bears
/// its type's name.
template <const QZGrammar& (*Grammar)()>
class HandMadeTree : public CQZSQLTree {
 public:
    HandMadeTree(std::string_view type, std::vector<HandMadeTree> children = {})  // NOLINT(google-explicit-constructor)
        : HandMadeTree(type, CString::FromUtf8(type), std::move(children)) {}
    HandMadeTree(std::string_view type, CString text, std::vector<HandMadeTree> children = {})
        : m_Type(TypeNamed(type)), m_Text(std::move(text)), m_Children(std::move(children)) {}
    HandMadeTree(const HandMadeTree&) = default;
    HandMadeTree& operator=(const HandMadeTree&) = default;

    CQZSQLTree* GetChild(std::uint32_t index) override { return &m_Children.at(index); }
    std::uint32_t GetChildCount() override { return static_cast<std::uint32_t>(m_Children.size()); }
    CString GetText() override { return m_Text; }
    std::uint32_t GetType() override { return m_Type; }

 private:
    static std::uint32_t TypeNamed(std::string_view name) {
        const QZGrammar& grammar = Grammar();
        for (std::uint32_t type = 0; type < QZTokenTypeCount(grammar); ++type) {
            const char* known = QZTokenName(grammar, type);
            if (known != nullptr && known == name) return type;
        }
        if (name == "ERROR") return 0;
        throw std::invalid_argument(std::string(name));
    }

    std::uint32_t m_Type;
    CString m_Text;
    std::vector<HandMadeTree> m_Children;
};
