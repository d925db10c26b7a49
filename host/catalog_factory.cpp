#include "host/catalog_factory.h"

#include "host/catalog_filter.h"
#include "host/catalog_objects.h"

namespace qzsql {

namespace {

template <class Object>
Object* Make(int dbType) {
    const auto* kind = FindKind(dbType);
    return kind == nullptr ? nullptr : new Object(*kind);
}

}  // namespace

CQZTableInfo* CatalogFactory::CreateTable(int dbType) { return Make<CatalogTable>(dbType); }
CQZQueryInfo* CatalogFactory::CreateQuery(int dbType) { return Make<CatalogQuery>(dbType); }
CQZFieldInfo* CatalogFactory::CreateField(int dbType) { return Make<CatalogField>(dbType); }
CQZIndexInfo* CatalogFactory::CreateIndex(int dbType) { return Make<CatalogIndex>(dbType); }
CQZForeignKeyInfo* CatalogFactory::CreateForeignKey(int dbType) { return Make<CatalogForeignKey>(dbType); }
CQZFilterInfo* CatalogFactory::CreateFilter(int dbType) { return Make<CatalogFilter>(dbType); }
CQZFilterItemInfo* CatalogFactory::CreateFilterItem(int dbType) { return Make<CatalogFilterItem>(dbType); }

}  // namespace qzsql
