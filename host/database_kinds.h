// The kinds of databases that a catalog can describe: one row each.
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/platform/CString.h"

namespace qzsql {

/// How a kind is called, and how its SQL writes names and dates.
struct DatabaseKind {
    int number;  // what GetDBType gives
    std::string_view name;
    char16_t nameOpens;
    char16_t nameCloses;
    std::u16string_view dateOpens;
    char16_t dateCloses;
};

/// Null for a number or name that no kind has.
const DatabaseKind* FindKind(int number);
const DatabaseKind* FindKind(std::string_view name);
/// "access, mssql, mysql, oracle"
std::string KindNames();

/// MS Access: the kind of what names none.
const DatabaseKind& DefaultKind();

CString QuoteName(const DatabaseKind& kind, const CString& name);
/// The name without the quotes that a kind puts around it.
CString UnquoteName(const DatabaseKind& kind, const CString& name);
CString QuoteText(const CString& text);
CString QuoteDate(const DatabaseKind& kind, const CString& date);

}  // namespace qzsql
