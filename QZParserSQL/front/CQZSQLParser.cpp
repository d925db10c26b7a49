#include "QZParserSQL/front/CQZSQLParser.h"

#include <string>

#include "QZParserSQL/platform/TextConversion.h"

namespace {

constexpr unsigned kUtf8 = 65001;

}  // namespace

CQZSQLParser::CQZSQLParser() = default;
CQZSQLParser::~CQZSQLParser() = default;

void CQZSQLParser::LoadSqlText(CString& strSQL) {
    const int length = strSQL.GetLength();
    const int size = WideCharToMultiByte(kUtf8, strSQL.GetString(), length, nullptr, 0);
    std::string sql(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(kUtf8, strSQL.GetString(), length, sql.data(), size);
    m_Stream.clear();
    m_Stream.str(sql);
}
