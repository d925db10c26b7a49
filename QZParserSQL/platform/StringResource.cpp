#include "QZParserSQL/platform/StringResource.h"

#include <mutex>

namespace {

struct Loader {
    QZStringLoader function;
    void* context;
};

bool LoadNothing(void*, unsigned, CString&) { return false; }

std::mutex loaderLock;
Loader loader{LoadNothing, nullptr};

Loader CurrentLoader() {
    const std::lock_guard lock(loaderLock);
    return loader;
}

}  // namespace

void QZSetStringLoader(QZStringLoader function, void* context) {
    const std::lock_guard lock(loaderLock);
    loader = {function == nullptr ? LoadNothing : function, context};
}

CString QZLoadString(unsigned id, const CString& otherwise) {
    const Loader current = CurrentLoader();
    CString text;
    return current.function(current.context, id, text) ? text : otherwise;
}
