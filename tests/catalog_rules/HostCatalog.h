// What these tests need of a host beyond the common concrete classes.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "tests/catalog/Concrete.h"

namespace rules {

/// A database that counts how often its selection is refreshed, and how often it was selected behind that.
class HostDatabase final : public CQZDatabaseInfo {
 public:
    using CQZDatabaseInfo::CQZDatabaseInfo;

    HostDatabase* Clone(int selectedOnly) const override { return new HostDatabase(*this, selectedOnly); }
    void RefreshSelection() override {
        CQZDatabaseInfo::RefreshSelection();
        ++m_Refreshes;
        if (GetSelected() != 0) ++m_RefreshesSelected;
    }
    int GetRefreshes() const { return m_Refreshes; }
    int GetRefreshesSelected() const { return m_RefreshesSelected; }

 private:
    int m_Refreshes = 0;
    int m_RefreshesSelected = 0;
};

/// Answers reads from one set of keys, whatever section is open, and has no subsections.
class LooseKeys final : public QZSettingsStore {
 public:
    LooseKeys(const std::map<std::string, int>& keys, CString srcName) : m_Keys(keys), m_SrcName(std::move(srcName)) {}

    CList<CString> GetSubSections() override { return CList<CString>(); }
    int SectionExists(const CString&) override { return 0; }
    int OpenSection(const CString&, int) override { return 1; }
    void CloseSection() override {}
    int ReadInt(const CString& key, int defaultValue) override {
        const auto found = m_Keys.find(key.ToUtf8());
        return found != m_Keys.end() ? found->second : defaultValue;
    }
    CString ReadString(const CString& key, const CString& defaultValue, int) override {
        if (key == u"SrcName") return m_SrcName;
        const auto found = m_Keys.find(key.ToUtf8());
        return found != m_Keys.end() ? CString::FromInt(found->second) : defaultValue;
    }
    void WriteInt(const CString&, int) override {}
    void WriteString(const CString&, const CString&, int) override {}

 private:
    const std::map<std::string, int>& m_Keys;
    CString m_SrcName;
};

}  // namespace rules
