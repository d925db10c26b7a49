// Row filters as SQL.
#pragma once

#include <string_view>

#include "QZParserSQL/catalog/CQZFilterInfo.h"
#include "QZParserSQL/catalog/CQZFilterItemInfo.h"
#include "host/database_kinds.h"

namespace qzsql {

/// A comparison; its place in the table is the number that an item keeps as its condition.
struct Comparison {
    std::string_view name;  // on the command line
    std::u16string_view sql;
    bool hasValue;
    bool isOfTexts;  // whatever the field's type
};

/// -1 for a name that no comparison has.
int ComparisonCode(std::string_view name);
/// Null for a code that no comparison has.
const Comparison* FindComparison(int code);
/// "=, <>, <"
std::string ComparisonNames();

/// What an item keeps as its second condition: how it goes on from the item before it.
enum Joint : int { kAnd = 0, kOr = 1 };

/// Types of the values of conditions, whose numbers the library gives a meaning in comparisons.
enum ValueType : int { kTextValue = 2, kNumberValue = 3, kDateValue = 4 };

/// The type of values that a field of this source type is compared with.
ValueType ValueTypeOf(const CString& fieldType);

class CatalogFilterItem final : public CQZFilterItemInfo {
 public:
    explicit CatalogFilterItem(const DatabaseKind& kind) : kind_(&kind) {}
    CatalogFilterItem(const CatalogFilterItem&) = default;
    virtual ~CatalogFilterItem() = default;

    /// [Amount] >= 100
    CString GetSQLText() const override;
    CatalogFilterItem* Clone() const override { return new CatalogFilterItem(*this); }
    void Destroy() override { delete this; }

 private:
    CString Literal() const;

    const DatabaseKind* kind_;
};

class CatalogFilter final : public CQZFilterInfo {
 public:
    explicit CatalogFilter(const DatabaseKind& kind) : kind_(&kind) {}
    CatalogFilter(const CatalogFilter&) = default;
    virtual ~CatalogFilter() = default;

    int GetDBType() const override { return kind_->number; }
    /// The free text, or the conditions joined.
    CString GetSQLText() const override;
    CatalogFilter* Clone() const override { return new CatalogFilter(*this); }
    void Destroy() override { delete this; }

 private:
    const DatabaseKind* kind_;
};

}  // namespace qzsql
