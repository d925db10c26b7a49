// Deep structures are deleted without recursion, so that nesting costs memory and no stack.
#pragma once

namespace qz {

/// Deletes an object at once or, when called from within another such deletion on the same thread, as soon as that one
/// is done. The objects go in the same order as by recursion. `destroy` must not throw.
void Dispose(void* object, void (*destroy)(void* object)) noexcept;

/// For destructors: deletes an object that they own, null included.
template <class T>
void Dispose(T* object) noexcept {
    if (object != nullptr) Dispose(object, [](void* disposed) { delete static_cast<T*>(disposed); });
}

}  // namespace qz
