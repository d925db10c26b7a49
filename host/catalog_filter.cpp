#include "host/catalog_filter.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace qzsql {

namespace {

constexpr Comparison kComparisons[] = {
    {"=", u"=", true, false},
    {"<>", u"<>", true, false},
    {"<", u"<", true, false},
    {"<=", u"<=", true, false},
    {">", u">", true, false},
    {">=", u">=", true, false},
    {"like", u"LIKE", true, true},
    {"is-null", u"IS NULL", false, false},
    {"is-not-null", u"IS NOT NULL", false, false},
};

/// Words that the source types of a value's kind contain. The first row that fits counts.
constexpr struct {
    ValueType type;
    std::u16string_view words[9];
} kTypeWords[] = {
    {kTextValue, {u"CHAR", u"TEXT", u"CLOB", u"POINT", u"INTERVAL", u"GUID", u"UNIQUEID"}},
    {kDateValue, {u"DATE", u"TIME"}},
    {kNumberValue, {u"INT", u"REAL", u"FLOA", u"DOUB", u"NUM", u"DEC", u"MONEY", u"CURRENCY", u"BYTE"}},
};

bool Contains(const CString& text, std::u16string_view word) { return !word.empty() && text.Find(word) >= 0; }

}  // namespace

int ComparisonCode(std::string_view name) {
    const auto* const found = std::find_if(std::begin(kComparisons), std::end(kComparisons),
                                           [name](const Comparison& comparison) { return comparison.name == name; });
    return found == std::end(kComparisons) ? -1 : static_cast<int>(found - std::begin(kComparisons));
}

const Comparison* FindComparison(int code) {
    return code >= 0 && code < static_cast<int>(std::size(kComparisons)) ? &kComparisons[code] : nullptr;
}

std::string ComparisonNames() {
    std::string names;
    for (const auto& comparison : kComparisons) names.append(names.empty() ? "" : ", ").append(comparison.name);
    return names;
}

ValueType ValueTypeOf(const CString& fieldType) {
    CString type = fieldType;
    type.MakeUpper();
    for (const auto& row : kTypeWords) {
        const bool fits = std::any_of(std::begin(row.words), std::end(row.words),
                                      [&type](std::u16string_view word) { return Contains(type, word); });
        if (fits) return row.type;
    }
    return kTextValue;
}

CString CatalogFilterItem::Literal() const {
    const auto& value = GetValue();
    if (value.IsNull()) return u"NULL";
    CString text(value.GetWideText());
    if (value.GetType() == kNumberValue) return text;
    return value.GetType() == kDateValue ? QuoteDate(*kind_, text) : QuoteText(text);
}

CString CatalogFilterItem::GetSQLText() const {
    const auto* comparison = FindComparison(GetCondition());
    const CString name = QuoteName(*kind_, GetFieldID());
    if (comparison == nullptr) return name + u" /* condition " + CString::FromInt(GetCondition()) + u" */";
    return name + u" " + comparison->sql + (comparison->hasValue ? u" " + Literal() : CString());
}

CString CatalogFilter::GetSQLText() const {
    if (GetUseSQLQuery() != 0) return GetSQLQuery();
    CString text;
    for (const CQZFilterItemInfo* item : m_listItems) {
        if (!text.IsEmpty()) text += item->GetConditionAdd() == kOr ? u" OR " : u" AND ";
        text += item->GetSQLText();
    }
    return text;
}

}  // namespace qzsql
