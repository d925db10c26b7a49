// Builds the model of a query of MS Access against a catalog of the host's own and prints it.
//
//     print_model "SELECT ID, Due AS Till FROM Orders"
//
// The catalog is kept in a store (memory_store.h) and loaded from it through a factory (shop_catalog.h). Its one table
// is Orders in the source and shop_orders in the target, its fields are ID and Due,
// which becomes due_date.
#include <QZParserSQL/platform/Console.h>

#include <iostream>
#include <memory>
#include <string>

#include "memory_store.h"
#include "shop_catalog.h"

namespace {

void AddField(CQZTableInfo& table, const CString& source, const CString& target) {
    auto field = std::make_unique<ShopField>();
    field->SetSrcName(source);
    field->SetName(target);
    table.m_listFields.AddTail(field.release());  // the table's from here on
}

void SaveShop(QZSettingsStore& store) {
    auto orders = std::make_unique<ShopTable>();
    orders->SetSrcName(u"Orders");
    orders->SetName(u"shop_orders");
    AddField(*orders, u"ID", u"id");
    AddField(*orders, u"Due", u"due_date");
    ShopDatabase database;
    database.m_listTables.AddTail(orders.release());
    database.Save(&store);
}

// Of an item the library renders one level: whoever wants all of it walks on.
void Print(const SelectItem& item, std::size_t depth) {
    std::cout << std::string(2 * depth, ' ') << "kind " << item.ItemKind;
    if (!item.FuncName.IsEmpty()) std::cout << ", function " << item.FuncName.ToUtf8();
    const CString text = item.GetSQLText();
    if (!text.IsEmpty()) std::cout << ", text " << text.ToUtf8();
    std::cout << '\n';
    for (const auto* child : item.Children) Print(*child, depth + 1);
}

void Print(const char* clause, const CList<SelectItem*>& items) {
    if (!items.IsEmpty()) std::cout << clause << '\n';
    for (const auto* item : items) Print(*item, 1);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "print_model SQL\n";
        return 2;
    }
    MemoryStore store;
    SaveShop(store);
    ShopFactory factory;
    ShopDatabase database;
    database.Load(&store, &factory);

    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);  // the build tells the text that it reads
    CQZQueryInfo query;                                         // goes before the database, which it does not own
    query.SetDatabase(&database);
    query.SetSQL(CString::FromUtf8(argv[1]));
    BuildQueryInfo(&query, kDbMSAccess);
    query.ResolveSourceGUIDs();
    query.ResolveAllItems();

    Print("SELECT", query.m_listSelect);
    Print("FROM", query.m_listFrom);
    if (query.m_pWhere != nullptr) Print("WHERE", query.m_pWhere->Children);
    Print("ORDER BY", query.m_listOrderBy);
    for (const auto& alias : query.m_mapAliases) std::cout << "alias " << alias.value->GetName().ToUtf8() << '\n';
    for (const auto& source : query.m_mapSources) {
        const bool known = query.FindSourceByName(source.key) != nullptr;
        std::cout << "source " << source.key.ToUtf8() << (known ? "" : ", not in the catalog") << '\n';
    }
    return 0;
}
