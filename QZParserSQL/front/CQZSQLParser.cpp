#include "QZParserSQL/front/CQZSQLParser.h"

#include <string>

#include "QZParserSQL/platform/TextConversion.h"

namespace {

constexpr unsigned kUtf8 = 65001;

}  // namespace

CQZSQLParser::CQZSQLParser() = default;
CQZSQLParser::~CQZSQLParser() = default;

// Two bytes a unit do for most alphabets; a text that needs three is converted into a larger buffer.
void CQZSQLParser::LoadSqlText(CString& strSQL) {
    const int length = strSQL.GetLength();
    std::string sql;
    for (const std::size_t perUnit : {std::size_t{2}, std::size_t{3}}) {
        sql.resize((static_cast<std::size_t>(length) + 1) * perUnit);
        const int written =
            WideCharToMultiByte(kUtf8, strSQL.GetString(), length, sql.data(), static_cast<int>(sql.size()));
        sql.resize(static_cast<std::size_t>(written));
        if (written != 0) break;
    }
    m_Stream.clear();
    m_Stream.str(sql);
}
