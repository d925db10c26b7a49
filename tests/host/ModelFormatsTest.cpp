#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "QZParserSQL/model/SelectItemField.h"
#include "QZParserSQL/model/SelectItemSubQuery.h"
#include "QZParserSQL/model/SelectItemUnion.h"
#include "host/model_json.h"
#include "host/model_text.h"
#include "tests/catalog/Concrete.h"

namespace qzsql {
namespace {

using nlohmann::json;

/// A query that a test fills by hand.
class ModelFormats : public testing::Test {
 protected:
    ModelFormats() { query.SetDatabase(&database); }

    json Json() { return json::parse(JsonText()); }
    std::string JsonText() {
        std::string out;
        isWhole = AppendModelJson(out, Shown());
        return out;
    }
    std::string Text() {
        std::string out;
        isWhole = AppendModelText(out, Shown());
        return out;
    }
    Model Shown() const { return {QZGrammarMSAccessSQL_v3(), query, wasBuiltWhole, &labels}; }

    static CQZAliasInfo* Alias(const CString& name, SelectItem* expression) {
        auto* alias = new CQZAliasInfo;
        alias->SetName(name);
        alias->SetSrcName(name);
        alias->Expression = expression;
        return alias;
    }
    static SelectItem* Item(const CString& text) {
        auto* item = new SelectItem;
        item->Text = text;
        return item;
    }
    template <class Nesting>
    static CQZQueryInfo& Nest(CList<SelectItem*>& list) {
        auto* item = new Nesting;
        item->Query = new CQZQueryInfo;
        list.AddTail(item);
        return *item->Query;
    }

