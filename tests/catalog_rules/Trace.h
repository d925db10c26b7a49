// Calls on the library's classes and on the plain model, with all that each call changes told beforehand.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/catalog_rules/Twins.h"

enum class ChildrenTell { kNo, kYes };

class Trace {
 public:
    explicit Trace(ChildrenTell tell = ChildrenTell::kNo) : m_Tell(tell) {}

    /// Gives "db" a table of this name with the children f0, i0, k0, ... told.
    void Table(const std::string& name, const std::string& children) { Add("db", name, children, name); }
    void OtherTable(const std::string& name, const std::string& children, const std::string& srcName) {
        Add("other", name, children, srcName);
    }

    /// Gives a catalog a query of this name.
    void Query(const std::string& catalog, const std::string& name, const std::string& srcName) {
        m_Twins.Apply(catalog + ".AddQuery(" + name + " " + srcName + ")");
    }

    /// Makes the call. Changes are told as "q0=0 t0: CopyData=0 f0=0 db: Selected=0"; nothing else may change.
    void Step(const std::string& call, const std::string& changes) {
        const Values before = m_Twins.Values();
        m_Twins.Apply(call);
        const Values after = m_Twins.Values();
        const std::set<std::string> expected = Parse(changes);
        EXPECT_EQ(Changes(before, after, &Value::library), expected) << "library, " << call;
        EXPECT_EQ(Changes(before, after, &Value::model), expected) << "model, " << call;
    }

 private:
    using Value = rules::Twins::Value;
    using Values = std::vector<Value>;

    void Add(const std::string& catalog, const std::string& table, const std::string& children,
             const std::string& srcName) {
        m_Twins.Apply(catalog + ".AddTable(" + table + " " + srcName + ")");
        if (m_Tell == ChildrenTell::kYes) m_Twins.Apply(table + ".ChildrenTell(1)");
        std::istringstream words(children);
        for (std::string child; words >> child;) m_Twins.Apply(table + ".Add(" + child + " " + child + ")");
    }

    static std::set<std::string> Parse(const std::string& changes) {
        std::set<std::string> parsed;
        std::istringstream words(changes);
        std::string object;
        for (std::string word; words >> word;) {
            if (word.back() == ':') {
                object = word.substr(0, word.size() - 1);
            } else {
                parsed.insert(object.empty() ? word : object + "." + word);
            }
        }
        return parsed;
    }

    static std::set<std::string> Changes(const Values& before, const Values& after, int Value::*world) {
        std::set<std::string> changes;
        for (std::size_t i = 0; i < after.size(); ++i) {
            const int value = after[i].*world;
            const bool counter = std::string(after[i].field).find("Refreshes") == 0;
            if (before[i].*world != value && !counter) changes.insert(after[i].Name() + "=" + std::to_string(value));
        }
        return changes;
    }

    ChildrenTell m_Tell;
    rules::Twins m_Twins;
};
