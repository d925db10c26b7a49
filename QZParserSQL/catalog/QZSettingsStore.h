// Where a catalog is kept: the interface that a host implements over its registry, file or database.
#pragma once

#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

/// A tree of sections, each with keys of its own, in which one section is open at a time. Sections nest like a stack:
/// what is opened is looked for below the section that is open. The library passes references for the length of a call
/// only, keeps none of the texts, and never destroys a store. Errors are the store's own affair. One thread at a time.
class QZ_API QZSettingsStore {
 public:
    /// The names of the subsections of the open section. Their order becomes the order of the objects loaded from them.
    virtual CList<CString> GetSubSections() = 0;
    /// Non-zero when the open section has a subsection of this name.
    virtual int SectionExists(const CString& name) = 0;
    /// Opens the subsection; `create` 1 makes it where it is missing. The library does not look at the result and
    /// closes what it opened in any case: a section that is missing has to answer reads with their defaults, to have no
    /// subsections, and to swallow what is written.
    virtual int OpenSection(const CString& name, int create) = 0;
    /// Goes back to the section that was open before. Must not throw, since sections are also closed while an exception
    /// passes.
    virtual void CloseSection() = 0;
    /// The value of a key of the open section, or the default where there is none.
    virtual int ReadInt(const CString& key, int defaultValue) = 0;
    /// The same for a text; `reserved` is 0.
    virtual CString ReadString(const CString& key, const CString& defaultValue, int reserved) = 0;
    /// Sets a key of the open section.
    virtual void WriteInt(const CString& key, int value) = 0;
    /// The same for a text; `reserved` is 0.
    virtual void WriteString(const CString& key, const CString& value, int reserved) = 0;

 protected:
    /// Stores are made, copied and destroyed as the host's own classes.
    QZSettingsStore() = default;
    QZSettingsStore(const QZSettingsStore&) = default;
    QZSettingsStore& operator=(const QZSettingsStore&) = default;
    ~QZSettingsStore() = default;
};

/// Holds a section of a store open from construction to destruction.
class QZOpenSection {
 public:
    /// The store must outlive the object.
    QZOpenSection(QZSettingsStore& store, const CString& name, int create) : m_Store(store) {
        m_Store.OpenSection(name, create);
    }
    ~QZOpenSection() { m_Store.CloseSection(); }
    QZOpenSection(const QZOpenSection&) = delete;
    QZOpenSection& operator=(const QZOpenSection&) = delete;

 private:
    QZSettingsStore& m_Store;
};
