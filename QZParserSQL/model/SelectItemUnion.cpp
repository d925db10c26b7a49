#include "QZParserSQL/model/SelectItemUnion.h"

#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"

SelectItemUnion::SelectItemUnion() { ItemKind = kUnion; }

SelectItemUnion::SelectItemUnion(const SelectItemUnion& other) : SelectItemUnion(other, qz::Bare()) {
    qz::CopyOwned(other, *this);
}

SelectItemUnion::SelectItemUnion(const SelectItemUnion& other, qz::Bare bare) : SelectItem(other, bare) {}

SelectItemUnion::~SelectItemUnion() { qz::Dispose(Query); }

SelectItemUnion* SelectItemUnion::Clone() const { return new SelectItemUnion(*this); }
