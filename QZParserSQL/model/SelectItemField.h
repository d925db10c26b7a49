// A field reference in an expression.
#pragma once

#include "QZParserSQL/model/SelectItem.h"

/// Of kind kField, or kAliasReference where a walker sets it. The names as written are filled by the walkers, the
/// resolved ones, which alone are rendered, by the resolution.
class QZ_API SelectItemField : public SelectItem {
 public:
    SelectItemField();
    /// The copy is of kind kField unless the other item is an alias reference.
    SelectItemField(const SelectItemField& other);
    ~SelectItemField() override;

    SelectItemField* Clone() const override;
    /// The resolved names in quotes: table and field, either alone, table and star, or a star alone. A star is the Text
    /// of the first child. Empty for an item that was not resolved.
    CString GetSQLText() const override;

    /// The parts as written, without quotes.
    CString GetTableName() const { return TableName; }
    void SetTableName(CString strName);
    CString GetFieldName() const { return FieldName; }
    void SetFieldName(CString strName);
    /// The names in the target.
    CString GetResolvedTable() const { return ResolvedTable; }
    void SetResolvedTable(CString strName);
    CString GetResolvedField() const { return ResolvedField; }
    void SetResolvedField(CString strName);
    /// The table part where it is an alias that the query declares.
    CString GetTableAlias() const { return TableAlias; }
    void SetTableAlias(CString strName);
    /// The field part of an alias reference.
    CString GetFieldAlias() const { return FieldAlias; }
    void SetFieldAlias(CString strName);
    /// The output name, which has the highest priority in the resolution.
    CString GetOutputName() const { return OutputName; }
    void SetOutputName(CString strName);
    /// The schema of the database.
    CString GetSchemaName() const { return SchemaName; }
    void SetSchemaName(CString strName);

 private:
    friend class qz::Copier;
    SelectItemField(const SelectItemField& other, qz::Bare bare);

    bool StartsWithStar() const;
    CString InQuotes(const CString& strName) const;
    CString GetTableText() const;

    CString TableName;
    CString FieldName;
    CString ResolvedTable;
    CString ResolvedField;
    CString TableAlias;
    CString FieldAlias;
    CString OutputName;
    CString SchemaName;
};
