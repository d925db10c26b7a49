// Catalogs for tests.
#pragma once

#include <string>

#include "host/catalog_file.h"
#include "host/catalog_filter.h"

namespace qzsql {

inline CatalogFilterItem* Condition(const DatabaseKind& kind, const CString& field, std::string_view comparison,
                                    const QZFieldValue& value = {}, int joint = kAnd) {
    auto* item = new CatalogFilterItem(kind);
    item->Set(field, ComparisonCode(comparison), value, joint);
    return item;
}

/// Tables of some fields, indexes, foreign keys to the table before (the first one's to itself) and filters, and a
/// query for each ten tables. No two objects of a class are alike.
inline void FillCatalog(CatalogDatabase& database, int tables, int fields) {
    for (int number = 1; number <= tables; ++number) {
        const CString suffix = CString::FromInt(number);
        auto& table = database.AddTable(u"Table" + suffix);
        table.SetName(u"t" + suffix);
        for (int place = 1; place <= fields; ++place) {
            auto& field = table.AddField(u"Field" + CString::FromInt(place));
            field.SetType(place % 2 == 0 ? u"VARCHAR" : u"INTEGER");
            field.SetLength(place).SetScale(number % 3).SetDataType(place + number).SetState(number);
            field.SetTypeMapped(u"type" + suffix);
            field.SetCollation(place % 4 == 0 ? u"NOCASE" : u"");
            field.BuildTypeMappedString();
        }
        auto& primary = table.AddIndex(u"PRIMARY");
        primary.columns = {{u"Field1", {}}, {u"Field2", {}}};
        primary.Primary = primary.Unique = 1;
        auto& key = table.AddForeignKey(u"Before" + suffix);
        key.ReferencedTable = u"Table" + CString::FromInt(number > 1 ? number - 1 : 1);
        key.columns = {{u"Field2", u"Field1"}};
        if (number % 2 == 0) table.SetCopyData(0);
        if (number % 5 == 0) {
            CatalogFilter* filter = new CatalogFilter(database.Kind());
            filter->m_listItems.AddTail(Condition(database.Kind(), u"Field1", ">=", {number, kNumberValue}));
            table.SetFilter(QZOwned<CatalogFilter>(filter).get());
        }
        if (number % 10 == 0) {
            database.AddQuery(u"Query" + suffix).SetText(u"SELECT Field1\r\nFROM Table" + suffix);
        }
    }
    database.Connect();
}

}  // namespace qzsql
