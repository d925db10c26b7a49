// How the library gets objects of the host's concrete classes while it loads a catalog.
#pragma once

#include "QZParserSQL/platform/Export.h"

class CQZFieldInfo;
class CQZFilterInfo;
class CQZFilterItemInfo;
class CQZForeignKeyInfo;
class CQZIndexInfo;
class CQZQueryInfo;
class CQZTableInfo;

/// Makes objects for a database kind: the GetDBType of the object that is being loaded, or for a filter the kind that
/// was stored with it. Each result is new and belongs to the caller; null says that the host has no class for the kind,
/// and what is stored of the object is passed over. The library never destroys a factory. One thread at a time.
class QZ_API QZObjectFactory {
 public:
    /// Two operations of the host's own, which the library does not call.
    virtual void HostOperation1() {}
    virtual void HostOperation2() {}

    /// A new object of the kind, which becomes the caller's, or null for a kind that the host does not know.
    virtual CQZTableInfo* CreateTable(int dbType) = 0;
    virtual CQZQueryInfo* CreateQuery(int dbType) = 0;
    virtual CQZFieldInfo* CreateField(int dbType) = 0;
    virtual CQZIndexInfo* CreateIndex(int dbType) = 0;
    virtual CQZForeignKeyInfo* CreateForeignKey(int dbType) = 0;
    virtual CQZFilterInfo* CreateFilter(int dbType) = 0;
    virtual CQZFilterItemInfo* CreateFilterItem(int dbType) = 0;

 protected:
    /// Factories are made, copied and destroyed as the host's own classes.
    QZObjectFactory() = default;
    QZObjectFactory(const QZObjectFactory&) = default;
    QZObjectFactory& operator=(const QZObjectFactory&) = default;
    ~QZObjectFactory() = default;
};
