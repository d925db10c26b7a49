// The view through which a host walks a syntax tree.
#pragma once

#include <cstdint>

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// One node and, made when asked for, the views of its children. Token types are per dialect: compare GetType with the
/// enumeration of the dialect's own header (MSAccessSQL_v3Tokens.h).
///
/// GetSQLTree of a parser gives the view of the root, which the caller deletes before the parser. Views that GetChild
/// gives belong to their parent and die with it. Not even reading is safe from two threads at once: a walk makes views.
class QZ_API CQZSQLTree {
 public:
    CQZSQLTree();
    /// Copying and assigning copy nothing.
    CQZSQLTree(const CQZSQLTree& other);
    CQZSQLTree& operator=(const CQZSQLTree& other);
    virtual ~CQZSQLTree();

    /// The view of a child, the same one at each call. Never null: without such a child an empty view is made, whose
    /// GetChildCount is 0 and whose GetText is one blank.
    virtual CQZSQLTree* GetChild(std::uint32_t index) = 0;

    /// How many children the node has, whatever views were made.
    virtual std::uint32_t GetChildCount() = 0;

    /// A token's text exactly as in the query, the name of a node that the grammar made, "nil" for the root.
    virtual CString GetText() = 0;

    /// The token type; 0 for the nil root, an error node and an empty view.
    virtual std::uint32_t GetType() = 0;
};

/// Stands beside the views; nothing makes one.
class CQZTransformTree {
 public:
    virtual ~CQZTransformTree();
};
