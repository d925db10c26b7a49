// Options by name, and what stands in the way of a change.
#include <gtest/gtest.h>

#include "host/catalog_names.h"
#include "host/catalog_options.h"
#include "host/wrong_usage.h"
#include "tests/host/CatalogSamples.h"
#include "tests/platform/PrintText.h"

namespace qzsql {
namespace {

template <class Do>
std::string Wrong(Do act) {
    try {
        act();
    } catch (const WrongUsage& error) {
        return error.what();
    }
    return "nothing";
}

class CatalogOptionsTest : public testing::Test {
 protected:
    CatalogOptionsTest() { FillCatalog(database_, 1, 2); }

    CatalogTable& Table() { return *database_.Tables()[0]; }
    int Get(const CString& name) { return std::get<int>(FindOption(TableOptions(), name).get(Table())); }
    /// Empty where the option takes the value.
    std::string Set(const CString& name, int value) {
        const auto& option = FindOption(TableOptions(), name);
        option.set(Table(), value);
        return Get(name) == value ? std::string() : Obstacle(Table(), option.name, value);
    }

    CatalogDatabase database_{DefaultKind()};
};

/// Each option of a list takes its ends, and no other option goes with it.
void ExpectIndependent(CQZObjectInfo& object, const Options& options) {
    for (const auto& option : options) {
        std::vector<OptionValue> before;
        for (const auto& other : options) before.push_back(other.get(object));
        const OptionValue former = option.get(object);
        const std::vector<OptionValue> values = option.isNumber
                                                    ? std::vector<OptionValue>{option.lowest, option.highest}
                                                    : std::vector<OptionValue>{CString(u"text"), CString(u"other")};
        for (const auto& value : values) {
            option.set(object, value);
            EXPECT_EQ(option.get(object), value) << option.name;
        }
        option.set(object, former);
        std::vector<OptionValue> after;
        for (const auto& other : options) after.push_back(other.get(object));
        EXPECT_EQ(after, before) << option.name;
    }
}

TEST_F(CatalogOptionsTest, OptionsThatGoByThemselves) {
    CatalogDatabase database(DefaultKind());
    ExpectIndependent(database, DatabaseOptions());
    auto& table = *database_.Tables()[0];
    CatalogField field(DefaultKind());
    ExpectIndependent(field, FieldOptions());
    CatalogIndex index(DefaultKind());
    ExpectIndependent(index, IndexOptions());
    ExpectIndependent(database_.AddQuery(u"q"), QueryOptions());
    for (const char16_t* name : {u"SyncInsert", u"SyncUpdate", u"SyncDrop"}) {
        const auto& option = FindOption(TableOptions(), name);
        option.set(table, 0);
        EXPECT_EQ(std::get<int>(option.get(table)), 0);
    }
}

TEST_F(CatalogOptionsTest, WithoutStructure) {
    EXPECT_EQ(Set(u"CopyStructure", 0), "");
    for (const char16_t* name : {u"CopyIndexes", u"CopyForeignKeys", u"OverwriteTable", u"ModifyFields"}) {
        EXPECT_EQ(Set(name, 1), "CopyStructure of the table is 0") << CString(name).ToUtf8();
    }
    EXPECT_EQ(Set(u"ModifyIndexes", 1), "CopyIndexes of the table is 0");
    EXPECT_EQ(Set(u"ModifyForeignKeys", 1), "CopyForeignKeys of the table is 0");
}

TEST_F(CatalogOptionsTest, WhileTheTableIsOverwritten) {
    EXPECT_EQ(Set(u"OverwriteTable", 1), "");
    for (const char16_t* name : {u"ModifyFields", u"ModifyIndexes", u"ModifyForeignKeys"}) {
        EXPECT_EQ(Set(name, 1), "OverwriteTable of the table is 1") << CString(name).ToUtf8();
    }
    EXPECT_EQ(Set(u"OverwriteTable", 0), "");
    for (const char16_t* name : {u"ModifyFields", u"ModifyIndexes", u"ModifyForeignKeys"}) EXPECT_EQ(Set(name, 1), "");
}

TEST_F(CatalogOptionsTest, WhileTheDatabaseIsOverwritten) {
    database_.SetOverwriteDatabase(1);
    EXPECT_EQ(Get(u"OverwriteTable"), 1);
    EXPECT_EQ(Set(u"OverwriteTable", 0), "OverwriteDatabase of the database is 1");
}

TEST_F(CatalogOptionsTest, WithNothingToCopy) {
    Table().ClearChildren();
    EXPECT_EQ(Set(u"CopyIndexes", 1), "the table has no indexes");
    EXPECT_EQ(Set(u"CopyForeignKeys", 1), "the table has no foreign keys");
}

TEST_F(CatalogOptionsTest, NamesInAnyCaseAndTheNearestOnes) {
    EXPECT_EQ(FindOption(TableOptions(), u"copydata").name, "CopyData");
    EXPECT_EQ(Wrong([] { FindOption(IndexOptions(), u"Slected"); }),
              "unknown option 'Slected'. Did you mean Selected? The options are Selected, Name, LowerCase, State, "
              "IndexOff");
}

TEST_F(CatalogOptionsTest, ValuesOutOfRange) {
    const auto& flag = FindOption(TableOptions(), u"CopyData");
    EXPECT_EQ(ReadValue(flag, u"1"), OptionValue(1));
    for (const char16_t* text : {u"2", u"-1", u"", u"yes", u"1 ", u"99999999999"}) {
        EXPECT_EQ(Wrong([&] { ReadValue(flag, text); }), "CopyData takes 0 or 1, not '" + CString(text).ToUtf8() + "'");
    }
    const auto& threads = FindOption(DatabaseOptions(), u"MaxThreads");
    EXPECT_EQ(ReadValue(threads, u"255"), OptionValue(255));
    EXPECT_EQ(Wrong([&] { ReadValue(threads, u"256"); }), "MaxThreads takes 0 to 255, not '256'");
    EXPECT_EQ(ReadValue(FindOption(DatabaseOptions(), u"Version"), u"1"), OptionValue(CString(u"1")));
}

TEST_F(CatalogOptionsTest, ObjectsByName) {
    database_.AddTable(u"a.b").AddField(u"c.d");
    database_.AddQuery(u"Table1.q");
    EXPECT_EQ(FindObject(database_, u".").object, &database_);
    EXPECT_EQ(FindObject(database_, u"TABLE1").object, &Table());
    EXPECT_EQ(FindObject(database_, u"table1.field2").object, Table().m_listFields.GetTail());
    EXPECT_EQ(FindObject(database_, u"Table1.PRIMARY").object, Table().m_listIndexes.GetHead());
    EXPECT_EQ(FindObject(database_, u"Table1.Before1").object, Table().m_listForeignKeys.GetHead());
    EXPECT_EQ(FindObject(database_, u"table1.Q").object, database_.FindQuery(u"Table1.q"));
    EXPECT_EQ(FindObject(database_, u"a.b").object, database_.FindTable(u"a.b"));
    EXPECT_EQ(FindObject(database_, u"a.b.c.d").object, database_.FindTable(u"a.b")->m_listFields.GetHead());
    EXPECT_EQ(FindObject(database_, u"a.b.c.d").table, database_.FindTable(u"a.b"));
}

TEST_F(CatalogOptionsTest, UnknownObjectsAndTheNearestOnes) {
    database_.AddQuery(u"Tables");
    EXPECT_EQ(Wrong([&] { FindObject(database_, u"Table2"); }),
              "unknown object 'Table2'. Did you mean Table1 or Tables?");
    EXPECT_EQ(Wrong([&] { FindObject(database_, u"Table1.Field3"); }),
              "unknown object 'Table1.Field3'. Did you mean Table1.Field1 or Table1.Field2?");
    EXPECT_EQ(Wrong([&] { FindTable(database_, u"Tables"); }), "unknown table 'Tables'. Did you mean Table1?");
    EXPECT_EQ(Wrong([&] { FindField(Table(), u"Feld1"); }), "unknown field of Table1 'Feld1'. Did you mean Field1?");
    EXPECT_EQ(Wrong([&] { FindObject(database_, u""); }), "unknown object ''.");
}

}  // namespace
}  // namespace qzsql
