// The catalog's concrete classes: one each for all kinds of databases, which differ by their row of DatabaseKind only.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZFieldInfo.h"
#include "QZParserSQL/catalog/CQZForeignKeyInfo.h"
#include "QZParserSQL/catalog/CQZIndexInfo.h"
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "host/database_kinds.h"

namespace qzsql {

class CatalogDatabase;

/// What fields, indexes and foreign keys have in common. The table brings its options in line with the selections.
template <class Base>
class CatalogChild : public Base {
 public:
    explicit CatalogChild(const DatabaseKind& kind) : kind_(&kind) {}

    bool IsVirtualObject(int) const override { return false; }
    bool IsRealObject(int) const override { return true; }
    int GetDBType() const override { return kind_->number; }
    void SetOwner(CQZTableInfo* pOwner) override { owner_ = pOwner; }
    void SetSelected(int nSelected) override {
        Base::SetSelected(nSelected);
        if (owner_ != nullptr) owner_->RefreshSelection(0);
    }

    CQZTableInfo* Owner() const { return owner_; }

 private:
    const DatabaseKind* kind_;
    CQZTableInfo* owner_ = nullptr;
};

class CatalogField final : public CatalogChild<CQZFieldInfo> {
 public:
    using CatalogChild::CatalogChild;

    CatalogField* Clone(int) const override { return new CatalogField(*this); }
    /// The mapped type with its length and scale: DECIMAL(10,2).
    CString GetTypeText() const override;
    CString GetCollation() const override { return Collation; }
    void SetCollation(CString collation);
    void Save(QZSettingsStore* pStore) override;
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;

 private:
    CString Collation;
};

/// A field of an index or a foreign key, by source name, and the one that it refers to, empty for none.
struct KeyColumn {
    CString field;
    CString referenced;
};

/// In the order of the key. A field without a name is an expression.
using KeyColumns = std::vector<KeyColumn>;

class CatalogIndex final : public CatalogChild<CQZIndexInfo> {
 public:
    using CatalogChild::CatalogChild;

    CatalogIndex* Clone(int) const override { return new CatalogIndex(*this); }
    void CheckReference(int nFlag) override;
    int IsPrimaryKey() const override { return Primary; }
    /// Rows are told apart by any unique index.
    int IsPrimaryIndex() const override { return Unique; }
    void Save(QZSettingsStore* pStore) override;
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;

    /// What is wrong with the index, or empty.
    CString Fault() const;

    KeyColumns columns;
    int Primary = 0;
    int Unique = 0;
};

class CatalogForeignKey final : public CatalogChild<CQZForeignKeyInfo> {
 public:
    using CatalogChild::CatalogChild;

    CatalogForeignKey* Clone(int) const override { return new CatalogForeignKey(*this); }
    void CheckReference(int nFlag) override;
    CString GetReferencedTableGUID() const override { return referencedGUID_; }
    void Save(QZSettingsStore* pStore) override;
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;

    CString Fault() const;
    /// Looks the referenced table up.
    void Connect(const CatalogDatabase& database);

    KeyColumns columns;
    CString ReferencedTable;  ///< its source name

 private:
    CString referencedGUID_;  // of this run, so not kept
};

class CatalogTable final : public CQZTableInfo {
 public:
    explicit CatalogTable(const DatabaseKind& kind) : kind_(&kind) {}
    CatalogTable(const CatalogTable& other, int bSelectedOnly)
        : CQZTableInfo(other, bSelectedOnly), kind_(other.kind_) {}

    CatalogTable* Clone(int bSelectedOnly) const override { return new CatalogTable(*this, bSelectedOnly); }
    int GetDBType() const override { return kind_->number; }
    const DatabaseKind& Kind() const { return *kind_; }
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;

    /// New children of this table, which owns them.
    CatalogField& AddField(const CString& name);
    CatalogIndex& AddIndex(const CString& name);
    CatalogForeignKey& AddForeignKey(const CString& name);

 private:
    const DatabaseKind* kind_;
};

/// A stored query. Its text is kept as it was given, line ends included.
class CatalogQuery final : public CQZQueryInfo {
 public:
    explicit CatalogQuery(const DatabaseKind& kind) : kind_(&kind) {}
    CatalogQuery(const CatalogQuery&) = default;

    CatalogQuery* Clone(int) const override { return new CatalogQuery(*this); }
    int GetDBType() const override { return kind_->number; }
    void SaveQuery(QZSettingsStore* pStore, int nUnused) override;
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;
    int CheckChildren(int nFlag) override;

    /// Checks the query and keeps the code for CheckChildren, until it is forgotten: in a chain of queries each is
    /// then checked once, not anew for every query that leads to it.
    int KeepCheck();
    void ForgetCheck() { kept_.reset(); }

    const CString& Text() const { return text_; }
    /// Also what GetSQL gives, in the form that the library wants.
    void SetText(const CString& text);
    /// The kind of the SQL: "access".
    const DatabaseKind& Dialect() const { return *kind_; }
    std::string_view DialectName() const { return kind_->name; }
    void SetDialect(const DatabaseKind& kind) { kind_ = &kind; }

 private:
    const DatabaseKind* kind_;
    CString text_;
    std::optional<int> kept_;
};

/// Tables and queries are CatalogTable and CatalogQuery objects.
class CatalogDatabase final : public CQZDatabaseInfo {
 public:
    explicit CatalogDatabase(const DatabaseKind& kind) : kind_(&kind) {}
    CatalogDatabase(const CatalogDatabase& other, int bSelectedOnly);

    CatalogDatabase* Clone(int bSelectedOnly) const override { return new CatalogDatabase(*this, bSelectedOnly); }
    int GetDBType() const override { return kind_->number; }
    const DatabaseKind& Kind() const { return *kind_; }
    void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory) override;

    std::vector<CatalogTable*> Tables() const;
    std::vector<CatalogQuery*> Queries() const;
    /// By source name in any case, null for none; without a walk along the list. Of objects that were put into the
    /// lists or taken out of them by others this knows behind Connect.
    CatalogTable* FindTable(const CString& srcName) const;
    CatalogQuery* FindQuery(const CString& srcName) const;

    /// New objects of this database, which owns them. The name is that of source and target.
    CatalogTable& AddTable(const CString& name);
    CatalogQuery& AddQuery(const CString& name);

    /// Ties what the lists hold to each other.
    void Connect();

 private:
    struct NoCase {
        bool operator()(const CString& left, const CString& right) const { return left.CompareNoCase(right) < 0; }
    };

    const DatabaseKind* kind_;
    std::map<CString, CatalogTable*, NoCase> tables_;
    std::map<CString, CatalogQuery*, NoCase> queries_;
};

}  // namespace qzsql
