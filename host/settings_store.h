// Where qzsql keeps catalogs: sections and keys in an SQLite file.
#pragma once

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "host/sqlite.h"

namespace qzsql {

/// A store that can't be used; the text names it and says what to do.
struct StoreError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Everything between the outermost open and its close is one transaction, which is given up when anything in it
/// failed or an exception passes. The library does not look at results, so that a failure is remembered here: what
/// follows reads as missing and is swallowed until the owner asks. Subsections keep the order of their creation.
class SettingsStore final : public QZSettingsStore {
 public:
    enum class Use { Read, Write };

    /// Of the layout below; a store of another one is refused.
    static constexpr int kVersion = 1;

    /// Makes a new file without sections. Throws StoreError, also where there is a file already.
    static void Create(const std::string& path);

    /// Throws StoreError for what is no store of this version. A store opened for reading makes no sections.
    SettingsStore(std::string path, Use use);
    virtual ~SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    CList<CString> GetSubSections() override;
    int SectionExists(const CString& name) override;
    int OpenSection(const CString& name, int create) override;
    void CloseSection() override;
    int ReadInt(const CString& key, int defaultValue) override;
    CString ReadString(const CString& key, const CString& defaultValue, int reserved) override;
    void WriteInt(const CString& key, int value) override;
    void WriteString(const CString& key, const CString& value, int reserved) override;

    /// Has the transaction under way change nothing.
    void Discard() { isDiscarded_ = true; }
    /// Removes all that the open section holds.
    void EmptySection();
    /// Throws what failed first, if anything did, and forgets it: StoreError or std::bad_alloc.
    void ThrowIfFailed();

 private:
    struct Statements {
        explicit Statements(const Connection& connection);
        Statement subsections, find, add, read, write, emptyKeys, emptySections;
    };

    static constexpr std::int64_t kRoot = 0;
    static constexpr std::int64_t kMissing = -1;

    std::int64_t Open() const { return open_.empty() ? kRoot : open_.back(); }
    bool IsUsable() const { return !failure_ && Open() != kMissing; }
    bool MayWrite();
    std::int64_t Find(const CString& name);
    std::int64_t FindOrAdd(const CString& name, bool create);
    void Begin();
    void End();
    template <class Value>
    void Write(const CString& key, const Value& value);
    template <class Do>
    void Try(Do act);

    std::string path_;
    Use use_;
    Connection connection_;
    Statements statements_;
    std::vector<std::int64_t> open_;
    bool isDiscarded_ = false;
    int exceptions_ = 0;  // that were passing when the transaction began
    std::exception_ptr failure_;
};

}  // namespace qzsql
