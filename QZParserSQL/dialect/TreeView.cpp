#include "QZParserSQL/dialect/TreeView.h"

#include <memory>
#include <new>
#include <utility>

namespace {

// Places of views, kept after the thread's objects have gone no more.
class Places {
 public:
    Places() = default;
    Places(const Places&) = delete;
    Places& operator=(const Places&) = delete;
    ~Places() {
        Release();
        m_nKept = kMostKept;
    }

    void* Take() {
        if (m_pFirst == nullptr) return ::operator new(sizeof(TreeView));
        --m_nKept;
        return std::exchange(m_pFirst, m_pFirst->next);
    }

    void Put(void* place) {
        if (m_nKept == kMostKept) return ::operator delete(place);
        ++m_nKept;
        m_pFirst = new (place) Place{m_pFirst};
    }

    void Release() {
        while (m_pFirst != nullptr) ::operator delete(std::exchange(m_pFirst, m_pFirst->next));
        m_nKept = 0;
    }

 private:
    struct Place {
        Place* next;
    };

    static constexpr std::size_t kMostKept = std::size_t{1} * 1024 * 1024 / sizeof(TreeView);

    Place* m_pFirst = nullptr;
    std::size_t m_nKept = 0;
};

thread_local Places places;

}  // namespace

// NOLINTNEXTLINE(cert-dcl54-cpp,misc-new-delete-overloads): its delete is next
void* TreeView::operator new(std::size_t size) {
    return size == sizeof(TreeView) ? places.Take() : ::operator new(size);
}

void TreeView::operator delete(void* place, std::size_t size) {
    return size == sizeof(TreeView) ? places.Put(place) : ::operator delete(place);
}

void TreeView::ReleaseMemory() { places.Release(); }

TreeView::TreeView(const QZGrammar& grammar) : m_Grammar(grammar) {}

// A tree can be as deep as its text is long, so views go one by one and not each from within its parent.
TreeView::~TreeView() {
    for (TreeView* doomed = TakeChildren(nullptr); doomed != nullptr;) {
        const std::unique_ptr<TreeView> view(doomed);
        doomed = view->TakeChildren(view->m_Next);
    }
}

// The children, linked, and `next` behind them. Takes no memory, since it serves the destructor.
TreeView* TreeView::TakeChildren(TreeView* next) {
    const auto link = [&next](TreeView* view) {
        if (view != nullptr) view->m_Next = std::exchange(next, view);
    };
    link(std::exchange(m_First, nullptr));
    for (TreeView*& view : m_Further) link(std::exchange(view, nullptr));
    if (m_Children.IsEmpty()) return next;
    for (const auto& [key, view] : m_Children) link(static_cast<TreeView*>(view));
    m_Children.RemoveAll();
    return next;
}

CQZSQLTree* TreeView::GetChild(std::uint32_t index) {
    if (index <= m_Further.size() && ChildAt(index) != nullptr) return ChildAt(index);
    void* view = nullptr;
    if (!m_Children.IsEmpty() && m_Children.Lookup(CString::FromInt(index), view)) return static_cast<TreeView*>(view);
    return AddChild(index);
}

TreeView* TreeView::AddChild(std::uint32_t index) {
    std::unique_ptr<TreeView> view(NewOfSameClass());
    const std::uint32_t count = GetChildCount();
    if (index < count) {
        view->SetNode(QZChildAt(m_pNode, index));
        if (index > 0) m_Further.resize(count - 1);
        return ChildAt(index) = view.release();
    }
    m_Children.SetAt(CString::FromInt(index), view.get());
    return view.release();
}

std::uint32_t TreeView::GetChildCount() { return m_pNode == nullptr ? 0 : QZChildCount(m_pNode); }

CString TreeView::GetText() { return m_pNode == nullptr ? CString(u" ") : CString(QZTextOf(m_Grammar, m_pNode)); }

std::uint32_t TreeView::GetType() { return m_pNode == nullptr ? 0 : QZTypeOf(m_pNode); }
