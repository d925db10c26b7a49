#include "QZParserSQL/dialect/NameIndex.h"

void NameIndex::Names::Add(CQZSQLTree& node, const CString& text, const CString& key, bool behindDatabase) {
    std::size_t& latest = m_Latest[key];
    m_Names.push_back({&node, text, behindDatabase, latest});
    for (std::size_t level = 0, block = (m_Names.size() - 1) / 2;; ++level, block /= 2) {
        if (level == m_Least.size()) m_Least.emplace_back(1, 0);  // the very first name has no earlier one
        std::vector<std::size_t>& least = m_Least[level];
        if (block == least.size()) least.push_back(latest);
        least[block] = std::min(least[block], latest);
        if (block == 0) break;
    }
    latest = m_Names.size();
}

std::size_t NameIndex::Names::OthersFrom(std::size_t number, std::size_t first) const {
    if (m_Names[number].earlier <= first) return 0;
    std::size_t size = 1;
    for (const std::vector<std::size_t>& least : m_Least) {
        if (number % (2 * size) != 0 || least[number / (2 * size)] <= first) break;
        size *= 2;
    }
    return size;
}
