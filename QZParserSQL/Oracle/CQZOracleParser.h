// The parser of Oracle queries.
#pragma once

#include <memory>

#include "QZParserSQL/front/CQZSQLParser.h"
#include "QZParserSQL/front/CQZSQLTree.h"
#include "QZParserSQL/platform/Export.h"

struct QZReporter;
class CQZOracleParserImp;

/// Parses one query: SetSQL, ParseSQL, GetSQLTree, walk and delete the view, destroy the parser. Nothing is thrown:
/// what the grammar cannot take trails at the root of the tree or stands there as an error node, and errors are told on
/// the standard error stream. One thread at a time; different parsers run in parallel.
class QZ_API CQZOracleParser : public CQZSQLParser {
 public:
    CQZOracleParser();
    ~CQZOracleParser() override;

    void ParseSQL() override;
    /// The text is read in place: it must stay alive and unchanged for as long as the tree is used.
    virtual void SetSQL(CString& strSQL);
    /// Writes a new view of the last tree to *ppTree; the caller deletes it before the parser. Two calls give two
    /// views.
    virtual void GetSQLTree(CQZSQLTree** ppTree);
    /// Sends the errors of later parses to a function of the host's, which must outlive them; null sends them to the
    /// standard error stream again.
    void SetReporter(const QZReporter* pReporter);

 private:
    std::unique_ptr<CQZOracleParserImp> m_pImp;
};
