// An output name that a query declares.
#pragma once

#include "QZParserSQL/model/CQZSourceFildInfo.h"
#include "QZParserSQL/model/QZSharedItem.h"

/// The AS name of an expression. SrcName and Name both hold it as written, without quotes. An alias is Calculated.
class QZ_API CQZAliasInfo : public CQZSourceFildInfo {
 public:
    CQZAliasInfo();
    /// Copies the expression, see QZSharedItem, and leaves Reserved empty.
    CQZAliasInfo(const CQZAliasInfo& other);
    ~CQZAliasInfo() override;

    CQZAliasInfo* Clone(int bSelectedOnly) const override;
    bool IsVirtualObject(int nUnused) const override;
    bool IsRealObject(int nUnused) const override;
    /// A hook for derived classes; 0 here.
    virtual int CheckAlias(CString strText);

    /// The source table and the source field of the aliased field as the text names them, where a dialect fills them.
    CString GetAliasTable() const { return AliasTable; }
    void SetAliasTable(CString strTable);
    CString GetAliasField() const { return AliasField; }
    void SetAliasField(CString strField);

    /// For hosts: not filled and not copied.
    CString Reserved;

 protected:
    /// What the accessors of these names tell.
    CString AliasTable;
    CString AliasField;

 public:
    /// The root item whose children are the expression that the alias stands for; owned, null at first.
    QZSharedItem Expression;
};
