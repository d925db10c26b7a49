#include "host/database_kinds.h"

#include <algorithm>
#include <iterator>

namespace qzsql {

namespace {

constexpr DatabaseKind kKinds[] = {
    {2, "access", u'[', u']', u"#", u'#'},
    {8, "mssql", u'[', u']', u"'", u'\''},
    {1, "mysql", u'`', u'`', u"'", u'\''},
    {16, "oracle", u'"', u'"', u"TIMESTAMP '", u'\''},
};

template <class IsWanted>
const DatabaseKind* FindIf(IsWanted isWanted) {
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds), isWanted);
    return found == std::end(kKinds) ? nullptr : found;
}

/// Puts marks around a text, in which a closing mark is written twice.
CString Enclose(std::u16string_view opens, CString text, char16_t closes) {
    text.Replace({&closes, 1}, std::u16string(2, closes));
    return opens + text + std::u16string_view(&closes, 1);
}

}  // namespace

const DatabaseKind* FindKind(int number) {
    return FindIf([number](const DatabaseKind& kind) { return kind.number == number; });
}

const DatabaseKind* FindKind(std::string_view name) {
    return FindIf([name](const DatabaseKind& kind) { return kind.name == name; });
}

std::string KindNames() {
    std::string names;
    for (const auto& kind : kKinds) names.append(names.empty() ? "" : ", ").append(kind.name);
    return names;
}

const DatabaseKind& DefaultKind() { return kKinds[0]; }

CString QuoteName(const DatabaseKind& kind, const CString& name) {
    return Enclose({&kind.nameOpens, 1}, name, kind.nameCloses);
}

CString UnquoteName(const DatabaseKind& kind, const CString& name) {
    const int length = name.GetLength();
    const bool isQuoted = length >= 2 && name[0] == kind.nameOpens && name[length - 1] == kind.nameCloses;
    return isQuoted ? name.Mid(1, length - 2) : name;
}

CString QuoteText(const CString& text) { return Enclose(u"'", text, u'\''); }

CString QuoteDate(const DatabaseKind& kind, const CString& date) {
    return Enclose(kind.dateOpens, date, kind.dateCloses);
}

}  // namespace qzsql
