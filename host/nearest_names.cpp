#include "host/nearest_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace qzsql {

namespace {

constexpr std::size_t kMostNames = 3;

/// How many characters have to be changed, added or removed.
std::size_t Distance(std::u16string_view left, std::u16string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < right.size(); ++j) {
            const auto changed = diagonal + (left[i] == right[j] ? 0U : 1U);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::vector<CString> NearestNames(const CString& name, const std::vector<CString>& names) {
    const CString wanted = CString(name).MakeLower();
    const auto length = wanted.View().size();
    const auto farthest = std::max<std::size_t>(1, length / 3);
    std::vector<std::pair<std::size_t, CString>> near;
    for (const auto& known : names) {
        const CString lower = CString(known).MakeLower();
        const auto other = lower.View().size();
        if (std::max(length, other) - std::min(length, other) > farthest) continue;
        const auto distance = Distance(wanted, lower);
        if (distance <= farthest) near.emplace_back(distance, known);
    }
    std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<CString> nearest;
    for (std::size_t i = 0; i < std::min(near.size(), kMostNames); ++i) nearest.push_back(near[i].second);
    return nearest;
}

std::string UnknownName(std::string_view what, const CString& name, const std::vector<CString>& names) {
    std::string nearest;
    for (const auto& near : NearestNames(name, names)) {
        nearest.append(nearest.empty() ? " Did you mean " : " or ").append(near.ToUtf8());
    }
    return fmt::format("unknown {} '{}'.{}{}", what, name.ToUtf8(), nearest, nearest.empty() ? "" : "?");
}

}  // namespace qzsql
