// Whether a query can be converted: all that it reads exists and is selected.
#include <unordered_set>
#include <vector>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/platform/Stack.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kError = 1;
constexpr int kLastError = 100;

bool IsError(int code) { return code >= kError && code <= kLastError; }

// A note is a code above the errors.
bool EndsWalk(int code) { return code != kSuccess && code <= kLastError; }

bool IsOneOf(const CString& name, const CString& first, const CString& second) {
    return name.CompareNoCase(second) == 0 || name.CompareNoCase(first) == 0;
}

bool DeclaresAlias(const CQZQueryInfo& query, const CString& first, const CString& second) {
    for (const auto& [key, alias] : query.m_mapAliases) {
        if (IsOneOf(alias->GetName(), first, second)) return true;
    }
    return false;
}

std::vector<CQZQueryInfo*> SourceQueries(const CQZQueryInfo& query) {
    std::vector<CQZQueryInfo*> queries;
    for (const auto& [name, guid] : query.m_mapSources) {
        if (auto* source = dynamic_cast<CQZQueryInfo*>(query.FindSourceByGUID(guid))) queries.push_back(source);
    }
    return queries;
}

// Access constants that parse as names.
bool IsConstant(const CFieldObject& record) {
    return record.TableName.IsEmpty() && IsOneOf(record.FieldName, u"No", u"Yes");
}

}  // namespace

int CQZQueryInfo::GetCorrect() { return CheckQuery(); }

int CQZQueryInfo::CheckChildren(int /*nFlag*/) { return CheckQuery(); }

int CQZQueryInfo::CheckQuery() {
    if (m_bIsBeingChecked) return kSuccess;  // a circle of queries: the check under way gives the answer
    if (qz::StackIsLow()) return kError;
    struct Mark {
        explicit Mark(bool& isSet) : m_IsSet(isSet) { m_IsSet = true; }
        ~Mark() { m_IsSet = false; }
        bool& m_IsSet;
    } const mark(m_bIsBeingChecked);

    if (GetSelected() == 0) Resolved = 0;
    int code = CheckFields();
    if (!IsError(code) && !CheckSources(code)) return code;
    if (!IsError(code)) CheckSubQueries(code);
    if (code == kSuccess) Resolved = 1;
    return code;
}

// Returns whether the check goes on behind the sources.
bool CQZQueryInfo::CheckSources(int& nCode) {
    for (const auto& [name, guid] : m_mapSources) {
        if (name == u"*") return false;
        CQZSourceInfo* source = FindSourceByGUID(guid);
        CQZQueryInfo* declaring = nullptr;
        if ((source == nullptr || source->GetSelected() == 0) && HasAlias(guid, CString(), declaring) == 0) {
            nCode = kError;
            break;
        }
        if (source == nullptr) continue;
        nCode = source->CheckChildren(0);
        if (EndsWalk(nCode)) break;
    }
    return true;
}

void CQZQueryInfo::CheckSubQueries(int& nCode) {
    for (CQZQueryInfo* query : m_listSubQueries) {
        nCode = query->GetCorrect();
        if (nCode != kSuccess) break;
    }
}

int CQZQueryInfo::CheckFields() {
    int result = kSuccess;
    for (const auto& [key, record] : m_mapFields) {
        if (record->FieldName == u"*" || IsConstant(*record)) continue;
        CQZSourceFildInfo* field = FindFieldInSources(record->TableName, record->FieldName);
        if (field == nullptr && IsMissing(*record)) result = kError;
        if (field != nullptr && field->GetSelected() == 0) return kError;
    }
    return result;
}

// Whether a reference that led to no field means no alias either.
bool CQZQueryInfo::IsMissing(const CFieldObject& record) {
    CQZQueryInfo* declaring = nullptr;
    return !record.FieldName.IsEmpty() && HasAlias(record.TableName, record.FieldName, declaring) == 0;
}

int CQZQueryInfo::HasAlias(const CString& strFirst, CString strSecond, CQZQueryInfo*& pDeclaring) {
    strSecond.MakeLower();
    std::unordered_set<const CQZQueryInfo*> asked;
    std::vector<CQZQueryInfo*> waiting = {this};
    while (!waiting.empty()) {
        CQZQueryInfo* query = waiting.back();
        waiting.pop_back();
        if (!asked.insert(query).second) continue;
        if (DeclaresAlias(*query, strFirst, strSecond)) {
            pDeclaring = query;
            return 1;
        }
        const std::vector<CQZQueryInfo*> sources = SourceQueries(*query);
        waiting.insert(waiting.end(), sources.rbegin(), sources.rend());  // the last one is the next to be asked
    }
    return 0;
}
