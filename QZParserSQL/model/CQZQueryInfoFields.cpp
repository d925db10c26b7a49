// Look-ups of fields through sources, which may be queries that read queries.
#include <map>
#include <tuple>
#include <utility>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/platform/Stack.h"

namespace {

enum class Place { kSources, kQuery };

// In which query something is looked for, where in it, and the names of table and field.
using Question = std::tuple<const CQZQueryInfo*, Place, CString, CString>;

// A look-up from the outside and all that come of it. The same question met again within itself, because queries read
// each other, finds nothing. An answer holds while no further query was marked as resolved, so that queries in layers
// are not asked the same along each path that leads to them.
class Search {
 public:
    template <class Find>
    static CQZSourceFildInfo* Ask(Question question, Find find) {
        if (t_pCurrent != nullptr) return t_pCurrent->Answer(std::move(question), find);
        Search search;
        return search.Answer(std::move(question), find);
    }

    static void MarkResolved(CQZQueryInfo& query) {
        if (query.Resolved != 1 && t_pCurrent != nullptr) ++t_pCurrent->m_nMarked;
        query.Resolved = 1;
    }

 private:
    struct Known {
        int nMarked = -1;
        CQZSourceFildInfo* pField = nullptr;
    };

    Search() { t_pCurrent = this; }
    ~Search() { t_pCurrent = nullptr; }

    template <class Find>
    CQZSourceFildInfo* Answer(Question question, Find find) {
        if (qz::StackIsLow()) return nullptr;
        Known& known = m_Known[std::move(question)];
        if (known.nMarked == m_nMarked) return known.pField;
        known = {m_nMarked, nullptr};
        CQZSourceFildInfo* field = find();
        known.pField = field;
        return field;
    }

    static thread_local Search* t_pCurrent;

    int m_nMarked = 0;
    std::map<Question, Known> m_Known;
};

thread_local Search* Search::t_pCurrent = nullptr;

}  // namespace

CQZSourceFildInfo* CQZQueryInfo::FindFieldByGUID(CString /*strGUID*/) { return nullptr; }

CQZSourceFildInfo* CQZQueryInfo::FindFieldByName(CString /*strName*/) { return nullptr; }

CQZSourceFildInfo* CQZQueryInfo::FindFieldBySrcName(CString strSrcName) {
    return Search::Ask({this, Place::kQuery, CString(), strSrcName}, [&]() -> CQZSourceFildInfo* {
        if (CQZSourceFildInfo* field = FindInOwnRecords(strSrcName)) return field;
        return TakeAlias(*this, strSrcName);
    });
}

CQZSourceFildInfo* CQZQueryInfo::FindInOwnRecords(const CString& strField) {
    for (const auto& [key, record] : m_mapFields) {
        if (record->FieldName != u"*") continue;
        if (CQZSourceFildInfo* field = FindFieldInAnySource(strField)) return field;
    }
    for (const auto& [key, record] : m_mapFields) {
        CQZSourceFildInfo* field = FindFieldInSources(record->TableName, record->FieldName);
        if (field != nullptr && field->GetSrcName().CompareNoCase(strField) == 0) return field;
    }
    return nullptr;
}

CQZAliasInfo* CQZQueryInfo::FindAliasBySrcName(const CString& strSrcName) const {
    for (const auto& [key, alias] : m_mapAliases) {
        if (alias->GetSrcName().CompareNoCase(strSrcName) == 0) return alias;
    }
    return nullptr;
}

// An alias that answers a look-up marks the query that asked.
CQZAliasInfo* CQZQueryInfo::TakeAlias(const CQZQueryInfo& declaring, const CString& strSrcName) {
    CQZAliasInfo* alias = declaring.FindAliasBySrcName(strSrcName);
    if (alias != nullptr) Search::MarkResolved(*this);
    return alias;
}

CQZSourceFildInfo* CQZQueryInfo::FindFieldInSources(const CString& strTable, const CString& strField) {
    return Search::Ask({this, Place::kSources, strTable, strField}, [&] {
        return strTable.IsEmpty() ? FindInEachSource(strField) : FindInNamedSource(strTable, strField);
    });
}

CQZSourceFildInfo* CQZQueryInfo::FindInEachSource(const CString& strField) {
    for (const auto& [name, guid] : m_mapSources) {
        CQZSourceInfo* source = FindSourceByGUID(guid);
        if (source == nullptr) {
            SetCorrect(1);
            return nullptr;
        }
        if (CQZSourceFildInfo* field = FindInEntry(*source, strField)) return field;
    }
    return nullptr;
}

CQZSourceFildInfo* CQZQueryInfo::FindInEntry(CQZSourceInfo& source, const CString& strField) {
    auto* query = dynamic_cast<CQZQueryInfo*>(&source);
    if (query == nullptr) return source.FindFieldBySrcName(strField);
    if (CQZSourceFildInfo* field = query->FindFieldInSources(CString(), strField)) return field;
    return TakeAlias(*query, strField);
}

// A query that was gone through already is searched one level deeper, by what its records and aliases refer to.
CQZSourceFildInfo* CQZQueryInfo::FindInNamedSource(const CString& strTable, const CString& strField) {
    CQZSourceInfo* source = FindSourceByName(strTable);
    if (source == nullptr) {
        SetCorrect(1);
        return nullptr;
    }
    auto* query = dynamic_cast<CQZQueryInfo*>(source);
    if (query == nullptr || query->Resolved == 0) return source->FindFieldBySrcName(strField);
    if (CQZSourceFildInfo* field = FindInRecordsOf(*query, strField)) return field;
    const CQZAliasInfo* alias = query->FindAliasBySrcName(strField);
    return alias == nullptr ? nullptr : query->FindFieldInSources(CString(), alias->GetAliasField());
}

// What a star stands for is looked for in this query's sources, not in those of the other one.
CQZSourceFildInfo* CQZQueryInfo::FindInRecordsOf(CQZQueryInfo& query, const CString& strField) {
    for (const auto& [key, record] : query.m_mapFields) {
        CQZSourceFildInfo* field = nullptr;
        if (record->FieldName == u"*") field = FindFieldInAnySource(strField);
        if (field == nullptr && record->FieldName.CompareNoCase(strField) == 0)
            field = query.FindFieldInSources(record->TableName, record->FieldName);
        if (field != nullptr) return field;
    }
    return nullptr;
}

CQZSourceFildInfo* CQZQueryInfo::FindFieldInAnySource(const CString& strField) {
    for (const auto& [name, guid] : m_mapSources) {
        CQZSourceInfo* source = FindSourceByGUID(guid);
        CQZSourceFildInfo* field = source == nullptr ? nullptr : source->FindFieldBySrcName(strField);
        if (field != nullptr) return field;
    }
    return nullptr;
}

int CQZQueryInfo::IsFieldOfSources(const CString& strField) {
    return FindFieldInSources(CString(), strField) == nullptr ? 0 : 1;
}
