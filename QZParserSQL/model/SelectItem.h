// The expression node of the query model.
#pragma once

#include <cstdint>

#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

namespace qz {
class Copier;
struct Bare;
}  // namespace qz

/// One node of a clause: an entry of a list, a join, a condition, a sort marker, a function call, a constant. It owns
/// its children. Texts are rendered one level deep: a caller that wants a whole expression walks deeper itself. The
/// identifier quotes are data of each item that a host sets.
///
/// Nodes may be nested as deep as memory allows: neither deleting nor copying recurses, but for copies of nodes of a
/// host's own classes. What an item owns may outlive it for a moment while a larger structure is being deleted. The
/// order of the virtual operations is fixed. Not safe for concurrent use.
class QZ_API SelectItem {
 public:
    /// What ItemKind tells.
    enum Kind {
        kPlain = 0,           ///< sort marker, bare identifier, join placeholder
        kConstant = 1,        ///< Text is a number, a data type name or a literal
        kString = 2,          ///< Text is a character string, one blank for an empty one
        kDate = 3,            ///< Text is a date constant, one blank for an empty one
        kOperator = 4,        ///< operator or function: FuncName and Children
        kField = 5,           ///< SelectItemField
        kSubQuery = 6,        ///< SelectItemSubQuery
        kUserFunction = 7,    ///< user function: FuncName and Children
        kUnion = 8,           ///< SelectItemUnion
        kTextOperand = 9,     ///< the first operand is Text, further ones are Children
        kAliasReference = 10  ///< SelectItemField whose field part is the name of an alias of the same query
    };

    SelectItem() = default;
    /// Clones the children, null ones left out.
    SelectItem(const SelectItem& other);
    SelectItem& operator=(const SelectItem&) = delete;
    /// Deletes the children.
    virtual ~SelectItem();

    /// A deep copy, which the caller owns.
    virtual SelectItem* Clone() const;
    /// The text of this node alone: Text, or the resolved names of a field.
    virtual CString GetSQLText() const;
    /// The text with the operands, each by its GetSQLText: "left FuncName right" of the first and the last child for an
    /// infix node, else "FuncName(child,child)". Throws std::invalid_argument for an infix node without children.
    virtual CString BuildText() const;

    /// GetSQLText of the children with "," between them.
    CString JoinChildren() const;
    /// Deletes the children.
    void ClearChildren();
    /// Sets an identifier quote of this node alone.
    void SetQuoteOpen(CString strQuote);
    void SetQuoteClose(CString strQuote);

    /// 1 on the operator node of a join whose parent is a nested join.
    std::uint8_t IsNested = 0;
    /// Function name or operator text, trimmed.
    CString FuncName;
    /// Token type of the syntax tree's node; per dialect.
    int TokenType = 0;
    /// Literal text of a constant, or a sort word.
    CString Text;
    /// One of Kind.
    int ItemKind = kPlain;
    /// 1 when the node renders infix.
    int IsOperator = 0;
    /// What the names of a resolved field are put into.
    CString QuoteOpen;
    CString QuoteClose;
    /// 1 when the field resolved to an object that stands for an expression.
    int HasCalculatedField = 0;
    /// Operands, arguments or the items of a clause; owned.
    CList<SelectItem*> Children{10};

 protected:
    /// The node without its children.
    SelectItem(const SelectItem& other, qz::Bare);

 private:
    friend class qz::Copier;
};
