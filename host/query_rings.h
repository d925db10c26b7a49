// Queries that read each other in a ring: whoever follows their sources would never come to an end.
#pragma once

#include <cstddef>
#include <vector>

namespace qzsql {

/// For each query the numbers of the queries that it reads.
using Readings = std::vector<std::vector<std::size_t>>;

struct Rings {
    /// Each in the order of reading; no query is in two of them, so that of rings that touch one is told.
    std::vector<std::vector<std::size_t>> rings;
    /// Whether a query reads, itself or by way of others, queries of a ring. Those in a ring do.
    std::vector<bool> leadsToRing;
    /// All queries, each behind those that it reads, as far as no ring is in the way.
    std::vector<std::size_t> sourcesFirst;
};

Rings FindRings(const Readings& readings);

}  // namespace qzsql
