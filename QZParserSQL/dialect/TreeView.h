// The one body of the four dialects' tree views.
#pragma once

#include <cstddef>
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

    /// Views come and go in great numbers: those of a tree that has gone are kept, up to a bound, for the thread's
    /// next.
    // NOLINTNEXTLINE(cert-dcl54-cpp,misc-new-delete-overloads): its delete is next
    static void* operator new(std::size_t size);
    static void operator delete(void* place, std::size_t size);
    /// Gives back what the calling thread keeps.
    static void ReleaseMemory();

    /// Set by whoever makes the view; the node belongs to its parser.
    void SetNode(const QZNode* node) { m_pNode = node; }

 private:
    virtual TreeView* NewOfSameClass() const = 0;
    TreeView* AddChild(std::uint32_t index);
    TreeView*& ChildAt(std::uint32_t index) { return index == 0 ? m_First : m_Further[index - 1]; }
    TreeView* TakeChildren(TreeView* next);

    CMapStringToOb m_Children{10};  // of places where the node has no child
    union {
        const QZNode* m_pNode = nullptr;
        TreeView* m_Next;  // of the views that are about to go
    };
    const QZGrammar& m_Grammar;
    // Of the others, so that a walk needs no key. Most nodes have one child.
    TreeView* m_First = nullptr;
    std::vector<TreeView*> m_Further;
};
