// Whether memory is there for those who don't look at what they get.
#pragma once

#include <cstddef>

namespace qz {

/// True where the process could take `bytes` more just now.
bool HasHeadroom(std::size_t bytes);

}  // namespace qz
