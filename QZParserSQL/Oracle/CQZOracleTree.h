// The tree view of Oracle.
#pragma once

#include "QZParserSQL/dialect/TreeView.h"

class CQZOracleTree final : public TreeView {
 public:
    CQZOracleTree() : TreeView(QZGrammarOracle()) {}
    static TreeView* New() { return new CQZOracleTree; }

 private:
    TreeView* NewOfSameClass() const override { return New(); }
};
