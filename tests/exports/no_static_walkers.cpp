// Stands in for host/static_walkers.cpp where qzsql knows the shared library only.
#include "host/static_walkers.h"

namespace qzsql {

StaticWalker FindStaticWalker(DBTypes /*kind*/) { return nullptr; }

}  // namespace qzsql
