// The concrete classes of a host that keeps tables and fields and nothing else, and the factory that makes them while a
// catalog is loaded.
#pragma once

#include <QZParserSQL/catalog/CQZDatabaseInfo.h>
#include <QZParserSQL/catalog/CQZTableInfo.h>
#include <QZParserSQL/catalog/QZObjectFactory.h>
#include <QZParserSQL/front/BuildQueryInfo.h>
#include <QZParserSQL/model/CQZQueryInfo.h>

class ShopField final : public CQZFieldInfo {
 public:
    ShopField* Clone(int /*bSelectedOnly*/) const override { return new ShopField(*this); }
    bool IsVirtualObject(int /*nUnused*/) const override { return false; }
    bool IsRealObject(int /*nUnused*/) const override { return true; }
    void SetOwner(CQZTableInfo* pOwner) override { owner_ = pOwner; }
    CString GetTypeText() const override { return GetTypeMapped(); }
    CString GetCollation() const override { return {}; }

 private:
    CQZTableInfo* owner_ = nullptr;
};

class ShopTable final : public CQZTableInfo {
 public:
    ShopTable() = default;
    ShopTable(const ShopTable& other, int bSelectedOnly) : CQZTableInfo(other, bSelectedOnly) {}
    ShopTable* Clone(int bSelectedOnly) const override { return new ShopTable(*this, bSelectedOnly); }
    int GetDBType() const override { return kDbMSAccess; }
};

class ShopDatabase final : public CQZDatabaseInfo {
 public:
    ShopDatabase() = default;
    ShopDatabase(const ShopDatabase& other, int bSelectedOnly) : CQZDatabaseInfo(other, bSelectedOnly) {}
    ShopDatabase* Clone(int bSelectedOnly) const override { return new ShopDatabase(*this, bSelectedOnly); }
    int GetDBType() const override { return kDbMSAccess; }

    /// The loaded tables do not know their database yet.
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override {
        CQZDatabaseInfo::Load(pStore, pFactory);
        for (auto* table : m_listTables) table->SetDatabase(this);
    }
};

/// What it gives null for is passed over.
class ShopFactory final : public QZObjectFactory {
 public:
    CQZTableInfo* CreateTable(int /*dbType*/) override { return new ShopTable; }
    CQZQueryInfo* CreateQuery(int /*dbType*/) override { return new CQZQueryInfo; }
    CQZFieldInfo* CreateField(int /*dbType*/) override { return new ShopField; }
    CQZIndexInfo* CreateIndex(int /*dbType*/) override { return nullptr; }
    CQZForeignKeyInfo* CreateForeignKey(int /*dbType*/) override { return nullptr; }
    CQZFilterInfo* CreateFilter(int /*dbType*/) override { return nullptr; }
    CQZFilterItemInfo* CreateFilterItem(int /*dbType*/) override { return nullptr; }
};
