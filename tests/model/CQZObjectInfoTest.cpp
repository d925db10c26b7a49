#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <type_traits>

#include "QZParserSQL/model/CQZObjectInfo.h"
#include "tests/model/Samples.h"

namespace {

using sample::Log;
using sample::Object;

static_assert(std::is_abstract_v<CQZObjectInfo>);
static_assert(std::has_virtual_destructor_v<CQZObjectInfo>);
static_assert(!std::is_copy_assignable_v<CQZObjectInfo>);

TEST(CQZObjectInfo, HasTheDefaultsOfANewObject) {
    Object object;
    EXPECT_EQ(object.GetSrcName(), u"");
    EXPECT_EQ(object.GetName(), u"");
    EXPECT_EQ(object.GetType(), u"");
    EXPECT_EQ(object.GetTypeSrc(), u"");
    EXPECT_EQ(object.GetTypeMapped(), u"");
    EXPECT_EQ(object.GetTypeMappedString(), u"");
    EXPECT_EQ(object.GetLength(), -1);
    EXPECT_EQ(object.GetLengthMapped(), -1);
    EXPECT_EQ(object.GetScale(), 0);
    EXPECT_EQ(object.GetScaleMapped(), 0);
    EXPECT_EQ(object.GetDataType(), 0);
    EXPECT_EQ(object.GetState(), 1);
    EXPECT_EQ(object.GetCorrect(), 0);
    EXPECT_EQ(object.GetDbTypeSrcLast(), 0);
    EXPECT_EQ(object.GetDbTypeSrcCur(), 0);
    EXPECT_EQ(object.GetAutoIncrMapped(), 0);
    EXPECT_EQ(object.GetUnsignedMapped(), 0);
    EXPECT_EQ(object.GetIndexOff(), 0);
    EXPECT_EQ(object.GetSelected(), 1);
    EXPECT_EQ(object.GetLowerCase(), 0);
    EXPECT_EQ(object.Resolved, 0);
    EXPECT_EQ(object.Calculated, 0);
}

TEST(CQZObjectInfo, TellsNothingThatOnlyDerivedClassesKnow) {
    Object object;
    EXPECT_EQ(object.GetDBType(), 0);
    EXPECT_EQ(object.GetMaxNameLength(), -1);
    EXPECT_EQ(object.HasQuerySource(), 1);
    object.SetType(u"int");
    object.BuildTypeMappedString();
    EXPECT_EQ(object.GetTypeMappedString(), u"");
}

TEST(CQZObjectInfo, HasAFreshGuidInBraces) {
    Object one;
    const Object other;
    const CString guid = one.GetGUID();
    ASSERT_EQ(guid.GetLength(), 38);
    EXPECT_EQ(guid[0], u'{');
    EXPECT_EQ(guid[37], u'}');
    for (const int dash : {9, 14, 19, 24}) EXPECT_EQ(guid[dash], u'-');
    EXPECT_NE(guid, other.GetGUID());
    one.NewGUID();
    EXPECT_NE(one.GetGUID(), guid);
    EXPECT_EQ(one.GetGUID().GetLength(), 38);
}

TEST(CQZObjectInfo, KeepsTextsAsGivenButTrimsTypes) {
    Object object;
    object.SetGUID(u" any text ");
    EXPECT_EQ(object.GetGUID(), u" any text ");
    object.SetName(u" Name\t");
    EXPECT_EQ(object.GetName(), u" Name\t");
    object.SetSrcName(u"  Source ");
    EXPECT_EQ(object.GetSrcName(), u"  Source ");
    object.SetType(u" \t var char \r\n");
    EXPECT_EQ(object.GetType(), u"var char");
    object.SetTypeMapped(u"  text  ");
    EXPECT_EQ(object.GetTypeMapped(), u"text");
}

TEST(CQZObjectInfo, TheTwoSourceTypesAreOne) {
    Object object;
    object.SetTypeSrc(u" memo ");
    EXPECT_EQ(object.GetType(), u"memo");
    object.SetType(u"long");
    EXPECT_EQ(object.GetTypeSrc(), u"long");
}

TEST(CQZObjectInfo, SettersOfNumbersCanBeChained) {
    Object object;
    CQZObjectInfo& chained = object.SetLength(1)
                                 .SetLengthMapped(2)
                                 .SetScale(3)
                                 .SetScaleMapped(4)
                                 .SetDataType(5)
                                 .SetState(6)
                                 .SetCorrect(7)
                                 .SetDbTypeSrcLast(8)
                                 .SetDbTypeSrcCur(9)
                                 .SetAutoIncrMapped(10)
                                 .SetUnsignedMapped(11)
                                 .SetIndexOff(12);
    EXPECT_EQ(&chained, &object);
    EXPECT_EQ(object.GetLength(), 1);
    EXPECT_EQ(object.GetLengthMapped(), 2);
    EXPECT_EQ(object.GetScale(), 3);
    EXPECT_EQ(object.GetScaleMapped(), 4);
    EXPECT_EQ(object.GetDataType(), 5);
    EXPECT_EQ(object.GetState(), 6);
    EXPECT_EQ(object.GetCorrect(), 7);
    EXPECT_EQ(object.GetDbTypeSrcLast(), 8);
    EXPECT_EQ(object.GetDbTypeSrcCur(), 9);
    EXPECT_EQ(object.GetAutoIncrMapped(), 10);
    EXPECT_EQ(object.GetUnsignedMapped(), 11);
    EXPECT_EQ(object.GetIndexOff(), 12);
    object.SetSelected(0);
    EXPECT_EQ(object.GetSelected(), 0);
}

// An object whose names and types are all the same text. TypeMappedString has no setter, so it comes from a copy.
class Named : public Object {
 public:
    explicit Named(const CString& text) {
        SetName(text);
        SetSrcName(text);
        SetGUID(text);
        SetType(text);
        SetTypeMapped(text);
        TypeMappedString = text;
    }
};

struct CaseRow {
    short rule;
    const char16_t* name;
    const char16_t* type;

