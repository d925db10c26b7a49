// A list whose positions stay valid while other elements come and go, and which never reads what is not there.
#pragma once

#include <iterator>
#include <list>
#include <stdexcept>
#include <utility>

/// What a POSITION points to: an element of the list or map that gave it.
struct QZListPosition {};

/// A place in a list or map; null is no place. It stays valid until its own element is removed.
using POSITION = const QZListPosition*;

/// Elements of the type TYPE in the order in which they were put; ARG_TYPE is how they are handed in. Access to an
/// element of an empty list or at a null position throws std::invalid_argument; a position of another list is not
/// detected. A list of pointers does not own what they point to, and lists move but do not copy. Not safe for
/// concurrent use.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList {
    struct Node;
    using Nodes = std::list<Node>;

    struct Node : QZListPosition {
        explicit Node(ARG_TYPE element) : value(std::forward<ARG_TYPE>(element)) {}

        TYPE value;
        typename Nodes::iterator self;
    };

    template <class NodeIterator, class Element>
    class Iterator {
     public:
        explicit Iterator(NodeIterator node) : m_Node(node) {}
        Element& operator*() const { return m_Node->value; }
        Iterator& operator++() {
            ++m_Node;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return m_Node != other.m_Node; }

     private:
        NodeIterator m_Node;
    };

 public:
    /// For `for (auto& element : list)` only.
    using iterator = Iterator<typename Nodes::iterator, TYPE>;
    using const_iterator = Iterator<typename Nodes::const_iterator, const TYPE>;

    /// The block size is a hint that needs no heeding: elements are allotted one by one.
    explicit CList(int /*blockSize*/ = 10) {}
    /// Moves the elements; their positions stay valid.
    CList(CList&&) noexcept = default;
    CList& operator=(CList&&) noexcept = default;

    /// How many elements there are.
    int GetCount() const { return static_cast<int>(m_Nodes.size()); }
    bool IsEmpty() const { return m_Nodes.empty(); }

    /// The element at an end. Throws std::invalid_argument for an empty list.
    TYPE& GetHead() { return GetAt(GetHeadPosition()); }
    const TYPE& GetHead() const { return GetAt(GetHeadPosition()); }
    TYPE& GetTail() { return GetAt(GetTailPosition()); }
    const TYPE& GetTail() const { return GetAt(GetTailPosition()); }

    /// Puts an element at an end or beside another one, and returns its position. Throws std::invalid_argument for a
    /// null position.
    POSITION AddHead(ARG_TYPE element) { return Put(m_Nodes.begin(), std::forward<ARG_TYPE>(element)); }
    POSITION AddTail(ARG_TYPE element) { return Put(m_Nodes.end(), std::forward<ARG_TYPE>(element)); }
    POSITION InsertBefore(POSITION position, ARG_TYPE element) {
        return Put(NodeAt(position), std::forward<ARG_TYPE>(element));
    }
    POSITION InsertAfter(POSITION position, ARG_TYPE element) {
        return Put(std::next(NodeAt(position)), std::forward<ARG_TYPE>(element));
    }

    /// Removes an end's element and returns it. Throws std::invalid_argument for an empty list.
    TYPE RemoveHead() { return Take(NodeAt(GetHeadPosition())); }
    TYPE RemoveTail() { return Take(NodeAt(GetTailPosition())); }
    /// Removes elements. Throws std::invalid_argument for a null position.
    void RemoveAt(POSITION position) { m_Nodes.erase(NodeAt(position)); }
    void RemoveAll() { m_Nodes.clear(); }

    /// Null for an empty list.
    POSITION GetHeadPosition() const { return m_Nodes.empty() ? nullptr : &m_Nodes.front(); }
    POSITION GetTailPosition() const { return m_Nodes.empty() ? nullptr : &m_Nodes.back(); }

    /// The element at the position, which moves on to the next (previous) one: null behind the last.
    TYPE& GetNext(POSITION& position) { return StepOn(position)->value; }
    const TYPE& GetNext(POSITION& position) const { return StepOn(position)->value; }
    TYPE& GetPrev(POSITION& position) { return StepBack(position)->value; }
    const TYPE& GetPrev(POSITION& position) const { return StepBack(position)->value; }

    /// The element at the position. Throws std::invalid_argument for null.
    TYPE& GetAt(POSITION position) { return NodeAt(position)->value; }
    const TYPE& GetAt(POSITION position) const { return NodeAt(position)->value; }
    void SetAt(POSITION position, ARG_TYPE element) { GetAt(position) = std::forward<ARG_TYPE>(element); }

    /// The first equal element behind `after`, or from the head where that is null; null for none.
    POSITION Find(ARG_TYPE element, POSITION after = nullptr) const {
        POSITION position = GetHeadPosition();
        if (after != nullptr) StepOn(position = after);
        while (position != nullptr && !(GetAt(position) == element)) StepOn(position);
        return position;
    }

    /// The position of the element with this number from 0; null outside the list.
    POSITION FindIndex(int index) const {
        if (index < 0 || index >= GetCount()) return nullptr;
        return &*std::next(m_Nodes.begin(), index);
    }

    /// For `for (auto& element : list)`.
    iterator begin() { return iterator(m_Nodes.begin()); }
    iterator end() { return iterator(m_Nodes.end()); }
    const_iterator begin() const { return const_iterator(m_Nodes.begin()); }
    const_iterator end() const { return const_iterator(m_Nodes.end()); }

 private:
    using Place = typename Nodes::iterator;

    static Place NodeAt(POSITION position) {
        if (position == nullptr) throw std::invalid_argument("CList: no element at this position");
        return static_cast<const Node*>(position)->self;
    }

    Place StepOn(POSITION& position) const {
        const Place node = NodeAt(position);
        position = std::next(node) == m_Nodes.end() ? nullptr : &*std::next(node);
        return node;
    }

    Place StepBack(POSITION& position) const {
        const Place node = NodeAt(position);
        position = node == m_Nodes.begin() ? nullptr : &*std::prev(node);
        return node;
    }

    POSITION Put(Place before, ARG_TYPE element) {
        const Place node = m_Nodes.emplace(before, std::forward<ARG_TYPE>(element));
        node->self = node;
        return &*node;
    }

    TYPE Take(Place node) {
        TYPE element = std::move(node->value);
        m_Nodes.erase(node);
        return element;
    }

    Nodes m_Nodes;
};
