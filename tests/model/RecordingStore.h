// A settings store in memory that notes every call.
#pragma once

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/catalog/QZSettingsStore.h"

/// Sections keep the order of their creation. A section that is missing and not to be created answers with defaults and
/// swallows what is written.
class RecordingStore final : public QZSettingsStore {
 public:
    virtual ~RecordingStore() = default;

    struct Section {
        std::map<CString, int> ints;
        std::map<CString, CString> texts;
        std::vector<std::pair<CString, std::unique_ptr<Section>>> subsections;

        /// Null for none.
        Section* Find(const CString& name) const {
            for (const auto& [key, section] : subsections) {
                if (key == name) return section.get();
            }
            return nullptr;
        }

        /// Made where it is missing.
        Section& operator[](const CString& name) {
            if (Section* section = Find(name)) return *section;
            subsections.emplace_back(name, std::make_unique<Section>());
            return *subsections.back().second;
        }
    };

    CList<CString> GetSubSections() override {
        Note("sections");
        CList<CString> names;
        for (const auto& [name, section] : Open().subsections) names.AddTail(name);
        return names;
    }
    int SectionExists(const CString& name) override {
        Note("exists " + name.ToUtf8());
        return Open().Find(name) != nullptr ? 1 : 0;
    }
    int OpenSection(const CString& name, int create) override {
        Note("open " + name.ToUtf8() + " " + std::to_string(create));
        m_Open.push_back(create != 0 ? &Open()[name] : Open().Find(name));
        if (m_Open.back() == nullptr) m_Open.back() = m_Missing.emplace_back(std::make_unique<Section>()).get();
        return 1;
    }
    void CloseSection() override {
        Note("close");
        if (m_Open.size() < 2) std::terminate();  // closed once too often
        m_Open.pop_back();
    }
    int ReadInt(const CString& key, int defaultValue) override {
        Note("int " + key.ToUtf8() + " " + std::to_string(defaultValue));
        const auto found = Open().ints.find(key);
        return found == Open().ints.end() ? defaultValue : found->second;
    }
    CString ReadString(const CString& key, const CString& defaultValue, int reserved) override {
        Note("text " + key.ToUtf8() + " \"" + defaultValue.ToUtf8() + "\" " + std::to_string(reserved));
        const auto found = Open().texts.find(key);
        return found == Open().texts.end() ? defaultValue : found->second;
    }
    void WriteInt(const CString& key, int value) override {
        Note("int " + key.ToUtf8() + " = " + std::to_string(value));
        Open().ints[key] = value;
    }
    void WriteString(const CString& key, const CString& value, int reserved) override {
        Note("text " + key.ToUtf8() + " = \"" + value.ToUtf8() + "\" " + std::to_string(reserved));
        Open().texts[key] = value;
    }

    Section& Root() { return *m_Root; }
    /// How many sections are open.
    std::size_t Depth() const { return m_Open.size() - 1; }

    /// Reads as `int KEY DEFAULT` and `text KEY "DEFAULT" RESERVED`, writes as `int KEY = VALUE` and
    /// `text KEY = "VALUE" RESERVED`, sections as `open NAME CREATE`, `close`, `sections` and `exists NAME`.
    std::vector<std::string> calls;

 private:
    Section& Open() { return *m_Open.back(); }
    void Note(std::string call) { calls.push_back(std::move(call)); }

    std::unique_ptr<Section> m_Root = std::make_unique<Section>();
    std::vector<std::unique_ptr<Section>> m_Missing;
    std::vector<Section*> m_Open = {m_Root.get()};
};
