#include "QZParserSQL/platform/MessageBox.h"

#include <mutex>

namespace {

struct Box {
    QZMessageBoxHandler handler;
    void* context;
};

int ShowNothing(void*, HWND, const CString&, const CString&, unsigned) { return 0; }

std::mutex boxLock;
Box box{ShowNothing, nullptr};

Box CurrentBox() {
    const std::lock_guard lock(boxLock);
    return box;
}

}  // namespace

void QZSetMessageBox(QZMessageBoxHandler handler, void* context) {
    const std::lock_guard lock(boxLock);
    box = {handler == nullptr ? ShowNothing : handler, context};
}

// The lock is not held while the box is open: that can last, and other threads have boxes too.
int MessageBoxW(HWND owner, const CString& text, const CString& caption, unsigned type) {
    const Box current = CurrentBox();
    return current.handler(current.context, owner, text, caption, type);
}
