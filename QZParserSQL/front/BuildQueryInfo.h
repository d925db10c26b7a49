// From the text of a stored query to its model.
#pragma once

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

class CQZQueryInfo;
struct QZReporter;

/// The kinds of database, as hosts number them.
enum DBTypes {
    kDbMySQL = 1,
    kDbMSAccess = 2,
    kDbOther5 = 5,
    kDbMSSQL = 8,
    kDbOracle = 16,
    kDbOther20 = 20,
};

/// Fills the model of a query of MS Access from its text; for other kinds of database it does nothing. The query has
/// its text (SetSQL) and, for `t.*` to become the fields of a table, its catalog (SetDatabase). Clause lists are
/// emptied first, maps keep their entries. Nothing is thrown: a text with errors gives a model as far as its tree goes,
/// and the errors are told on the standard error stream; the rewritten text is told on the console. One query on one
/// thread at a time; different queries of one catalog, too, one after another.
QZ_API void BuildQueryInfo(CQZQueryInfo* pQuery, DBTypes eType);

/// The same with the errors of the text going to `pReporter` (places are those of the rewritten text), where it is not
/// null. Returns false for a model that keeps only what was made before it would have had more than two million
/// objects, or before memory failed; the latter is reported.
QZ_API bool QZBuildQuery(CQZQueryInfo* pQuery, DBTypes eType, const QZReporter* pReporter);

/// The text that a build of the query reads: its own or, for MS Access, the rewritten one. Nothing is told on the
/// console.
QZ_API CString QZBuildText(const CQZQueryInfo& query, DBTypes eType);
