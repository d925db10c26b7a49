// Random catalogs and random calls of the setters, on the library's classes and on the plain model. After each call all
// fields and getters of all objects must agree. A sequence that fails is told as the shortest list of calls found.
//
// QZ_RULE_SEQUENCES and QZ_RULE_SEED in the environment give the number of sequences and the first one's seed.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/catalog_rules/Twins.h"

namespace {

using rules::Twins;

using Calls = std::vector<std::string>;

class Generator {
 public:
    explicit Generator(unsigned seed) : m_Random(seed) {}

    Calls Generate() {
        AddCatalog("db", "t");
        AddCatalog("other", "u");
        for (int count = 1 + Below(60); count > 0; --count) AddSetter();
        return m_Calls;
    }

 private:
    int Below(int limit) { return static_cast<int>(m_Random() % static_cast<unsigned>(limit)); }

    template <class Array>
    std::string OneOf(const Array& array) {
        return array[static_cast<std::size_t>(Below(static_cast<int>(std::size(array))))];
    }

    std::string Flag() {
        static const char* const kValues[] = {"0", "0", "0", "0", "1", "1", "1", "1", "2", "-1"};
        return OneOf(kValues);
    }

    std::string PlainFlag() {
        static const char* const kValues[] = {"0", "1", "2"};
        return OneOf(kValues);
    }

    void Call(const std::string& object, const std::string& operation, const std::string& argument) {
        m_Calls.push_back(object + "." + operation + "(" + argument + ")");
    }

    /// A few names only, so that many objects have a twin in the other catalog, and some have two.
    std::string SrcName() {
        static const char* const kNames[] = {"a", "A", "b", "B", "c", "d", "ab"};
        return OneOf(kNames);
    }

    void AddCatalog(const std::string& catalog, const std::string& prefix) {
        for (int count = Below(3); count > 0; --count) Load(catalog, Twins::CatalogFields());
        for (int i = 0, count = Below(5); i < count; ++i) AddTable(catalog, prefix + std::to_string(i));
        for (int i = 0, count = Below(3); i < count; ++i) AddQuery(catalog, "q" + prefix + std::to_string(i));
    }

    void Load(const std::string& object, const std::vector<std::string>& keys) {
        std::string values;
        for (const std::string& key : keys) {
            if (Below(2) == 0) values += (values.empty() ? "" : " ") + key + "=" + PlainFlag();
        }
        Call(object, "Load", values);
    }

    void AddTable(const std::string& catalog, const std::string& name) {
        m_Tables.push_back(name);
        Call(catalog, "AddTable", name + " " + SrcName());
        for (int count = Below(3); count > 0; --count) Load(name, Twins::TableFields());
        if (Below(3) == 0) Call(name, "ChildrenTell", "1");
        for (const char* list : {"f", "i", "k"}) AddChildren(name, list);
    }

    void AddChildren(const std::string& table, const std::string& list) {
        for (int i = 0, count = Below(4); i < count; ++i) {
            const std::string name = list + std::to_string(i);
            m_Selectables.push_back(table + "." + name);
            Call(table, "Add", name + " " + SrcName());
        }
    }

    void AddQuery(const std::string& catalog, const std::string& name) {
        m_Selectables.push_back(name);
        Call(catalog, "AddQuery", name + " " + SrcName());
        if (Below(2) == 0) Call(name, "SetName", SrcName());
    }

    void AddSetter() {
        const int kind = Below(20);
        if (kind < 3 || m_Tables.empty()) {
            CallCatalog();
        } else if (kind < 6 && !m_Selectables.empty()) {
            Call(OneOf(m_Selectables), "SetSelected", Flag());
        } else {
            CallTable();
        }
    }

    void CallCatalog() {
        static const char* const kRules[] = {"SetSelected", "RefreshSelection", "SetOverwriteDatabase",
                                             "SetOverwriteTables", "SetAutoStructureUpdate"};
        const bool first = Below(3) != 0;
        const std::string catalog = first ? "db" : "other";
        const int kind = Below(10);
        if (kind < 7) {
            Call(catalog, OneOf(kRules), Flag());
        } else if (kind < 8) {
            Call(catalog, "Set" + OneOf(Twins::CatalogFields()), PlainFlag());
        } else {
            Call(catalog, "ApplyOptions", first ? "other" : "db");
        }
    }

    void CallTable() {
        static const char* const kCatalogs[] = {"none", "db", "db", "other"};
        const std::string table = OneOf(m_Tables);
        const int kind = Below(30);
        if (kind == 0) {
            Call(table, "SetDatabase", OneOf(kCatalogs));
        } else if (kind == 1) {
            Call(table, "CopyTable", OneOf(m_Tables));
        } else if (kind < 5) {
            Call(table, "RefreshSelection", Flag());
        } else {
            Call(table, "Set" + OneOf(Twins::TableFields()), Flag());
        }
    }

    std::mt19937 m_Random;
    Calls m_Calls;
    Calls m_Tables;
    Calls m_Selectables;
};

/// The first field or getter that differs behind one of the calls, with the call; empty if none does.
std::string Difference(const Calls& calls) {
    Twins twins;
    for (const std::string& call : calls) {
        twins.Apply(call);
        for (const Twins::Value& value : twins.Values()) {
            if (value.library == value.model) continue;
            return "after " + call + ": " + value.Name() + " is " + std::to_string(value.library) +
                   " in the library, " + std::to_string(value.model) + " in the model";
        }
    }
    return "";
}

/// Drops calls, many at once and then one by one, as long as the rest still fails.
Calls Shrink(Calls calls) {
    for (std::size_t size = calls.size() / 2 + 1; size > 0;) {
        bool dropped = false;
        for (std::size_t from = 0; from < calls.size();) {
            Calls fewer(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(from));
            for (std::size_t i = from + size; i < calls.size(); ++i) fewer.push_back(calls[i]);
            if (Difference(fewer).empty()) {
                from += size;
            } else {
                calls = fewer;
                dropped = true;
            }
        }
        if (!dropped) size /= 2;
    }
    return calls;
}

std::string Lines(const Calls& calls) {
    std::string lines;
    for (const std::string& call : calls) lines += "    " + call + "\n";
    return lines;
}

unsigned FromEnvironment(const char* name, unsigned otherwise) {
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::stoul(text)) : otherwise;
}

TEST(SetterRules, RandomSequencesAgreeWithTheModel) {
    const unsigned count = FromEnvironment("QZ_RULE_SEQUENCES", 20000);
    const unsigned first = FromEnvironment("QZ_RULE_SEED", 1);
    std::cout << count << " sequences from seed " << first << "\n";
    for (unsigned i = 0; i < count; ++i) {
        const Calls calls = Generator(first + i).Generate();
        if (Difference(calls).empty()) continue;
        const Calls shortest = Shrink(calls);
        FAIL() << "seed " << first + i << ", " << Difference(shortest) << "\n" << Lines(shortest);
    }
}

}  // namespace
