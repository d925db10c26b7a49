// Where a tree declares aliases and names tables, read once, so that the scan of a SELECT within it costs what it
// finds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "QZParserSQL/platform/CString.h"

class CQZSQLTree;

class NameIndex {
 public:
    struct Name {
        CQZSQLTree* node;
        CString text;
        /// A name of a database stands before it.
        bool behindDatabase;
        /// How many names stand before the next earlier one of the same key, that one included; 0 for none.
        std::size_t earlier;
    };

    /// Names in the order of the text.
    class Names {
     public:
        void Add(CQZSQLTree& node, const CString& text, const CString& key, bool behindDatabase);
        std::size_t GetCount() const { return m_Names.size(); }

        /// Calls visit(name) for the first of each key among those with the numbers from `first` to before `last`.
        template <class Visit>
        void ForEachFirst(std::size_t first, std::size_t last, Visit visit) const {
            for (std::size_t number = first; number < last;) {
                const std::size_t others = OthersFrom(number, first);
                if (others == 0) visit(m_Names[number]);
                number += std::max<std::size_t>(others, 1);
            }
        }

     private:
        /// How many names from this one on are surely no first ones of their keys behind `first`; 0 for one that is.
        std::size_t OthersFrom(std::size_t number, std::size_t first) const;

        std::vector<Name> m_Names;
        /// The least `earlier` in each block of 2, 4, 8, ... names.
        std::vector<std::vector<std::size_t>> m_Least;
        std::unordered_map<CString, std::size_t> m_Latest;
    };

    /// The names below one SELECT.
    struct Range {
        std::size_t firstAlias = 0;
        std::size_t lastAlias = 0;
        std::size_t firstTable = 0;
        std::size_t lastTable = 0;
    };

    Names aliases;
    Names tables;
    std::unordered_map<const CQZSQLTree*, Range> ranges;
};
