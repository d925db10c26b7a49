#include "QZParserSQL/dialect/TreeView.h"

TreeView::TreeView(const QZGrammar& grammar) : m_Grammar(grammar) {}

// A tree can be as deep as its text is long, so views go one by one and not each from within its parent.
TreeView::~TreeView() {
    std::vector<TreeView*> doomed;
    GiveChildrenTo(doomed);
    while (!doomed.empty()) {
        TreeView* view = doomed.back();
        doomed.pop_back();
        view->GiveChildrenTo(doomed);
        delete view;
    }
}

void TreeView::GiveChildrenTo(std::vector<TreeView*>& views) {
    for (TreeView* view : m_ByIndex) {
        if (view != nullptr) views.push_back(view);
    }
    m_ByIndex.clear();
    if (m_Children.IsEmpty()) return;
    CString key;
    void* view = nullptr;
    for (POSITION position = m_Children.GetStartPosition(); position != nullptr;) {
        m_Children.GetNextAssoc(position, key, view);
        if (view != nullptr) views.push_back(static_cast<TreeView*>(view));
    }
    m_Children.RemoveAll();
}

CQZSQLTree* TreeView::GetChild(std::uint32_t index) {
    if (index < m_ByIndex.size() && m_ByIndex[index] != nullptr) return m_ByIndex[index];
    void* view = nullptr;
    if (!m_Children.IsEmpty() && m_Children.Lookup(CString::FromInt(index), view)) return static_cast<TreeView*>(view);
    return AddChild(index);
}

TreeView* TreeView::AddChild(std::uint32_t index) {
    TreeView* view = NewOfSameClass();
    const std::uint32_t count = GetChildCount();
    if (index < count) {
        view->SetNode(QZChildAt(m_pNode, index));
        m_ByIndex.resize(count);
        m_ByIndex[index] = view;
    } else {
        m_Children.SetAt(CString::FromInt(index), view);
    }
    return view;
}

std::uint32_t TreeView::GetChildCount() { return m_pNode == nullptr ? 0 : QZChildCount(m_pNode); }

CString TreeView::GetText() { return m_pNode == nullptr ? CString(u" ") : CString(QZTextOf(m_Grammar, m_pNode)); }

std::uint32_t TreeView::GetType() { return m_pNode == nullptr ? 0 : QZTypeOf(m_pNode); }
