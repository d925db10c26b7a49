#include "QZParserSQL/model/QZSharedItem.h"

#include "QZParserSQL/model/Copier.h"
#include "QZParserSQL/model/Dispose.h"
#include "QZParserSQL/model/SelectItem.h"

namespace {

std::shared_ptr<SelectItem> Owned(SelectItem* item) {
    if (item == nullptr) return nullptr;
    return {item, [](SelectItem* disposed) { qz::Dispose(disposed); }};
}

}  // namespace

QZSharedItem::QZSharedItem(SelectItem* pItem) : m_pItem(Owned(pItem)) {}

QZSharedItem::QZSharedItem(const QZSharedItem& other) : m_pItem(other.m_pItem), m_bCopy(m_pItem != nullptr) {}

QZSharedItem& QZSharedItem::operator=(const QZSharedItem& other) {
    if (this == &other) return *this;
    m_pItem = other.m_pItem;
    m_bCopy = m_pItem != nullptr;
    return *this;
}

void QZSharedItem::ShareAs(const QZSharedItem& other) {
    m_pItem = other.m_pItem;
    m_bCopy = other.m_bCopy;
}

SelectItem* QZSharedItem::Get() {
    if (m_bCopy) {
        m_pItem = Owned(m_pItem->Clone());
        m_bCopy = false;
    } else if (m_pItem.use_count() > 1) {
        m_pItem = Owned(qz::CloneExactly(*m_pItem));
    }
    // What another copy read, it has read before it let go: counting down sees that, asking for the count does not.
    std::shared_ptr<SelectItem>(m_pItem).reset();
    return m_pItem.get();
}
