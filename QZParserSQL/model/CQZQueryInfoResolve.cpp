// The names in the target: the operations as a host calls them, each a run of its own.
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/QueryResolution.h"

void CQZQueryInfo::ResolveAllItems() {
    qz::ResolutionRun run;
    qz::QueryResolution(*this, run).ResolveAllItems();
}

void CQZQueryInfo::ResolveItems(const CList<SelectItem*>& items) {
    qz::ResolutionRun run;
    qz::QueryResolution(*this, run).ResolveItems(items);
}

void CQZQueryInfo::ResolveField(SelectItem& item) {
    qz::ResolutionRun run;
    qz::QueryResolution(*this, run).ResolveField(item);
}

CString CQZQueryInfo::FindInItem(SelectItem& item, const SelectItemField& target, SelectItemField*& pFound,
                                 int bByField, int bNoDescendGuard) {
    CList<SelectItem*> items;
    items.AddTail(&item);
    return FindInItemList(items, target, pFound, bByField, bNoDescendGuard);
}

CString CQZQueryInfo::FindInItemList(const CList<SelectItem*>& items, const SelectItemField& target,
                                     SelectItemField*& pFound, int bByField, int bNoDescendGuard) {
    qz::ResolutionRun run;
    return qz::QueryResolution(*this, run)
        .FindInItemList(items, qz::FieldNames(target), pFound, bByField != 0, bNoDescendGuard != 0);
}

int CQZQueryInfo::IsFieldInDeclaredSource(const SelectItemField& field) {
    qz::ResolutionRun run;
    return qz::QueryResolution(*this, run).IsFieldInDeclaredSource(qz::FieldNames(field)) ? 1 : 0;
}

int CQZQueryInfo::ResolveThroughSubQuery(SelectItemField& field, CQZSourceInfo* pSource) {
    qz::ResolutionRun run;
    return qz::QueryResolution(*this, run).ResolveThroughSubQuery(field, pSource) ? 1 : 0;
}