    friend void PrintTo(const CaseRow& row, std::ostream* out) { *out << row.rule; }
};

class CaseRule : public testing::TestWithParam<CaseRow> {};

TEST_P(CaseRule, IsAppliedByTheGetters) {
    Named object(u"OrderÄß");
    object.SetLowerCase(GetParam().rule);
    EXPECT_EQ(object.GetLowerCase(), GetParam().rule);
    EXPECT_EQ(object.GetName(), GetParam().name);
    EXPECT_EQ(object.GetType(), GetParam().type);
    EXPECT_EQ(object.GetTypeSrc(), GetParam().type);
    EXPECT_EQ(object.GetTypeMapped(), GetParam().type);
    EXPECT_EQ(object.GetTypeMappedString(), GetParam().type);
    EXPECT_EQ(object.GetSrcName(), u"OrderÄß");
    EXPECT_EQ(object.GetGUID(), u"OrderÄß");
}

INSTANTIATE_TEST_SUITE_P(AllRules, CaseRule,
                         testing::Values(CaseRow{0, u"OrderÄß", u"OrderÄß"}, CaseRow{1, u"ORDERÄß", u"ORDERÄß"},
                                         CaseRow{2, u"orderäß", u"orderäß"}, CaseRow{3, u"order_äß", u"OrderÄß"},
                                         CaseRow{4, u"OrderÄß", u"OrderÄß"}, CaseRow{-1, u"OrderÄß", u"OrderÄß"}));

TEST(CQZObjectInfo, TheCaseRuleDoesNotChangeWhatIsStored) {
    Named object(u"Mixed");
    object.SetLowerCase(1);
    EXPECT_EQ(object.GetName(), u"MIXED");
    object.SetLowerCase(0);
    EXPECT_EQ(object.GetName(), u"Mixed");
}

struct UnderscoreRow {
    const char16_t* name;
    const char16_t* form;
};

class UnderscoreForm : public testing::TestWithParam<UnderscoreRow> {};

TEST_P(UnderscoreForm, SeparatesCapitals) {
    Object object;
    object.SetLowerCase(3);
    object.SetName(GetParam().name);
    EXPECT_EQ(object.GetName(), GetParam().form);
}

INSTANTIATE_TEST_SUITE_P(
    Names, UnderscoreForm,
    testing::Values(UnderscoreRow{u"OrderDetails", u"order_details"}, UnderscoreRow{u"ID", u"i_d"},
                    UnderscoreRow{u"Order_Details", u"order_details"}, UnderscoreRow{u"", u""},
                    UnderscoreRow{u"A", u"a"}, UnderscoreRow{u"a", u"a"}, UnderscoreRow{u"_A", u"_a"},
                    UnderscoreRow{u"__A", u"__a"}, UnderscoreRow{u"A_", u"a_"}, UnderscoreRow{u"aB_Cd", u"a_b_cd"},
                    UnderscoreRow{u"X1Y2", u"x1_y2"}, UnderscoreRow{u"Order Details", u"order _details"},
                    UnderscoreRow{u"ABC", u"a_b_c"}, UnderscoreRow{u"ЗаказКлиента", u"заказ_клиента"},
                    UnderscoreRow{u"ÄpfelÖl", u"äpfel_öl"}, UnderscoreRow{u"ΑΩ", u"α_ω"}, UnderscoreRow{u"xǅ", u"xǆ"},
                    UnderscoreRow{u"a\U00010400", u"a\U00010400"}));

TEST(CQZObjectInfo, TheUnderscoreFormOfALongNameIsMadeInOneGo) {
    constexpr int kLength = 1000000;
    Object object;
    object.SetLowerCase(3);
    object.SetName(CString(u'A', kLength));
    const CString name = object.GetName();
    EXPECT_EQ(name.GetLength(), 2 * kLength - 1);
    EXPECT_EQ(name.Left(5), u"a_a_a");
    EXPECT_EQ(name.Right(3), u"a_a");
}

class Limited : public Object {
 public:
    explicit Limited(int limit) : m_Limit(limit) {}
    int GetMaxNameLength() const override { return m_Limit; }

