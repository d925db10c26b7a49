// The tree view of MS SQL.
#pragma once

#include "QZParserSQL/dialect/TreeView.h"

class CQZMSSQLTree final : public TreeView {
 public:
    CQZMSSQLTree() : TreeView(QZGrammarMSSQL()) {}
    static TreeView* New() { return new CQZMSSQLTree; }

 private:
    TreeView* NewOfSameClass() const override { return New(); }
};
