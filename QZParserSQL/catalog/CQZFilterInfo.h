// The rows of a table that are converted.
#pragma once

#include "QZParserSQL/platform/CList.h"
#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

class CQZFilterItemInfo;
class QZObjectFactory;
class QZSettingsStore;

/// Conditions on fields, or a free SQL text that applies instead of them. Concrete classes, one for each database kind,
/// are the host's. The destructor is neither virtual nor public: whoever owns a filter through this class ends it with
/// Destroy, so that the members of the concrete class are freed too. One object belongs to one thread at a time.
class QZ_API CQZFilterInfo {
 public:
    CQZFilterInfo() = default;
    /// Clones the items.
    CQZFilterInfo(const CQZFilterInfo& other);
    CQZFilterInfo& operator=(const CQZFilterInfo&) = delete;

    /// The database kind for which the factory makes this class again.
    virtual int GetDBType() const = 0;
    /// The filter as SQL text, for the host's own use.
    virtual CString GetSQLText() const = 0;
    /// Keeps the text and the items in the section now open.
    virtual void Save(QZSettingsStore* pStore) const;
    /// Replaces the filter by what Save kept. The items take the order of the store's subsections.
    virtual void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory);
    /// A new equal object, which belongs to the caller.
    virtual CQZFilterInfo* Clone() const = 0;
    /// Deletes this object: `delete this`, written in the class whose destructor is the right one.
    virtual void Destroy() = 0;

    /// Ends the items.
    void ClearItems();

    /// The free SQL text.
    CString GetSQLQuery() const { return SQLQuery; }
    void SetSQLQuery(CString strSQLQuery);
    /// 1 when the SQL text applies instead of the items.
    int GetUseSQLQuery() const { return UseSQLQuery; }
    void SetUseSQLQuery(int bUseSQLQuery) { UseSQLQuery = bUseSQLQuery; }

    CList<CQZFilterItemInfo*> m_listItems;  ///< owned

 protected:
    ~CQZFilterInfo();

 private:
    struct WithoutItems {};
    CQZFilterInfo(const CQZFilterInfo& other, WithoutItems);

    CString SQLQuery;
    int UseSQLQuery = 0;
};