 private:
    int m_Limit;
};

CString Truncated(int limit, const CString& name, short rule = 0) {
    Limited object(limit);
    object.SetName(name);
    object.SetLowerCase(rule);
    object.TruncateName();
    object.SetLowerCase(0);
    return object.GetName();
}

TEST(CQZObjectInfo, CutsANameThatIsTooLong) {
    EXPECT_EQ(Truncated(-1, u"Customers"), u"Customers");
    EXPECT_EQ(Truncated(9, u"Customers"), u"Customers");
    EXPECT_EQ(Truncated(8, u"Customers"), u"Customer");
    EXPECT_EQ(Truncated(0, u"Customers"), u"");
    EXPECT_EQ(Truncated(3, u""), u"");
}

TEST(CQZObjectInfo, StoresACutNameInTheFormOfTheCaseRule) {
    EXPECT_EQ(Truncated(8, u"OrderDetails", 3), u"order_de");
    EXPECT_EQ(Truncated(5, u"Customers", 1), u"CUSTO");
    EXPECT_EQ(Truncated(12, u"OrderDetails", 3), u"order_detail");
    EXPECT_EQ(Truncated(13, u"OrderDetails", 3), u"OrderDetails");
}

// Notes which getters it is asked by.
class Asked final : public Named {
 public:
    using Named::Named;
    CString GetName() const override { return Noted("Name", Named::GetName()); }
    CString GetTypeSrc() const override { return Noted("TypeSrc", Named::GetTypeSrc()); }
    CString GetTypeMapped() const override { return Noted("TypeMapped", Named::GetTypeMapped()); }
    CString GetTypeMappedString() const override { return Noted("TypeMappedString", Named::GetTypeMappedString()); }
    int GetLength() const override { return Noted("Length", 101); }
    int GetLengthMapped() const override { return Noted("LengthMapped", 102); }
    int GetScale() const override { return Noted("Scale", 103); }
    int GetScaleMapped() const override { return Noted("ScaleMapped", 104); }
    int GetState() const override { return Noted("State", 105); }
    int GetCorrect() override { return Noted("Correct", 106); }
    int GetDbTypeSrcLast() const override { return Noted("DbTypeSrcLast", 107); }
    int GetDbTypeSrcCur() const override { return Noted("DbTypeSrcCur", 108); }
    int GetSelected() const override { return Noted("Selected", 109); }
    short GetLowerCase() const override { return Noted("LowerCase", short{0}); }
    int GetAutoIncrMapped() const override { return Noted("AutoIncrMapped", 110); }
    int GetUnsignedMapped() const override { return Noted("UnsignedMapped", 111); }
    int GetIndexOff() const override { return Noted("IndexOff", 112); }

    mutable Log asked;