    concrete::Database database;
    CQZQueryInfo query;
    ObjectLabels labels;
    bool wasBuiltWhole = true;
    bool isWhole = true;
};

TEST_F(ModelFormats, WhatIsDefaultIsLeftOutButForItemKind) {
    EXPECT_EQ(JsonText(), "{}");
    EXPECT_EQ(Text(), "Query\n");
    query.m_listSelect.AddTail(new SelectItem);
    EXPECT_EQ(JsonText(), R"({"Select":[{"ItemKind":0}]})");
    EXPECT_EQ(Text(), "Query\n  Select\n    ItemKind=0\n");
}

TEST_F(ModelFormats, MembersOfAQuery) {
    query.SetName(u"q");
    query.SetSQL(u"SELECT");
    query.SetSelectQuantifier(2);
    query.SetDataType(8);
    query.SetQueryKind(16);
    query.Resolved = 1;
    EXPECT_EQ(Json(), json::parse(R"({"Name":"q","SQL":"SELECT","SelectQuantifier":2,"DataType":8,"QueryKind":16,
        "Resolved":1})"));
    EXPECT_EQ(Text(), "Query Name=\"q\" SQL=\"SELECT\" SelectQuantifier=2 DataType=8 QueryKind=16 Resolved=1\n");
}

TEST_F(ModelFormats, TheLimitStandsThereWhileThereIsOne) {
    query.SetLimit(0, 5);
    EXPECT_EQ(Json(), json::parse(R"({"HasLimit":1,"LimitSecond":5})"));
    query.SetLimit(3, 0);
    EXPECT_EQ(Json(), json::parse(R"({"HasLimit":1,"LimitFirst":3})"));
}

TEST_F(ModelFormats, ClausesInTheirOrder) {
    query.m_listUnion.AddTail(Item(u"u"));
    query.m_listOrderBy.AddTail(Item(u"o"));
    query.m_listHaving.AddTail(Item(u"h"));
    query.m_listGroupBy.AddTail(Item(u"g"));
    query.m_pWhere = new SelectItem;
    query.m_pWhere->Children.AddTail(Item(u"w"));
    query.m_listFrom.AddTail(Item(u"f"));
    query.m_listSelect.AddTail(Item(u"s"));
    query.m_listSelect.AddTail(Item(u"s2"));
    EXPECT_EQ(Text(),
              "Query\n"
              "  Select\n    ItemKind=0 Text=\"s\"\n    ItemKind=0 Text=\"s2\"\n"
              "  From\n    ItemKind=0 Text=\"f\"\n"
              "  Where ItemKind=0\n    ItemKind=0 Text=\"w\"\n"
              "  GroupBy\n    ItemKind=0 Text=\"g\"\n"
              "  Having\n    ItemKind=0 Text=\"h\"\n"
              "  OrderBy\n    ItemKind=0 Text=\"o\"\n"
              "  Union\n    ItemKind=0 Text=\"u\"\n");
}

TEST_F(ModelFormats, MembersOfItems) {
    auto* field = new SelectItemField;
    field->ItemKind = SelectItem::kAliasReference;
    field->FuncName = u"f";
    field->TokenType = 4;
    field->Text = u"\"x\\\n";
    field->IsOperator = field->IsNested = 1;
    field->HasCalculatedField = 1;
    field->SetTableName(u"1");
    field->SetFieldName(u"2");
    field->SetResolvedTable(u"3");
    field->SetResolvedField(u"4");
    field->SetTableAlias(u"5");
    field->SetFieldAlias(u"6");
    field->SetOutputName(u"7");
    field->SetSchemaName(u"8");
    field->Children.AddTail(Item(u"c"));
    query.m_listSelect.AddTail(field);
    const std::string type = QZTokenName(QZGrammarMSAccessSQL_v3(), 4);
    json expected = json::parse(R"({"Class":"Field","ItemKind":10,"FuncName":"f","Text":"\"x\\\n","IsOperator":1,
        "IsNested":1,"HasCalculatedField":1,"TableName":"1","FieldName":"2","ResolvedTable":"3","ResolvedField":"4",
        "TableAlias":"5","FieldAlias":"6","OutputName":"7","SchemaName":"8","Children":[{"ItemKind":0,"Text":"c"}]})");
    expected["TokenType"] = type;
    EXPECT_EQ(Json()["Select"][0], expected);
    EXPECT_EQ(Text(), "Query\n  Select\n    Class=Field ItemKind=10 FuncName=\"f\" TokenType=" + type +
                          " Text=\"\\\"x\\\\\\n\" IsOperator=1 IsNested=1 HasCalculatedField=1 TableName=\"1\" "
                          "FieldName=\"2\" ResolvedTable=\"3\" ResolvedField=\"4\" TableAlias=\"5\" FieldAlias=\"6\" "
                          "OutputName=\"7\" SchemaName=\"8\"\n      ItemKind=0 Text=\"c\"\n");
}

TEST_F(ModelFormats, ATokenOfOneCaseIsInSingleQuotes) {
    const QZGrammar& grammar = QZGrammarMSAccessSQL_v3();
    std::uint32_t type = 0;
    while (QZTokenName(grammar, type) == nullptr || QZTokenName(grammar, type) != std::string("'count'")) ++type;
    auto* item = new SelectItem;
    item->TokenType = static_cast<int>(type);
    query.m_listSelect.AddTail(item);
    EXPECT_EQ(Json()["Select"][0]["TokenType"], "'count'");
}

TEST_F(ModelFormats, NestedQueries) {
    Nest<SelectItemSubQuery>(query.m_listFrom).SetDataType(2);
    Nest<SelectItemUnion>(query.m_listUnion).SetQueryKind(2);
    query.m_listSubQueries.AddTail(new CQZQueryInfo);
    query.m_listSubQueries.GetHead()->SetDataType(8);
    EXPECT_EQ(Json(), json::parse(R"({"From":[{"Class":"SubQuery","ItemKind":6,"Query":{"DataType":2}}],
        "Union":[{"Class":"Union","ItemKind":8,"Query":{"QueryKind":2}}],"SubQueries":[{"DataType":8}]})"));
    EXPECT_EQ(Text(),
              "Query\n"
              "  From\n    Class=SubQuery ItemKind=6\n      Query DataType=2\n"
              "  Union\n    Class=Union ItemKind=8\n      Query QueryKind=2\n"
              "  SubQueries\n    DataType=8\n");
}

TEST_F(ModelFormats, MapsAreSortedByTheirKeys) {
    for (const CString key : {u"b", u"", u"B", u"a"}) query.m_mapSources.SetAt(key, key + u"!");
    EXPECT_EQ(JsonText(), R"({"Sources":{"":"!","B":"B!","a":"a!","b":"b!"}})");
    EXPECT_EQ(Text(), "Query\n  Sources\n    \"\"=\"!\"\n    \"B\"=\"B!\"\n    \"a\"=\"a!\"\n    \"b\"=\"b!\"\n");
}

TEST_F(ModelFormats, GuidsOfTheCatalogAreShownAsItsObjects) {
    labels[u"{1}"] = u"table:Orders";
    query.m_mapSources.SetAt(u"orders", u"{1}");
    query.m_mapSources.SetAt(u"x", u"{2}");
    EXPECT_EQ(Json()["Sources"], json::parse(R"({"orders":"table:Orders","x":"{2}"})"));
}

TEST_F(ModelFormats, RecordsOfFields) {
    auto* record = new CFieldObject;
    query.m_mapFields.SetAt(u"k2", record);
    record->TableName = u"t";
    record->FieldName = u"f";
    record->UnderAs = 1;
    record->OutputName = u"o";
    query.m_mapFields.SetAt(u"k1", new CFieldObject);
    EXPECT_EQ(JsonText(),
              R"({"Fields":{"k1":{},"k2":{"TableName":"t","FieldName":"f","UnderAs":1,"OutputName":"o"}}})");
    EXPECT_EQ(Text(),
              "Query\n  Fields\n    \"k1\"\n    \"k2\" TableName=\"t\" FieldName=\"f\" UnderAs=1 OutputName=\"o\"\n");
}

TEST_F(ModelFormats, UserFunctionsStandAtTheOutermostQueryAlone) {
    database.m_mapUserFunctions.SetAt(u"g", u"0");
    database.m_mapUserFunctions.SetAt(u"f", u"12");
    Nest<SelectItemSubQuery>(query.m_listFrom).SetDatabase(&database);
    EXPECT_EQ(Json(), json::parse(R"({"From":[{"Class":"SubQuery","ItemKind":6,"Query":{}}],
        "UserFunctions":{"f":12,"g":0}})"));
    EXPECT_NE(Text().find("  UserFunctions\n    \"f\"=12\n    \"g\"=0\n"), std::string::npos);
    query.SetDatabase(nullptr);
    EXPECT_EQ(Json().count("UserFunctions"), 0U);
}

TEST_F(ModelFormats, LoneSurrogatesAreEscapes) {
    query.m_mapSources.SetAt(u"a\xD800", u"\xDC00");
    EXPECT_EQ(JsonText(), R"({"Sources":{"a\ud800":"\udc00"}})");
    EXPECT_EQ(Text(), "Query\n  Sources\n    \"a\\ud800\"=\"\\udc00\"\n");
}

// ------------------------------------------------------------------------------------------------------- aliases

TEST_F(ModelFormats, MembersOfAliases) {
    auto* alias = Alias(u"X", Item(u"e"));
    alias->SetName(u"Y");
    alias->SetAliasTable(u"t");
    alias->SetAliasField(u"f");
    query.m_mapAliases[u"x"] = alias;
    query.m_mapAliases[u"w"] = new CQZAliasInfo;
    EXPECT_EQ(Json()["Aliases"], json::parse(R"({"w":{},"x":{"SrcName":"X","Name":"Y","AliasTable":"t",
        "AliasField":"f","Expression":{"ItemKind":0,"Text":"e"}}})"));
}

