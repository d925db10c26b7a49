// What everything named in the catalog and in the query model has in common.
#pragma once

#include <cstdint>

#include "QZParserSQL/platform/CString.h"
#include "QZParserSQL/platform/Export.h"

class QZObjectFactory;
class QZSettingsStore;

/// An object's identity, its names in source and target, its type in source and target form, and the user's choice.
/// It persists as the open section of a store, in the subsections "Options" and "Common".
///
/// Texts are stored as they are given but for the types, which are trimmed at both ends. A getter marked (case) applies
/// the case rule, see SetLowerCase. Arguments are not owned. One object belongs to one thread at a time. The order of
/// the virtual operations is fixed: hosts are compiled against it.
class QZ_API CQZObjectInfo {
 public:
    /// Gives the object a new GUID.
    CQZObjectInfo();
    /// Copies everything, the GUID too: the copy has the same identity.
    CQZObjectInfo(const CQZObjectInfo& other) = default;
    CQZObjectInfo& operator=(const CQZObjectInfo&) = delete;
    virtual ~CQZObjectInfo();

    /// Whether the user selected the object for conversion; 1 at first.
    virtual int GetSelected() const { return Selected; }
    virtual void SetSelected(int nSelected) { Selected = nSelected; }
    /// The case rule: 1 is upper case, 2 lower case; 3 changes GetName alone, to the underscore form (OrderDetails is
    /// order_details); any other number changes nothing.
    virtual short GetLowerCase() const { return LowerCase; }
    virtual void SetLowerCase(short nLowerCase) { LowerCase = nLowerCase; }

    /// The identity while the process runs: a GUID of 38 characters, braces included. It is not persisted.
    virtual CString GetGUID() const { return GUID; }
    virtual void SetGUID(CString strGUID);
    /// Makes a new GUID; the old one stays when the system gives none.
    virtual void NewGUID();

    /// The name in the target. (case)
    virtual CString GetName() const;
    virtual void SetName(CString strName);
    /// The name in the source, by which sources are looked up.
    virtual CString GetSrcName() const { return SrcName; }
    virtual void SetSrcName(CString strSrcName);
    /// The kind of the database that the object belongs to; 0 where the host's class tells none.
    virtual int GetDBType() const { return 0; }

    /// The type in the source. (case)
    virtual CString GetType() const;
    virtual void SetType(CString strType);
    /// The same field once more. (case)
    virtual CString GetTypeSrc() const;
    virtual void SetTypeSrc(CString strType);
    /// The whole type clause in the target. (case)
    virtual CString GetTypeMappedString() const;
    /// Composes the type clause of a field, from its type text and collation; on other objects it does nothing.
    virtual void BuildTypeMappedString();
    /// The type in the target. (case)
    virtual CString GetTypeMapped() const;
    virtual void SetTypeMapped(CString strType);

    /// Lengths are -1 where none was set.
    virtual int GetLength() const { return Length; }
    virtual CQZObjectInfo& SetLength(int nLength) { return Set(Length, nLength); }
    virtual int GetLengthMapped() const { return LengthMapped; }
    virtual CQZObjectInfo& SetLengthMapped(int nLength) { return Set(LengthMapped, nLength); }
    virtual int GetScale() const { return Scale; }
    virtual CQZObjectInfo& SetScale(int nScale) { return Set(Scale, nScale); }
    virtual int GetScaleMapped() const { return ScaleMapped; }
    virtual CQZObjectInfo& SetScaleMapped(int nScale) { return Set(ScaleMapped, nScale); }

    /// The numbers of states, database kinds and flags are the host's. A new object has the state 1.
    virtual int GetState() const { return State; }
    virtual CQZObjectInfo& SetState(int nState) { return Set(State, nState); }
    /// The result of a check, 0 for success. On a query the getter runs the check.
    virtual int GetCorrect() { return Correct; }
    virtual CQZObjectInfo& SetCorrect(int nCorrect) { return Set(Correct, nCorrect); }
    virtual int GetDbTypeSrcLast() const { return DbTypeSrcLast; }
    virtual CQZObjectInfo& SetDbTypeSrcLast(int nDbType) { return Set(DbTypeSrcLast, nDbType); }
    virtual int GetDbTypeSrcCur() const { return DbTypeSrcCur; }
    virtual CQZObjectInfo& SetDbTypeSrcCur(int nDbType) { return Set(DbTypeSrcCur, nDbType); }
    virtual int GetAutoIncrMapped() const { return AutoIncrMapped; }
    virtual CQZObjectInfo& SetAutoIncrMapped(int nAutoIncr) { return Set(AutoIncrMapped, nAutoIncr); }
    virtual int GetUnsignedMapped() const { return UnsignedMapped; }
    virtual CQZObjectInfo& SetUnsignedMapped(int nUnsigned) { return Set(UnsignedMapped, nUnsigned); }
    virtual int GetIndexOff() const { return IndexOff; }
    virtual CQZObjectInfo& SetIndexOff(int nIndexOff) { return Set(IndexOff, nIndexOff); }

    /// Writes the texts as stored, whatever the case rule, and the numbers.
    virtual void Save(QZSettingsStore* pStore);
    /// Reads what Save wrote. A length or scale that is missing stays, a missing State becomes 0, and the source's name
    /// is also looked for where an older layout has it. GUID, Resolved and Calculated stay.
    virtual void Load(QZSettingsStore* pStore, QZObjectFactory* pFactory);
    /// Takes over what the other object's getters tell, but for its GUID and source name. The number is the business of
    /// derived classes.
    virtual void CopyFrom(CQZObjectInfo* pOther, int nKind);
    /// A deep copy, which the caller owns. Where an object has children, a non-zero number leaves out those that are
    /// not selected.
    virtual CQZObjectInfo* Clone(int bSelectedOnly) const = 0;

    /// Whether the object stands for something that has no rows of its own. The argument is ignored.
    virtual bool IsVirtualObject(int nUnused) const = 0;
    virtual bool IsRealObject(int nUnused) const = 0;
    /// How long a name may be in the target; -1 is no limit.
    virtual int GetMaxNameLength() const { return -1; }
    /// Whether the object reads a query.
    virtual int HasQuerySource() const { return 1; }

    /// A type code of the host's field classes.
    int GetDataType() const { return DataType; }
    CQZObjectInfo& SetDataType(int nDataType) { return Set(DataType, nDataType); }

    /// Cuts the name, in the form that the case rule gives it, to the length that the target allows.
    void TruncateName();

 protected:
    /// As they are stored: the getters of these names may apply the case rule.
    CString GUID;
    CString SrcName;
    CString Type;
    CString TypeMapped;
    CString TypeMappedString;
    int Length = -1;
    int LengthMapped = -1;
    int Scale = 0;
    int ScaleMapped = 0;
    int DataType = 0;
    int State = 1;
    int Correct = 0;
    int DbTypeSrcLast = 0;
    int DbTypeSrcCur = 0;
    int AutoIncrMapped = 0;
    int UnsignedMapped = 0;
    int IndexOff = 0;
    CString Name;
    int Selected = 1;
    std::int16_t LowerCase = 0;

 public:
    /// 1 once a check or a resolution went through this source. Not persisted.
    int Resolved = 0;
    /// 1 on an object that stands for an expression. Not persisted.
    int Calculated = 0;

 private:
    CQZObjectInfo& Set(int& nField, int nValue) {
        nField = nValue;
        return *this;
    }
    struct Layout;
};
