// The tree view of MySQL.
#pragma once

#include "QZParserSQL/dialect/TreeView.h"

class CQZMySQLTree final : public TreeView {
 public:
    CQZMySQLTree() : TreeView(QZGrammarMySQLSelect()) {}
    static TreeView* New() { return new CQZMySQLTree; }

 private:
    TreeView* NewOfSameClass() const override { return New(); }
};
