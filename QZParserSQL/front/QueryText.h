// How the text of a query is made ready for its parser, and what else the build of a query knows of texts.
#pragma once

#include "QZParserSQL/platform/CString.h"

class CQZQueryInfo;

namespace qz {

/// Makes two names of each bracketed pair of words: "[a.b]" becomes "[a].[b]". Words are of letters of all alphabets,
/// digits and underscores; brackets around anything else stay. Writes to the console: for each pair its match and the
/// sub-matches 0 and 1, then "Output = " and the result.
CString RewriteBracketedPairs(const CString& strSource);
/// The same text; nothing is written to the console.
CString WithPairsRewritten(const CString& strSource);

/// Splits a text at its UNIONs, in capitals, and appends an entry to the query's m_listUnions for each part: a clone of
/// the query with that part as its text. A text without any gives no entry. The caller owns the entries.
void SplitUnion(CString strText, CQZQueryInfo& query);

/// Ties the sources of the nested queries, then the query's own, to the catalog: the value of each becomes the GUID of
/// the table that has the key as its name, or else of the query that has it as its source name.
void ResolveSourcesDeep(CQZQueryInfo& query);

/// Of a text that stands in reverse: the length of what is before its last FROM that no WHERE stands before, less the
/// length of what follows that FROM up to the next one, less 4. A FROM that nothing follows does not count; 0 for none.
int CountFromOffset(const CString& strReversed);

}  // namespace qz
