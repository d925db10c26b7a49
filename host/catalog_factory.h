// Makes the catalog's concrete objects while the library loads them.
#pragma once

#include "QZParserSQL/catalog/QZObjectFactory.h"

namespace qzsql {

/// What is stored of a kind that nobody knows is passed over.
class CatalogFactory final : public QZObjectFactory {
 public:
    virtual ~CatalogFactory() = default;

    CQZTableInfo* CreateTable(int dbType) override;
    CQZQueryInfo* CreateQuery(int dbType) override;
    CQZFieldInfo* CreateField(int dbType) override;
    CQZIndexInfo* CreateIndex(int dbType) override;
    CQZForeignKeyInfo* CreateForeignKey(int dbType) override;
    CQZFilterInfo* CreateFilter(int dbType) override;
    CQZFilterItemInfo* CreateFilterItem(int dbType) override;
};

}  // namespace qzsql
