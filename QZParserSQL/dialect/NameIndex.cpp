#include "QZParserSQL/dialect/NameIndex.h"

void NameIndex::Names::Add(CQZSQLTree& node, const CString& text, const CString& key, bool behindDatabase) {
    std::size_t& latest = m_Latest[key];
    m_Names.push_back({&node, text, behindDatabase, latest});
    latest = m_Names.size();
}
