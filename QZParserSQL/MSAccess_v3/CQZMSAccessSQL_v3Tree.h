// The tree view of MS Access.
#pragma once

#include "QZParserSQL/dialect/TreeView.h"

class CQZMSAccessSQL_v3Tree final : public TreeView {
 public:
    CQZMSAccessSQL_v3Tree() : TreeView(QZGrammarMSAccessSQL_v3()) {}
    static TreeView* New() { return new CQZMSAccessSQL_v3Tree; }

 private:
    TreeView* NewOfSameClass() const override { return New(); }
};
