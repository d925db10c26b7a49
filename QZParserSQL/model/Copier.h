// Deep structures are copied without recursion, so that nesting costs memory and no stack.
#pragma once

class CQZQueryInfo;
class CQZQueryUnionInfo;
class SelectItem;
class SelectItemSubQuery;
class SelectItemUnion;

namespace qz {

/// Chooses the constructors that copy an object without what it owns.
struct Bare {};

/// Gives a bare copy clones of all that the original owns. Objects of classes that a host derived are cloned by their
/// own Clone. What was copied before something is thrown belongs to the copy.
void CopyOwned(const SelectItem& from, SelectItem& to);
void CopyOwned(const SelectItemSubQuery& from, SelectItemSubQuery& to);
void CopyOwned(const SelectItemUnion& from, SelectItemUnion& to);
void CopyOwned(const CQZQueryUnionInfo& from, CQZQueryUnionInfo& to);
void CopyOwned(const CQZQueryInfo& from, CQZQueryInfo& to);

/// A clone in which nested queries keep their query kind and option, and expressions of aliases are shared as they are.
SelectItem* CloneExactly(const SelectItem& item);

}  // namespace qz
