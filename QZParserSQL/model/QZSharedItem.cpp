#include "QZParserSQL/model/QZSharedItem.h"

#include <atomic>

#include "QZParserSQL/model/Dispose.h"
#include "QZParserSQL/model/SelectItem.h"

namespace {

std::shared_ptr<SelectItem> Owned(SelectItem* item) {
    if (item == nullptr) return nullptr;
    return {item, [](SelectItem* disposed) { qz::Dispose(disposed); }};
}

}  // namespace

QZSharedItem::QZSharedItem(SelectItem* pItem) : m_pItem(Owned(pItem)) {}

SelectItem* QZSharedItem::Get() {
    if (m_pItem.use_count() > 1) m_pItem = Owned(m_pItem->Clone());
    std::atomic_thread_fence(std::memory_order_acquire);  // what another copy read, it has read before it let go
    return m_pItem.get();
}
