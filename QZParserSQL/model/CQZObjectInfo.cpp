#include "QZParserSQL/model/CQZObjectInfo.h"

#include <unicode/uchar.h>

#include <string>
#include <utility>

#include "QZParserSQL/catalog/QZSettingsStore.h"
#include "QZParserSQL/platform/Guid.h"

namespace {

enum CaseRule : short { kUpperCase = 1, kLowerCase = 2, kUnderscores = 3 };

// Each capital behind the first character gets an underscore before it, unless one stands there.
CString UnderscoreForm(const CString& name) {
    std::u16string result;
    for (const char16_t unit : name.View()) {
        if (!result.empty() && result.back() != u'_' && u_isupper(unit) != 0) result += u'_';
        result += static_cast<char16_t>(u_tolower(unit));
    }
    return result;
}

CString InCase(CString text, short rule) {
    if (rule == kUpperCase) text.MakeUpper();
    if (rule == kLowerCase) text.MakeLower();
    return text;
}

}  // namespace

// The persisted members of the subsection "Common" in the order of writing. A missing key keeps the member's value, or
// sets it to 0.
struct CQZObjectInfo::Layout {
    static constexpr struct {
        const char16_t* key;
        CString CQZObjectInfo::*text;
    } kTexts[] = {{u"Name", &CQZObjectInfo::Name},
                  {u"Type", &CQZObjectInfo::Type},
                  {u"TypeMapped", &CQZObjectInfo::TypeMapped},
                  {u"TypeMappedString", &CQZObjectInfo::TypeMappedString}};

    static constexpr struct {
        const char16_t* key;
        int CQZObjectInfo::*number;
        bool isKept;
    } kNumbers[] = {{u"Length", &CQZObjectInfo::Length, true},
                    {u"LengthMapped", &CQZObjectInfo::LengthMapped, true},
                    {u"Scale", &CQZObjectInfo::Scale, true},
                    {u"ScaleMapped", &CQZObjectInfo::ScaleMapped, true},
                    {u"DataType", &CQZObjectInfo::DataType, false},
                    {u"State", &CQZObjectInfo::State, false},
                    {u"Correct", &CQZObjectInfo::Correct, false},
                    {u"DbTypeSrcLast", &CQZObjectInfo::DbTypeSrcLast, false},
                    {u"DbTypeSrcCur", &CQZObjectInfo::DbTypeSrcCur, false},
                    {u"AutoIncrMapped", &CQZObjectInfo::AutoIncrMapped, false},
                    {u"UnsignedMapped", &CQZObjectInfo::UnsignedMapped, false},
                    {u"IndexOff", &CQZObjectInfo::IndexOff, false}};
};

CQZObjectInfo::CQZObjectInfo() { CQZObjectInfo::NewGUID(); }

CQZObjectInfo::~CQZObjectInfo() = default;

void CQZObjectInfo::SetGUID(CString strGUID) { GUID = std::move(strGUID); }

void CQZObjectInfo::NewGUID() {
    const CString guid = QZNewGuid();
    if (!guid.IsEmpty()) GUID = guid;
}

CString CQZObjectInfo::GetName() const {
    return LowerCase == kUnderscores ? UnderscoreForm(Name) : InCase(Name, LowerCase);
}

void CQZObjectInfo::SetName(CString strName) { Name = std::move(strName); }

void CQZObjectInfo::SetSrcName(CString strSrcName) { SrcName = std::move(strSrcName); }

CString CQZObjectInfo::GetType() const { return InCase(Type, LowerCase); }

void CQZObjectInfo::SetType(CString strType) { Type = std::move(strType.Trim()); }

CString CQZObjectInfo::GetTypeSrc() const { return InCase(Type, LowerCase); }

void CQZObjectInfo::SetTypeSrc(CString strType) { Type = std::move(strType.Trim()); }

CString CQZObjectInfo::GetTypeMappedString() const { return InCase(TypeMappedString, LowerCase); }

void CQZObjectInfo::BuildTypeMappedString() {}

CString CQZObjectInfo::GetTypeMapped() const { return InCase(TypeMapped, LowerCase); }

void CQZObjectInfo::SetTypeMapped(CString strType) { TypeMapped = std::move(strType.Trim()); }

void CQZObjectInfo::Save(QZSettingsStore* pStore) {
    {
        const QZOpenSection options(*pStore, u"Options", 1);
        pStore->WriteInt(u"Selected", Selected);
        pStore->WriteInt(u"LowerCase", LowerCase);
    }
    const QZOpenSection common(*pStore, u"Common", 1);
    for (const auto& [key, text] : Layout::kTexts) pStore->WriteString(key, this->*text, 0);
    pStore->WriteString(u"SrcName", SrcName, 0);
    for (const auto& [key, number, isKept] : Layout::kNumbers) pStore->WriteInt(key, this->*number);
}

void CQZObjectInfo::Load(QZSettingsStore* pStore, QZObjectFactory* /*pFactory*/) {
    {
        const QZOpenSection options(*pStore, u"Options", 0);
        SrcName = pStore->ReadString(u"SrcName", CString(), 0);  // where older layouts have it
        Selected = pStore->ReadInt(u"Selected", 1);
        LowerCase = static_cast<std::int16_t>(pStore->ReadInt(u"LowerCase", 0));
    }
    const QZOpenSection common(*pStore, u"Common", 0);
    for (const auto& [key, text] : Layout::kTexts) this->*text = pStore->ReadString(key, CString(), 0);
    SrcName = pStore->ReadString(u"SrcName", SrcName, 0);
    for (const auto& [key, number, isKept] : Layout::kNumbers)
        this->*number = pStore->ReadInt(key, isKept ? this->*number : 0);
}

void CQZObjectInfo::CopyFrom(CQZObjectInfo* pOther, int /*nKind*/) {
    Name = pOther->GetName();
    Type = pOther->GetTypeSrc();
    TypeMapped = pOther->GetTypeMapped();
    TypeMappedString = pOther->GetTypeMappedString();
    Length = pOther->GetLength();
    LengthMapped = pOther->GetLengthMapped();
    Scale = pOther->GetScale();
    ScaleMapped = pOther->GetScaleMapped();
    DataType = pOther->GetDataType();
    State = pOther->GetState();
    Correct = pOther->GetCorrect();
    DbTypeSrcLast = pOther->GetDbTypeSrcLast();
    DbTypeSrcCur = pOther->GetDbTypeSrcCur();
    Selected = pOther->GetSelected();
    LowerCase = pOther->GetLowerCase();
    AutoIncrMapped = pOther->GetAutoIncrMapped();
    UnsignedMapped = pOther->GetUnsignedMapped();
    IndexOff = pOther->GetIndexOff();
}

void CQZObjectInfo::TruncateName() {
    const int limit = GetMaxNameLength();
    if (limit < 0) return;
    const CString name = GetName();
    if (name.GetLength() > limit) SetName(name.Left(limit));
}
