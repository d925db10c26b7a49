// Maps keyed by text that are walked in the order in which the keys were first set, the same on every run.
#pragma once

#include <string_view>
#include <unordered_map>
#include <utility>

#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CString.h"

/// What the maps have in common. Keys are compared unit by unit, case included. Setting a key anew keeps its place in
/// the walk; removing it gives the place up. Values are copied with the map: copied pointers point to the same objects,
/// and no map owns what its pointers point to. Not safe for concurrent use.
template <class VALUE>
class QZStringMap {
 public:
    /// A key and its value, as a walk shows them.
    struct Entry {
        CString key;  ///< not to be changed
        VALUE value;  ///< the key's
    };

    /// The block size is a hint that needs no heeding: entries are allotted one by one.
    explicit QZStringMap(int /*blockSize*/ = 10) {}
    /// Copies the entries in their order.
    QZStringMap(const QZStringMap& other) {
        for (const Entry& entry : other) SetAt(entry.key, entry.value);
    }
    /// Moves the entries.
    QZStringMap(QZStringMap&&) noexcept = default;
    /// Takes the other's entries.
    QZStringMap& operator=(QZStringMap other) {
        std::swap(m_Entries, other.m_Entries);
        std::swap(m_Positions, other.m_Positions);
        return *this;
    }

    /// How many entries there are.
    int GetCount() const { return m_Entries.GetCount(); }
    bool IsEmpty() const { return m_Entries.IsEmpty(); }

    /// Copies the key's value to `value`. Returns whether there is one; if not, `value` stays.
    bool Lookup(std::u16string_view key, VALUE& value) const {
        const auto found = m_Positions.find(key);
        if (found == m_Positions.end()) return false;
        value = m_Entries.GetAt(found->second).value;
        return true;
    }

    /// Sets the key's value, in a new entry at the end where there is none.
    void SetAt(std::u16string_view key, VALUE value) { (*this)[key] = std::move(value); }

    /// The key's value, which is made from nothing (null, an empty text) where there is none.
    VALUE& operator[](std::u16string_view key) {
        const auto found = m_Positions.find(key);
        return m_Entries.GetAt(found == m_Positions.end() ? Add(key) : found->second).value;
    }

    /// Returns whether there was such a key.
    bool RemoveKey(std::u16string_view key) {
        const auto found = m_Positions.find(key);
        if (found == m_Positions.end()) return false;
        const POSITION position = found->second;
        m_Positions.erase(found);
        m_Entries.RemoveAt(position);
        return true;
    }

    /// Removes all entries.
    void RemoveAll() {
        m_Positions.clear();
        m_Entries.RemoveAll();
    }

    /// Where a walk begins; null for an empty map.
    POSITION GetStartPosition() const { return m_Entries.GetHeadPosition(); }

    /// Copies the entry at the position, which moves on: null behind the last. The entry may be removed afterwards and
    /// the walk goes on. A null position throws std::invalid_argument.
    void GetNextAssoc(POSITION& position, CString& key, VALUE& value) const {
        const Entry& entry = m_Entries.GetNext(position);
        key = entry.key;
        value = entry.value;
    }

    /// For `for (const auto& [key, value] : map)`.
    auto begin() const { return m_Entries.begin(); }
    auto end() const { return m_Entries.end(); }

 private:
    POSITION Add(std::u16string_view key) {
        const POSITION position = m_Entries.AddTail(Entry{key, VALUE()});
        try {
            m_Positions.emplace(m_Entries.GetAt(position).key, position);
        } catch (...) {
            m_Entries.RemoveAt(position);
            throw;
        }
        return position;
    }

    CList<Entry, Entry> m_Entries;
    std::unordered_map<std::u16string_view, POSITION> m_Positions;  // the keys look into the entries
};

/// Text to pointer to anything.
class CMapStringToOb : public QZStringMap<void*> {
    using QZStringMap::QZStringMap;
};

/// Text to text.
class CMapStringToString : public QZStringMap<CString> {
    using QZStringMap::QZStringMap;
};

/// Text to pointer to T.
template <class T>
class CTypedMapStringToPtr : public QZStringMap<T*> {
    using QZStringMap<T*>::QZStringMap;
};
