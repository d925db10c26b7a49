// An item that copies share until one of them wants it for itself.
#pragma once

#include <memory>

#include "QZParserSQL/platform/Export.h"

class SelectItem;

/// Behaves like a pointer that owns its item and clones it when copied; but the clone is made only when somebody takes
/// hold of the item through one of them, which Peek does not. Nested queries carry the aliases of the queries around
/// them, and few are ever touched. Copies may be used by different threads, one thread at a time each.
class QZ_API QZSharedItem {
 public:
    QZSharedItem() = default;
    /// Takes the item over; it may be null.
    QZSharedItem(SelectItem* pItem);  // NOLINT(google-explicit-constructor)
    /// A copy shares the item until somebody takes hold of it; a move leaves nothing behind.
    QZSharedItem(const QZSharedItem& other);
    QZSharedItem(QZSharedItem&&) noexcept = default;
    QZSharedItem& operator=(const QZSharedItem& other);
    QZSharedItem& operator=(QZSharedItem&&) noexcept = default;
    ~QZSharedItem() = default;

    /// The item for reading, shared as it may be; null without one.
    const SelectItem* Peek() const { return m_pItem.get(); }
    /// The item of this copy alone; null without one. It stays this object's own.
    SelectItem* Get();

    /// Whether this is a copy that nobody took hold of: Peek shows the original, in which nested queries have the query
    /// kind that a clone has not.
    bool IsCopy() const { return m_bCopy; }
    /// Takes the other's item as the other has it, and not as a copy of it.
    void ShareAs(const QZSharedItem& other);

    /// Like Get.
    operator SelectItem*() { return Get(); }  // NOLINT(google-explicit-constructor)
    SelectItem* operator->() { return Get(); }

    /// Whether both have the same item in common for now.
    bool IsSharedWith(const QZSharedItem& other) const { return m_pItem != nullptr && m_pItem == other.m_pItem; }

 private:
    std::shared_ptr<SelectItem> m_pItem;
    bool m_bCopy = false;
};
