#include "QZParserSQL/model/SelectItemField.h"

#include <utility>

#include "QZParserSQL/model/Copier.h"

SelectItemField::SelectItemField() { ItemKind = kField; }

SelectItemField::SelectItemField(const SelectItemField& other) : SelectItemField(other, qz::Bare()) {
    qz::CopyOwned(other, *this);
}

SelectItemField::SelectItemField(const SelectItemField& other, qz::Bare bare)
    : SelectItem(other, bare),
      TableName(other.TableName),
      FieldName(other.FieldName),
      ResolvedTable(other.ResolvedTable),
      ResolvedField(other.ResolvedField),
      TableAlias(other.TableAlias),
      FieldAlias(other.FieldAlias),
      OutputName(other.OutputName),
      SchemaName(other.SchemaName) {
    if (ItemKind != kAliasReference) ItemKind = kField;
}

SelectItemField::~SelectItemField() = default;

SelectItemField* SelectItemField::Clone() const { return new SelectItemField(*this); }

CString SelectItemField::GetSQLText() const {
    if (ResolvedField.IsEmpty()) return GetTableText();
    if (ResolvedTable.IsEmpty()) return InQuotes(ResolvedField);
    return InQuotes(ResolvedTable) + u"." + InQuotes(ResolvedField);
}

// What is rendered without a field.
CString SelectItemField::GetTableText() const {
    if (ResolvedTable.IsEmpty()) return StartsWithStar() ? u"*" : u"";
    if (Children.IsEmpty()) return InQuotes(ResolvedTable);
    return StartsWithStar() ? InQuotes(ResolvedTable) + u".*" : CString();
}

bool SelectItemField::StartsWithStar() const { return !Children.IsEmpty() && Children.GetHead()->Text == u"*"; }

CString SelectItemField::InQuotes(const CString& strName) const { return QuoteOpen + strName + QuoteClose; }

void SelectItemField::SetTableName(CString strName) { TableName = std::move(strName); }

void SelectItemField::SetFieldName(CString strName) { FieldName = std::move(strName); }

void SelectItemField::SetResolvedTable(CString strName) { ResolvedTable = std::move(strName); }

void SelectItemField::SetResolvedField(CString strName) { ResolvedField = std::move(strName); }

void SelectItemField::SetTableAlias(CString strName) { TableAlias = std::move(strName); }

void SelectItemField::SetFieldAlias(CString strName) { FieldAlias = std::move(strName); }

void SelectItemField::SetOutputName(CString strName) { OutputName = std::move(strName); }

void SelectItemField::SetSchemaName(CString strName) { SchemaName = std::move(strName); }