TEST_F(ModelFormats, AnAliasThatCameUnchangedIsInherited) {
    for (const CString key : {u"a", u"b", u"c", u"d"}) query.m_mapAliases[key] = Alias(key, Item(u"e"));
    auto& nested = Nest<SelectItemSubQuery>(query.m_listFrom);
    for (const auto& [key, alias] : query.m_mapAliases) nested.m_mapAliases[key] = alias->Clone(0);
    nested.m_mapAliases[u"b"]->SetName(u"other");
    nested.m_mapAliases[u"c"]->Expression->Text = u"changed";
    CQZAliasInfo* outer = query.m_mapAliases[u"d"];
    delete nested.m_mapAliases[u"d"];
    nested.m_mapAliases[u"d"] = Alias(u"d", Item(u"e"));
    auto& deeper = Nest<SelectItemSubQuery>(nested.m_listFrom);
    deeper.m_mapAliases[u"d"] = outer->Clone(0);

    const auto shown = Json()["From"][0]["Query"];
    EXPECT_EQ(shown["Aliases"]["a"], json::parse(R"({"Inherited":1})"));
    EXPECT_EQ(shown["Aliases"]["b"]["Name"], "other");
    EXPECT_EQ(shown["Aliases"]["c"]["Expression"]["Text"], "changed");
    EXPECT_EQ(shown["Aliases"]["d"]["Expression"]["Text"], "e");
    EXPECT_EQ(shown["From"][0]["Query"]["Aliases"]["d"]["Name"], "d") << "not from the query next to it";
    EXPECT_NE(Text().find("\"a\" Inherited=1\n"), std::string::npos);
}

