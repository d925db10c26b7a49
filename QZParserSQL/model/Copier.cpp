#include "QZParserSQL/model/Copier.h"

#include <memory>
#include <typeinfo>
#include <vector>

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"

namespace qz {

// Copies of the library's own classes are made bare, linked to their owner, and filled later from a list of steps. An
// object of a derived class is complete when its Clone returns, since its copy constructor may look at what it owns.
class Copier {
 public:
    explicit Copier(bool exact = false) : m_bExact(exact) {}

    template <class T>
    void Run(const T& from, T& to) {
        Fill(from, to);
        Finish();
    }

    SelectItem* Clone(const SelectItem& from) {
        auto clone = CloneOf(from);
        Finish();
        return clone.release();
    }

 private:
    void Finish() {
        while (!m_Steps.empty()) {
            const Step step = m_Steps.back();
            m_Steps.pop_back();
            step.fill(*this, step.from, step.to);
        }
    }

    struct Step {
        const void* from;
        void* to;
        void (*fill)(Copier& copier, const void* from, void* to);
    };

    void Fill(const SelectItem& from, SelectItem& to) { CloneList(from.Children, to.Children); }

    void Fill(const SelectItemSubQuery& from, SelectItemSubQuery& to) {
        CloneList(from.Children, to.Children);
        CloneOne(from.Query, to.Query);
    }

    void Fill(const SelectItemUnion& from, SelectItemUnion& to) {
        CloneList(from.Children, to.Children);
        CloneOne(from.Query, to.Query);
    }

    void Fill(const CQZQueryUnionInfo& from, CQZQueryUnionInfo& to) { CloneOne(from.Query, to.Query); }

    void Fill(const CQZQueryInfo& from, CQZQueryInfo& to) {
        CloneList(from.m_listSubQueries, to.m_listSubQueries);
        to.m_mapSources = from.m_mapSources;
        CloneMap(from.m_mapAliases, to.m_mapAliases);
        if (m_bExact) KeepExact(from, to);
        CloneMap(from.m_mapFields, to.m_mapFields);
        CloneList(from.m_listSelect, to.m_listSelect);
        CloneList(from.m_listFrom, to.m_listFrom);
        if (from.m_pWhere != nullptr) to.m_pWhere = FilledLater<SelectItem>(*from.m_pWhere).release();
        CloneList(from.m_listOrderBy, to.m_listOrderBy);
        CloneList(from.m_listGroupBy, to.m_listGroupBy);
        CloneList(from.m_listHaving, to.m_listHaving);
        CloneList(from.m_listUnion, to.m_listUnion);
        CloneList(from.m_listUnions, to.m_listUnions);
    }

    static void KeepExact(const CQZQueryInfo& from, CQZQueryInfo& to) {
        to.m_nQueryKind = from.m_nQueryKind;
        to.m_nQueryOption = from.m_nQueryOption;
        for (const auto& [key, alias] : from.m_mapAliases) to.m_mapAliases[key]->Expression.ShareAs(alias->Expression);
    }

    std::unique_ptr<SelectItem> CloneOf(const SelectItem& from) {
        if (typeid(from) == typeid(SelectItem)) return FilledLater<SelectItem>(from);
        if (typeid(from) == typeid(SelectItemField)) return FilledLater<SelectItemField>(from);
        if (typeid(from) == typeid(SelectItemSubQuery)) return FilledLater<SelectItemSubQuery>(from);
        if (typeid(from) == typeid(SelectItemUnion)) return FilledLater<SelectItemUnion>(from);
        return std::unique_ptr<SelectItem>(from.Clone());
    }

    std::unique_ptr<CQZQueryInfo> CloneOf(const CQZQueryInfo& from) {
        if (typeid(from) == typeid(CQZQueryInfo)) return FilledLater<CQZQueryInfo>(from);
        return std::unique_ptr<CQZQueryInfo>(from.Clone(0));
    }

    static std::unique_ptr<CQZAliasInfo> CloneOf(const CQZAliasInfo& from) {
        return std::unique_ptr<CQZAliasInfo>(from.Clone(0));
    }

    std::unique_ptr<CQZQueryUnionInfo> CloneOf(const CQZQueryUnionInfo& from) {
        return FilledLater<CQZQueryUnionInfo>(from);
    }

    static std::unique_ptr<CFieldObject> CloneOf(const CFieldObject& from) {
        return std::make_unique<CFieldObject>(from);
    }

    // A bare copy as an object of the class T, of which `from` is one.
    template <class T, class Base>
    std::unique_ptr<T> FilledLater(const Base& from) {
        const T& original = static_cast<const T&>(from);
        std::unique_ptr<T> copy(new T(original, Bare()));
        m_Steps.push_back({&original, copy.get(), [](Copier& copier, const void* source, void* target) {
                               copier.Fill(*static_cast<const T*>(source), *static_cast<T*>(target));
                           }});
        return copy;
    }

    template <class T>
    void CloneOne(const T* from, T*& to) {
        if (from != nullptr) to = CloneOf(*from).release();
    }

    template <class T>
    void CloneList(const CList<T*>& from, CList<T*>& to) {
        for (const T* element : from) {
            if (element != nullptr) CloneOne(element, to.GetAt(to.AddTail(nullptr)));
        }
    }

    template <class T>
    void CloneMap(const CTypedMapStringToPtr<T>& from, CTypedMapStringToPtr<T>& to) {
        for (const auto& [key, value] : from) CloneOne(value, to[key]);
    }

    const bool m_bExact;
    std::vector<Step> m_Steps;
};

void CopyOwned(const SelectItem& from, SelectItem& to) { Copier().Run(from, to); }
void CopyOwned(const SelectItemSubQuery& from, SelectItemSubQuery& to) { Copier().Run(from, to); }
void CopyOwned(const SelectItemUnion& from, SelectItemUnion& to) { Copier().Run(from, to); }
void CopyOwned(const CQZQueryUnionInfo& from, CQZQueryUnionInfo& to) { Copier().Run(from, to); }
void CopyOwned(const CQZQueryInfo& from, CQZQueryInfo& to) { Copier().Run(from, to); }

SelectItem* CloneExactly(const SelectItem& item) { return Copier(/*exact=*/true).Clone(item); }

}  // namespace qz
