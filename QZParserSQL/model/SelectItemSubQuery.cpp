#include "QZParserSQL/model/SelectItemSubQuery.h"

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"

SelectItemSubQuery::SelectItemSubQuery() { ItemKind = kSubQuery; }

SelectItemSubQuery::SelectItemSubQuery(const SelectItemSubQuery& other) : SelectItemSubQuery(other, qz::Bare()) {
    qz::CopyOwned(other, *this);
}

SelectItemSubQuery::SelectItemSubQuery(const SelectItemSubQuery& other, qz::Bare bare) : SelectItem(other, bare) {}

SelectItemSubQuery::~SelectItemSubQuery() { qz::Dispose(Query); }

SelectItemSubQuery* SelectItemSubQuery::Clone() const { return new SelectItemSubQuery(*this); }