/// The queries of a union, each with the same alias, as those have whose aliases are found once.
TEST_F(ModelFormats, WhatCopiesShareIsShownAgainUpToABound) {
    auto* wide = new SelectItem;
    for (int i = 1; i < 1'000; ++i) wide->Children.AddTail(Item(u"x"));
    const std::unique_ptr<CQZAliasInfo> alias(Alias(u"a", wide));
    constexpr int kMembers = 400;
    for (int i = 0; i < kMembers; ++i) Nest<SelectItemUnion>(query.m_listUnion).m_mapAliases[u"a"] = alias->Clone(0);
    const auto members = Json()["Union"];
    EXPECT_FALSE(isWhole);
    int cut = 0;
    for (const auto& member : members) {
        const auto& expression = member["Query"]["Aliases"]["a"]["Expression"];
        if (expression.count("Cut") != 0) {
            ++cut;
            EXPECT_EQ(expression, json::parse(R"({"Cut":1})"));
        } else {
            EXPECT_EQ(expression["Children"].size(), 999U);
        }
    }
    EXPECT_EQ(cut, kMembers - 1 - 200);  // the list of the children counts too, so that 200 more come to 200,200
    EXPECT_NE(Text().find("Expression Cut=1"), std::string::npos);
    EXPECT_FALSE(isWhole);
}

TEST_F(ModelFormats, WhatIsNotSharedIsNeverCut) {
    for (int i = 0; i < 300; ++i) {
        auto* wide = new SelectItem;
        for (int j = 0; j < 1'000; ++j) wide->Children.AddTail(Item(u"x"));
        query.m_mapAliases[u"a" + CString::FromInt(i)] = Alias(u"a", wide);
    }
    Text();
    EXPECT_TRUE(isWhole);
}

TEST_F(ModelFormats, ABuildThatWasCutIsMarked) {
    wasBuiltWhole = false;
    Nest<SelectItemSubQuery>(query.m_listFrom);
    EXPECT_EQ(JsonText(), R"({"Cut":1,"From":[{"Class":"SubQuery","ItemKind":6,"Query":{}}]})");
}

// --------------------------------------------------------------------------------------------------------- depth

TEST_F(ModelFormats, DeepModelsAreShownWithoutRecursion) {
    constexpr int kDepth = 200'000;
    auto* list = &query.m_listSelect;
    for (int i = 0; i < kDepth; ++i) {
        list->AddTail(new SelectItem);
        list = &list->GetHead()->Children;
    }
    EXPECT_EQ(JsonText().size(), std::string(R"({"Select":[)").size() +
                                     kDepth * std::string(R"({"ItemKind":0)").size() +
                                     (kDepth - 1) * std::string(R"(,"Children":[)").size() + 2 * kDepth + 1);
    const std::string text = Text();
    EXPECT_NE(text.find("\n101> ItemKind=0\n102> ItemKind=0\n"), std::string::npos);
    EXPECT_NE(text.find("\n200001> ItemKind=0\n"), std::string::npos);
    EXPECT_EQ(text.find("\n200002> "), std::string::npos);
}

TEST_F(ModelFormats, DeeplyNestedQueriesAreShownWithoutRecursion) {
    CQZQueryInfo* next = &query;
    for (int i = 0; i < 50'000; ++i) next = &Nest<SelectItemUnion>(next->m_listUnion);
    next->SetDataType(77);
    EXPECT_NE(JsonText().find(R"({"DataType":77})"), std::string::npos);
    EXPECT_NE(Text().find("150000> Query DataType=77\n"), std::string::npos);
}

}  // namespace
}  // namespace qzsql
