// A settings store in memory that notes every call.
#pragma once

#include <gtest/gtest.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "QZParserSQL/catalog/QZSettingsStore.h"

/// What a section of a memory store holds. Tests write stores by hand with it: `store.root["Common"].texts["Name"]`.
struct MemorySection {
    MemorySection* Find(const std::string& name) {
        for (auto& section : sections) {
            if (section.first == name) return &section.second;
        }
        return nullptr;
    }

    MemorySection& operator[](const std::string& name) {
        if (MemorySection* found = Find(name)) return *found;
        sections.emplace_back(name, MemorySection());
        return sections.back().second;
    }

    std::list<std::pair<std::string, MemorySection>> sections;  ///< in the order in which they were made
    std::map<std::string, int> numbers;
    std::map<std::string, CString> texts;
};

/// Sections that are missing and were not to be made read as empty ones and swallow what is written.
class MemoryStore : public QZSettingsStore {
 public:
    virtual ~MemoryStore() = default;

    CList<CString> GetSubSections() override {
        CList<CString> names;
        for (const auto& section : Open().sections) names.AddTail(CString::FromUtf8(section.first));
        return names;
    }
    int SectionExists(const CString& name) override {
        log.push_back("exists " + name.ToUtf8());
        return Open().Find(name.ToUtf8()) != nullptr ? 1 : 0;
    }
    int OpenSection(const CString& name, int create) override {
        log.push_back("open " + name.ToUtf8() + " " + std::to_string(create));
        MemorySection* section = create != 0 ? &Open()[name.ToUtf8()] : Open().Find(name.ToUtf8());
        m_Swallowed.emplace_back();
        m_Open.push_back(section != nullptr ? section : &m_Swallowed.back());
        return section != nullptr ? 1 : 0;
    }
    void CloseSection() override {
        log.push_back("close");
        ASSERT_GT(m_Open.size(), 1U);
        m_Open.pop_back();
        m_Swallowed.pop_back();
    }
    int ReadInt(const CString& key, int defaultValue) override {
        log.push_back(key.ToUtf8() + "? " + std::to_string(defaultValue));
        if (key == throwsAt) throw std::string("unreadable");
        const auto found = Open().numbers.find(key.ToUtf8());
        return found != Open().numbers.end() ? found->second : defaultValue;
    }
    CString ReadString(const CString& key, const CString& defaultValue, int reserved) override {
        EXPECT_EQ(reserved, 0);
        log.push_back(key.ToUtf8() + "? '" + defaultValue.ToUtf8() + "'");
        const auto found = Open().texts.find(key.ToUtf8());
        return found != Open().texts.end() ? found->second : defaultValue;
    }
    void WriteInt(const CString& key, int value) override {
        log.push_back(key.ToUtf8() + "=" + std::to_string(value));
        Open().numbers[key.ToUtf8()] = value;
    }
    void WriteString(const CString& key, const CString& value, int reserved) override {
        EXPECT_EQ(reserved, 0);
        log.push_back(key.ToUtf8() + "='" + value.ToUtf8() + "'");
        Open().texts[key.ToUtf8()] = value;
    }

    /// How many sections are open.
    std::size_t Depth() const { return m_Open.size() - 1; }

    MemorySection root;
    std::vector<std::string> log;
    CString throwsAt;  ///< reading this number throws

 private:
    MemorySection& Open() { return *m_Open.back(); }

    std::vector<MemorySection*> m_Open{&root};
    std::list<MemorySection> m_Swallowed;  ///< what goes to sections that are not there
};

using Log = std::vector<std::string>;

/// The calls of the log from the first one that reads so.
inline Log From(const Log& log, const std::string& first) {
    auto call = log.begin();
    while (call != log.end() && *call != first) ++call;
    return Log(call, log.end());
}

/// The calls behind the `count`th "close": what a derived class adds behind the two sections of the base.
inline Log BehindClose(const Log& log, int count) {
    auto call = log.begin();
    while (call != log.end() && count > 0) {
        if (*call++ == "close") --count;
    }
    return Log(call, log.end());
}
