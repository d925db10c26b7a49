// Sole ownership of the catalog's objects.
#pragma once

#include <memory>
#include <type_traits>

/// Ends an object in the way that its class offers: by its virtual destructor, or else by its Destroy.
struct QZDisposer {
    /// Ends the object; null is not handed in.
    template <class Object>
    void operator()(Object* pObject) const {
        if constexpr (std::has_virtual_destructor_v<Object>) {
            delete pObject;
        } else {
            pObject->Destroy();
        }
    }
};

/// Owns an object of the catalog.
template <class Object>
using QZOwned = std::unique_ptr<Object, QZDisposer>;
