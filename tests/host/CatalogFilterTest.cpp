// Row filters as SQL, in four dialects.
#include <gtest/gtest.h>

#include "host/catalog_filter.h"
#include "tests/host/CatalogSamples.h"
#include "tests/platform/PrintText.h"
#include "tests/support/MemoryStore.h"

namespace qzsql {
namespace {

const DatabaseKind& Kind(std::string_view name) { return *FindKind(name); }

CString Sql(std::string_view kind, const CString& field, std::string_view comparison, const QZFieldValue& value = {}) {
    return QZOwned<CatalogFilterItem>(Condition(Kind(kind), field, comparison, value))->GetSQLText();
}

TEST(CatalogFilter, NamesAreQuotedAsTheKindDoesIt) {
    EXPECT_EQ(Sql("access", u"Due Date", "is-null"), u"[Due Date] IS NULL");
    EXPECT_EQ(Sql("mssql", u"a]b", "is-not-null"), u"[a]]b] IS NOT NULL");
    EXPECT_EQ(Sql("mysql", u"a`b", "is-null"), u"`a``b` IS NULL");
    EXPECT_EQ(Sql("oracle", u"a\"b", "is-null"), u"\"a\"\"b\" IS NULL");
}

TEST(CatalogFilter, ValuesAreWrittenAsTheirType) {
    EXPECT_EQ(Sql("access", u"f", "=", {u"5", kNumberValue}), u"[f] = 5");
    EXPECT_EQ(Sql("access", u"f", "<>", {u"O'Neil", kTextValue}), u"[f] <> 'O''Neil'");
    EXPECT_EQ(Sql("access", u"f", "<", {u"2020-01-31", kDateValue}), u"[f] < #2020-01-31#");
    EXPECT_EQ(Sql("mssql", u"f", "<=", {u"2020-01-31", kDateValue}), u"[f] <= '2020-01-31'");
    EXPECT_EQ(Sql("mysql", u"f", ">", {u"2020-01-31", kDateValue}), u"`f` > '2020-01-31'");
    EXPECT_EQ(Sql("oracle", u"f", ">=", {u"2020-01-31 00:00:00", kDateValue}),
              u"\"f\" >= TIMESTAMP '2020-01-31 00:00:00'");
    EXPECT_EQ(Sql("access", u"f", "like", {u"A*", kTextValue}), u"[f] LIKE 'A*'");
    EXPECT_EQ(Sql("access", u"f", "=", QZFieldValue()), u"[f] = NULL");
}

TEST(CatalogFilter, ACodeThatNobodyKnowsIsShown) {
    const QZOwned<CatalogFilterItem> item(new CatalogFilterItem(DefaultKind()));
    for (const int code : {-1, 9, 1000}) {
        item->Set(u"f", code, QZFieldValue(), kAnd);
        EXPECT_EQ(item->GetSQLText(), u"[f] /* condition " + CString::FromInt(code) + u" */");
    }
}

TEST(CatalogFilter, ConditionsAreJoinedInTheirOrder) {
    const QZOwned<CatalogFilter> filter(new CatalogFilter(DefaultKind()));
    EXPECT_EQ(filter->GetSQLText(), u"");
    filter->m_listItems.AddTail(Condition(DefaultKind(), u"a", "is-null", {}, kOr));
    filter->m_listItems.AddTail(Condition(DefaultKind(), u"b", "is-null", {}, kOr));
    filter->m_listItems.AddTail(Condition(DefaultKind(), u"c", "is-null", {}, kAnd));
    EXPECT_EQ(filter->GetSQLText(), u"[a] IS NULL OR [b] IS NULL AND [c] IS NULL");
    filter->SetSQLQuery(u"a + b > 0");
    EXPECT_EQ(filter->GetSQLText(), u"[a] IS NULL OR [b] IS NULL AND [c] IS NULL");
    filter->SetUseSQLQuery(1);
    EXPECT_EQ(filter->GetSQLText(), u"a + b > 0");
}

TEST(CatalogFilter, ComesBackFromAStore) {
    const QZOwned<CatalogFilter> saved(new CatalogFilter(Kind("oracle")));
    saved->m_listItems.AddTail(Condition(Kind("oracle"), u"n", ">=", {u"5", kNumberValue}));
    saved->m_listItems.AddTail(Condition(Kind("oracle"), u"d", "<", {u"2020-01-31", kDateValue}, kOr));
    saved->m_listItems.AddTail(Condition(Kind("oracle"), u"x", "is-null"));
    MemoryStore store;
    saved->Save(&store);
    const QZOwned<CatalogFilter> loaded(new CatalogFilter(Kind("oracle")));
    CatalogFactory factory;
    loaded->Load(&store, &factory);
    EXPECT_EQ(loaded->GetSQLText(), u"\"n\" >= 5 OR \"d\" < TIMESTAMP '2020-01-31' AND \"x\" IS NULL");
}

TEST(CatalogFilter, TypesOfValuesFollowTheFields) {
    for (const char16_t* type :
         {u"INTEGER", u"bigint", u"DECIMAL", u"Currency", u"double precision", u"MONEY", u"byte"}) {
        EXPECT_EQ(ValueTypeOf(type), kNumberValue) << CString(type).ToUtf8();
    }
    for (const char16_t* type :
         {u"VARCHAR", u"NCHAR", u"Text", u"longtext", u"", u"BLOB", u"uniqueidentifier", u"Yes/No"}) {
        EXPECT_EQ(ValueTypeOf(type), kTextValue) << CString(type).ToUtf8();
    }
    for (const char16_t* type : {u"DATE", u"datetime2", u"Timestamp"}) {
        EXPECT_EQ(ValueTypeOf(type), kDateValue) << CString(type).ToUtf8();
    }
}

TEST(DatabaseKinds, NamesLoseTheQuotesOfTheirKind) {
    EXPECT_EQ(UnquoteName(Kind("access"), u"[Due Date]"), u"Due Date");
    EXPECT_EQ(UnquoteName(Kind("mysql"), u"`t`"), u"t");
    EXPECT_EQ(UnquoteName(Kind("oracle"), u"\"t\""), u"t");
    EXPECT_EQ(UnquoteName(Kind("oracle"), u"[t]"), u"[t]");
    EXPECT_EQ(UnquoteName(Kind("oracle"), u"\""), u"\"");
    EXPECT_EQ(UnquoteName(Kind("access"), u"[t"), u"[t");
    EXPECT_EQ(UnquoteName(Kind("access"), u""), u"");
}

}  // namespace
}  // namespace qzsql
