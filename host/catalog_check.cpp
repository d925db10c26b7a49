#include "host/catalog_check.h"

#include <fmt/format.h>

#include <set>

#include "host/query_build.h"
#include "host/query_rings.h"
#include "host/query_sources.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

constexpr int kLastError = 100;  // greater codes are notes

class Check {
 public:
    explicit Check(CatalogDatabase& database) : database_(database), queries_(database.Queries()) {}

    CatalogFindings Run() {
        CheckTables();
        for (auto* query : queries_) sources_.push_back(SourcesOf(*query));
        const auto rings = FindRings(FollowSources(database_, sources_));
        for (const auto& ring : rings.rings) TellRing(ring);
        const auto codes = CodesOf(rings);
        for (std::size_t i = 0; i < queries_.size(); ++i) {
            if (rings.leadsToRing[i]) {
                ExplainSources(i);
                Note(*queries_[i], "checked no further, since it reads queries in a ring");
            } else {
                Explain(i, codes[i]);
            }
        }
        return std::move(findings_);
    }

 private:
    static std::string NameOf(const CQZObjectInfo& object) { return ToUtf8(object.GetSrcName()); }
    void Fault(const CQZObjectInfo& object, std::string_view what) {
        findings_.faults.push_back(fmt::format("{}: {}", NameOf(object), what));
    }
    void Note(const CQZObjectInfo& object, std::string_view what) {
        findings_.notes.push_back(fmt::format("{}: {}", NameOf(object), what));
    }

    void CheckTables() {
        database_.CheckReferences();
        for (auto* table : database_.Tables()) {
            const auto before = findings_.faults.size();
            for (auto* index : table->m_listIndexes) CheckKey(*table, "index", static_cast<CatalogIndex&>(*index));
            for (auto* key : table->m_listForeignKeys) {
                CheckKey(*table, "foreign key", static_cast<CatalogForeignKey&>(*key));
            }
            const int code = table->CheckChildren(0);
            if (code != 0 && findings_.faults.size() == before) {
                Fault(*table, fmt::format("the check of the table gives {}", code));
            }
        }
    }

    template <class Key>
    void CheckKey(const CatalogTable& table, std::string_view what, Key& key) {
        if (key.GetCorrect() != 0) Fault(table, fmt::format("{} {}: {}", what, NameOf(key), ToUtf8(key.Fault())));
    }

    std::vector<CString> SourcesOf(const CatalogQuery& query) {
        const auto sources = ReadSources(query);
        if (!sources.isUnderstood) {
            Note(query, fmt::format("not understood to its end, see: qzsql check -d {}", query.DialectName()));
        }
        return sources.names;
    }

    void TellRing(const std::vector<std::size_t>& ring) {
        Fault(*queries_[ring.front()], "reads itself in a ring of queries: " + RingPath(database_, ring));
    }

    /// 0 for those that lead to a ring.
    std::vector<int> CodesOf(const Rings& rings) {
        std::vector<int> codes(queries_.size());
        for (std::size_t i = 0; i < queries_.size(); ++i) {
            if (!rings.leadsToRing[i]) BuildForCheck(*queries_[i], sources_[i]);
        }
        for (const auto number : rings.sourcesFirst) {
            if (!rings.leadsToRing[number]) codes[number] = queries_[number]->KeepCheck();
        }
        for (auto* query : queries_) query->ForgetCheck();
        return codes;
    }

    void Explain(std::size_t number, int code) {
        auto& query = *queries_[number];
        if (code > kLastError) Note(query, fmt::format("the check gives {}", code));
        if (code <= 0 || code > kLastError) return;
        const auto before = findings_.faults.size();
        ExplainSources(number);
        if (findings_.faults.size() == before) ExplainFields(query);
        if (findings_.faults.size() == before) Fault(query, "something that it reads is not right");
    }

    void ExplainSources(std::size_t number) {
        const auto& query = *queries_[number];
        std::set<CString> told;
        for (const auto& name : sources_[number]) {
            if (told.insert(name).second) ExplainSource(query, name);
        }
    }

    void ExplainSource(const CatalogQuery& query, const CString& name) {
        const CQZSourceInfo* source = query.FindSourceByName(name);
        if (source == nullptr) {
            Fault(query, fmt::format("reads {}, which is no table or query of the catalog", ToUtf8(name)));
        } else if (source->GetSelected() == 0) {
            Fault(query, fmt::format("reads {}, which is not selected", ToUtf8(name)));
        }
    }

    void ExplainFields(CatalogQuery& query) {
        for (const auto& entry : query.m_mapFields) {
            const auto& record = *entry.value;
            if (record.FieldName == u"*") continue;
            const auto* field = query.FindFieldInSources(record.TableName, record.FieldName);
            if (field != nullptr && field->GetSelected() == 0) {
                Fault(query, fmt::format("refers to the field {}, which is not selected", ToUtf8(record.FieldName)));
            } else if (field == nullptr && IsMissing(query, record)) {
                Fault(query,
                      fmt::format("refers to the field {}, which its sources do not have", ToUtf8(record.FieldName)));
            }
        }
    }

    /// Unlike aliases, and Yes and No, which are constants.
    static bool IsMissing(CatalogQuery& query, const CFieldObject& record) {
        const auto& name = record.FieldName;
        const bool isConstant =
            record.TableName.IsEmpty() && (name.CompareNoCase(u"Yes") == 0 || name.CompareNoCase(u"No") == 0);
        CQZQueryInfo* declaring = nullptr;
        return !name.IsEmpty() && !isConstant && query.HasAlias(record.TableName, name, declaring) == 0;
    }

    CatalogDatabase& database_;
    std::vector<CatalogQuery*> queries_;
    std::vector<std::vector<CString>> sources_;  // of each query, by name
    CatalogFindings findings_;
};

}  // namespace

CatalogFindings CheckCatalog(CatalogDatabase& database) { return Check(database).Run(); }

}  // namespace qzsql
