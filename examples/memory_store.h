// A store of a host's own: sections and keys in memory. A host that keeps catalogs puts a file or a database behind the
// same interface.
#pragma once

#include <QZParserSQL/catalog/QZSettingsStore.h>

#include <list>
#include <map>
#include <string>
#include <utility>
#include <vector>

class MemoryStore final : public QZSettingsStore {
 public:
    CList<CString> GetSubSections() override {
        CList<CString> names;
        for (const auto& section : Open().sections) names.AddTail(section.name);
        return names;
    }

    int SectionExists(const CString& name) override { return Open().Find(name) != nullptr ? 1 : 0; }

    /// A section that is missing and not to be made reads as an empty one and swallows what is written.
    int OpenSection(const CString& name, int create) override {
        Section* section = Open().Find(name);
        if (section == nullptr && create != 0) section = &Open().sections.emplace_back(name);
        swallowing_.emplace_back();
        open_.push_back(section != nullptr ? section : &swallowing_.back());
        return section != nullptr ? 1 : 0;
    }

    void CloseSection() override {
        open_.pop_back();
        swallowing_.pop_back();
    }

    int ReadInt(const CString& key, int defaultValue) override { return Read(Open().numbers, key, defaultValue); }
    CString ReadString(const CString& key, const CString& defaultValue, int /*reserved*/) override {
        return Read(Open().texts, key, defaultValue);
    }
    void WriteInt(const CString& key, int value) override { Open().numbers[key] = value; }
    void WriteString(const CString& key, const CString& value, int /*reserved*/) override { Open().texts[key] = value; }

 private:
    struct Section {
        Section() = default;
        explicit Section(CString sectionName) : name(std::move(sectionName)) {}

        Section* Find(const CString& wanted) {
            for (auto& section : sections) {
                if (section.name == wanted) return &section;
            }
            return nullptr;
        }

        CString name;
        std::list<Section> sections;  // in the order in which they were made: objects are loaded in this order
        std::map<CString, int> numbers;
        std::map<CString, CString> texts;
    };

    Section& Open() { return open_.empty() ? root_ : *open_.back(); }

    template <class Value>
    static Value Read(const std::map<CString, Value>& values, const CString& key, const Value& defaultValue) {
        const auto found = values.find(key);
        return found != values.end() ? found->second : defaultValue;
    }

    Section root_;
    std::list<Section> swallowing_;
    std::vector<Section*> open_;
};
