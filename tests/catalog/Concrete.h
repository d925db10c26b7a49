// The classes that a host adds to the catalog, as plain as they can be, with what the tests look at.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZFieldInfo.h"
#include "QZParserSQL/catalog/CQZFilterInfo.h"
#include "QZParserSQL/catalog/CQZFilterItemInfo.h"
#include "QZParserSQL/catalog/CQZForeignKeyInfo.h"
#include "QZParserSQL/catalog/CQZIndexInfo.h"
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/catalog/QZObjectFactory.h"
#include "QZParserSQL/model/CQZQueryInfo.h"

namespace concrete {

/// A new object at the end of a list that owns it.
template <class Object, class List>
Object& Append(List& list) {
    auto object = std::make_unique<Object>();
    list.AddTail(object.get());
    return *object.release();
}

/// What fields, indexes and keys have in common. A child that tells has its owner refresh itself after each change of
/// its selection.
template <class Base>
class Child : public Base {
 public:
    bool IsVirtualObject(int) const override { return false; }
    bool IsRealObject(int) const override { return true; }
    void SetOwner(CQZTableInfo* pOwner) override { owner = pOwner; }
    void SetSelected(int nSelected) override {
        Base::SetSelected(nSelected);
        selections.push_back(nSelected);
        if (tells && owner != nullptr) owner->RefreshSelection(0);
    }

    CQZTableInfo* owner = nullptr;
    bool tells = false;
    std::vector<int> selections;  ///< what SetSelected was called with
};

class Field final : public Child<CQZFieldInfo> {
 public:
    Field* Clone(int) const override { return new Field(*this); }
    CString GetTypeText() const override { return typeText; }
    CString GetCollation() const override { return collation; }

    CString typeText;
    CString collation;
};

class Index final : public Child<CQZIndexInfo> {
 public:
    Index* Clone(int) const override { return new Index(*this); }
    void CheckReference(int nFlag) override { checks.push_back(nFlag); }
    int IsPrimaryKey() const override { return primaryKey; }
    int IsPrimaryIndex() const override { return primaryIndex; }

    int primaryKey = 0;
    int primaryIndex = 0;
    std::vector<int> checks;  ///< what CheckReference was called with
};

class ForeignKey final : public Child<CQZForeignKeyInfo> {
 public:
    ForeignKey* Clone(int) const override { return new ForeignKey(*this); }
    void CheckReference(int nFlag) override { checks.push_back(nFlag); }
    CString GetReferencedTableGUID() const override { return referenced; }

    CString referenced;
    std::vector<int> checks;
};

class FilterItem : public CQZFilterItemInfo {
 public:
    using CQZFilterItemInfo::CQZFilterItemInfo;
    FilterItem(const FilterItem&) = default;
    virtual ~FilterItem() = default;
    CString GetSQLText() const override { return GetFieldID() + note; }
    FilterItem* Clone() const override { return new FilterItem(*this); }
    void Destroy() override { delete this; }

    CString note = u"a text too long to be kept within the object itself";
};

class Filter : public CQZFilterInfo {
 public:
    explicit Filter(int nDBType = 2) : dbType(nDBType) {}
    Filter(const Filter&) = default;
    virtual ~Filter() = default;
    int GetDBType() const override { return dbType; }
    CString GetSQLText() const override { return note; }
    Filter* Clone() const override { return new Filter(*this); }
    void Destroy() override { delete this; }

    int dbType;
    CString note = u"a text too long to be kept within the object itself";
};

class Table : public CQZTableInfo {
 public:
    Table() = default;
    Table(const Table& other, int bSelectedOnly) : CQZTableInfo(other, bSelectedOnly), dbType(other.dbType) {}
    Table* Clone(int bSelectedOnly) const override { return new Table(*this, bSelectedOnly); }
    int GetDBType() const override { return dbType; }

    template <class Object = Field>
    Object& AddField(const CString& strSrcName) {
        return Add<Object>(m_listFields, strSrcName);
    }
    Index& AddIndex(const CString& strSrcName) { return Add<Index>(m_listIndexes, strSrcName); }
    ForeignKey& AddForeignKey(const CString& strSrcName) { return Add<ForeignKey>(m_listForeignKeys, strSrcName); }

    int dbType = 2;

 private:
    template <class Object, class List>
    Object& Add(List& list, const CString& strSrcName) {
        Object& object = Append<Object>(list);
        object.SetSrcName(strSrcName);
        object.SetOwner(this);
        return object;
    }
};

class Query final : public CQZQueryInfo {
 public:
    Query() = default;
    Query(const Query&) = default;
    Query* Clone(int bSelectedOnly) const override {
        auto* clone = new Query(*this);
        clone->clonedWith = bSelectedOnly;
        return clone;
    }

    int clonedWith = -1;
};

class Database : public CQZDatabaseInfo {
 public:
    Database() = default;
    Database(const Database& other, int bSelectedOnly) : CQZDatabaseInfo(other, bSelectedOnly), dbType(other.dbType) {}
    Database* Clone(int bSelectedOnly) const override { return new Database(*this, bSelectedOnly); }
    int GetDBType() const override { return dbType; }

    template <class Object = Table>
    Object& AddTable(const CString& strSrcName) {
        Object& table = Append<Object>(m_listTables);
        table.SetSrcName(strSrcName);
        table.SetDatabase(this);
        return table;
    }

    /// A query of one name for source and target.
    Query& AddQuery(const CString& strName) {
        Query& query = Append<Query>(m_listQueries);
        query.SetSrcName(strName);
        query.SetName(strName);
        query.SetDatabase(this);
        return query;
    }

    int dbType = 2;
};

/// Makes the classes above and notes what it made, with the database kind it was asked for.
class Factory : public QZObjectFactory {
 public:
    virtual ~Factory() = default;

    CQZTableInfo* CreateTable(int dbType) override { return Make<Table>("Table", dbType); }
    CQZQueryInfo* CreateQuery(int dbType) override { return Make<Query>("Query", dbType); }
    CQZFieldInfo* CreateField(int dbType) override { return Make<Field>("Field", dbType); }
    CQZIndexInfo* CreateIndex(int dbType) override { return Make<Index>("Index", dbType); }
    CQZForeignKeyInfo* CreateForeignKey(int dbType) override { return Make<ForeignKey>("ForeignKey", dbType); }
    CQZFilterInfo* CreateFilter(int dbType) override { return Make<Filter>("Filter", dbType, dbType); }
    CQZFilterItemInfo* CreateFilterItem(int dbType) override { return Make<FilterItem>("FilterItem", dbType); }

    std::vector<std::string> made;  ///< "Field 2"
    std::string missing;            ///< the class that this host does not have

 private:
    template <class Object, class... Arguments>
    Object* Make(const std::string& name, int dbType, Arguments... arguments) {
        made.push_back(name + " " + std::to_string(dbType));
        return name == missing ? nullptr : new Object(arguments...);
    }
};

}  // namespace concrete
