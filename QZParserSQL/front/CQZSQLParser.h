// The abstract base of the parser classes, facades and implementations alike.
#pragma once

#include <sstream>

#include "QZParserSQL/platform/CString.h"

/// Takes a text, parses it, and keeps what came of it for as long as it lives itself.
class CQZSQLParser {
 public:
    virtual ~CQZSQLParser();

    /// Parses the text that was set. A parser object belongs to one thread at a time.
    virtual void ParseSQL() = 0;

    /// Makes the text, as UTF-8, the content of the stream.
    void LoadSqlText(CString& strSQL);

 protected:
    CQZSQLParser();
    CQZSQLParser(const CQZSQLParser&) = delete;
    CQZSQLParser& operator=(const CQZSQLParser&) = delete;

    /// What LoadSqlText was given.
    std::istringstream m_Stream;
};
