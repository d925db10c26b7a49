// The one body of the four dialects' tree views.
#pragma once

#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"
#include "QZParserSQL/front/CQZSQLTree.h"
#include "QZParserSQL/platform/CMap.h"

class TreeView : public CQZSQLTree {
 public:
    explicit TreeView(const QZGrammar& grammar);
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;
    ~TreeView() override;

    CQZSQLTree* GetChild(std::uint32_t index) override;
    std::uint32_t GetChildCount() override;
    CString GetText() override;
    std::uint32_t GetType() override;

    /// Set by whoever makes the view; the node belongs to its parser.
    void SetNode(const QZNode* node) { m_pNode = node; }

 private:
    virtual TreeView* NewOfSameClass() const = 0;
    TreeView* AddChild(std::uint32_t index);
    void GiveChildrenTo(std::vector<TreeView*>& views);

    CMapStringToOb m_Children{10};  // of places where the node has no child
    const QZNode* m_pNode = nullptr;
    const QZGrammar& m_Grammar;
    std::vector<TreeView*> m_ByIndex;  // of the others, so that a walk needs no key
};