 private:
    template <class Value>
    Value Noted(const char* name, Value value) const {
        asked.emplace_back(name);
        return value;
    }
};

TEST(CQZObjectInfo, CopyFromAsksTheGettersInOrder) {
    Asked other(u"Other");
    Object object;
    object.CopyFrom(&other, 7);
    EXPECT_EQ(other.asked, Log({"Name", "TypeSrc", "TypeMapped", "TypeMappedString", "Length", "LengthMapped", "Scale",
                                "ScaleMapped", "State", "Correct", "DbTypeSrcLast", "DbTypeSrcCur", "Selected",
                                "LowerCase", "AutoIncrMapped", "UnsignedMapped", "IndexOff"}));
}

TEST(CQZObjectInfo, CopyFromTakesWhatTheGettersTell) {
    Asked other(u"Other");
    other.SetDataType(113);
    Object object;
    object.CopyFrom(&other, 0);
    EXPECT_EQ(object.GetName(), u"Other");
    EXPECT_EQ(object.GetType(), u"Other");
    EXPECT_EQ(object.GetTypeMapped(), u"Other");
    EXPECT_EQ(object.GetTypeMappedString(), u"Other");
    EXPECT_EQ(object.GetLength(), 101);
    EXPECT_EQ(object.GetLengthMapped(), 102);
    EXPECT_EQ(object.GetScale(), 103);
    EXPECT_EQ(object.GetScaleMapped(), 104);
    EXPECT_EQ(object.GetDataType(), 113);
    EXPECT_EQ(object.GetState(), 105);
    EXPECT_EQ(object.GetCorrect(), 106);
    EXPECT_EQ(object.GetDbTypeSrcLast(), 107);
    EXPECT_EQ(object.GetDbTypeSrcCur(), 108);
    EXPECT_EQ(object.GetSelected(), 109);
    EXPECT_EQ(object.GetAutoIncrMapped(), 110);
    EXPECT_EQ(object.GetUnsignedMapped(), 111);
    EXPECT_EQ(object.GetIndexOff(), 112);
}

TEST(CQZObjectInfo, CopyFromTakesNamesInTheOthersCase) {
    Named other(u"OrderDetails");
    other.SetLowerCase(3);
    Object object;
    object.CopyFrom(&other, 0);
    EXPECT_EQ(object.GetLowerCase(), 3);
    object.SetLowerCase(0);
    EXPECT_EQ(object.GetName(), u"order_details");
    EXPECT_EQ(object.GetType(), u"OrderDetails");
}

TEST(CQZObjectInfo, CopyFromLeavesIdentityAndSourceName) {
    Named other(u"Other");
    other.Resolved = 1;
    other.Calculated = 1;
    Object object;
    object.SetSrcName(u"Mine");
    const CString guid = object.GetGUID();
    object.CopyFrom(&other, 0);
    EXPECT_EQ(object.GetGUID(), guid);
    EXPECT_EQ(object.GetSrcName(), u"Mine");
    EXPECT_EQ(object.Resolved, 0);
    EXPECT_EQ(object.Calculated, 0);
}

class Deaf final : public Object {
 public:
    void SetName(CString) override {}
    void SetSelected(int) override {}
    CQZObjectInfo& SetLength(int) override { return *this; }
};

TEST(CQZObjectInfo, CopyFromBypassesTheSetters) {
    Named other(u"Other");
    other.SetSelected(0);
    other.SetLength(5);
    Deaf object;
    object.CopyFrom(&other, 0);
    EXPECT_EQ(object.GetName(), u"Other");
    EXPECT_EQ(object.GetSelected(), 0);
    EXPECT_EQ(object.GetLength(), 5);
}

TEST(CQZObjectInfo, CopyFromAQueryRunsItsCheck) {
    CQZQueryInfo query;
    query.SetCorrect(9);
    query.m_mapSources.SetAt(u"nowhere", u"nowhere");
    Object object;
    object.CopyFrom(&query, 0);
    EXPECT_EQ(object.GetCorrect(), 1);
}

TEST(CQZObjectInfo, ACopyIsTheSameInAllItHolds) {
    Named original(u"OrderDetails");
    original.SetLength(1).SetLengthMapped(2).SetScale(3).SetScaleMapped(4).SetDataType(5).SetState(6).SetCorrect(7);
    original.SetDbTypeSrcLast(8).SetDbTypeSrcCur(9).SetAutoIncrMapped(10).SetUnsignedMapped(11).SetIndexOff(12);
    original.SetSelected(0);
    original.SetLowerCase(3);
    original.Resolved = 13;
    original.Calculated = 14;
    const std::unique_ptr<Object> copy(original.Clone(0));
    EXPECT_EQ(copy->GetGUID(), original.GetGUID());
    EXPECT_EQ(copy->GetSrcName(), u"OrderDetails");
    EXPECT_EQ(copy->GetName(), u"order_details");
    EXPECT_EQ(copy->GetType(), u"OrderDetails");
    EXPECT_EQ(copy->GetTypeMapped(), u"OrderDetails");
    EXPECT_EQ(copy->GetTypeMappedString(), u"OrderDetails");
    EXPECT_EQ(copy->GetLength(), 1);
    EXPECT_EQ(copy->GetLengthMapped(), 2);
    EXPECT_EQ(copy->GetScale(), 3);
    EXPECT_EQ(copy->GetScaleMapped(), 4);
    EXPECT_EQ(copy->GetDataType(), 5);
    EXPECT_EQ(copy->GetState(), 6);
    EXPECT_EQ(copy->GetCorrect(), 7);
    EXPECT_EQ(copy->GetDbTypeSrcLast(), 8);
    EXPECT_EQ(copy->GetDbTypeSrcCur(), 9);
    EXPECT_EQ(copy->GetAutoIncrMapped(), 10);
    EXPECT_EQ(copy->GetUnsignedMapped(), 11);
    EXPECT_EQ(copy->GetIndexOff(), 12);
    EXPECT_EQ(copy->GetSelected(), 0);
    EXPECT_EQ(copy->GetLowerCase(), 3);
    EXPECT_EQ(copy->Resolved, 13);
    EXPECT_EQ(copy->Calculated, 14);
    copy->SetLowerCase(0);
    EXPECT_EQ(copy->GetName(), u"OrderDetails");
}

}  // namespace
