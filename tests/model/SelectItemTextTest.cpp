// The SQL text of select items.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/model/Samples.h"

namespace {

using sample::Item;

struct TextRow {
    const char* name;
    const char16_t* table;
    const char16_t* field;
    const char16_t* firstChild;  // null for no children
    const char16_t* text;
};

class FieldText : public testing::TestWithParam<TextRow> {};

TEST_P(FieldText, IsMadeOfTheResolvedNames) {
    SelectItemField field;
    field.SetQuoteOpen(u"[");
    field.SetQuoteClose(u"]");
    field.SetTableName(u"WrittenTable");
    field.SetFieldName(u"WrittenField");
    field.SetTableAlias(u"TableAlias");
    field.SetFieldAlias(u"FieldAlias");
    field.SetOutputName(u"Output");
    field.SetSchemaName(u"Schema");
    field.Text = u"Text";
    field.SetResolvedTable(GetParam().table);
    field.SetResolvedField(GetParam().field);
    if (GetParam().firstChild != nullptr) {
        field.Children.AddTail(Item(GetParam().firstChild));
        field.Children.AddTail(Item(u"*"));
    }
    EXPECT_EQ(field.GetSQLText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Forms, FieldText,
                         testing::Values(TextRow{"Unresolved", u"", u"", nullptr, u""},
                                         TextRow{"Star", u"", u"", u"*", u"*"}, TextRow{"NoStar", u"", u"", u"x", u""},
                                         TextRow{"TableAndStar", u"T", u"", u"*", u"[T].*"},
                                         TextRow{"TableAndNoStar", u"T", u"", u"x", u""},
                                         TextRow{"TableAndLongerText", u"T", u"", u"**", u""},
                                         TextRow{"TableAlone", u"T", u"", nullptr, u"[T]"},
                                         TextRow{"FieldAlone", u"", u"F", nullptr, u"[F]"},
                                         TextRow{"FieldAndStar", u"", u"F", u"*", u"[F]"},
                                         TextRow{"Both", u"T", u"F", nullptr, u"[T].[F]"},
                                         TextRow{"BothAndStar", u"T", u"F", u"*", u"[T].[F]"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SelectItemText, QuotesAreEmptyUntilTheyAreSet) {
    SelectItemField field;
    field.SetResolvedTable(u"T");
    field.SetResolvedField(u"F");
    EXPECT_EQ(field.GetSQLText(), u"T.F");
    field.SetQuoteOpen(u"<<");
    EXPECT_EQ(field.GetSQLText(), u"<<T.<<F");
}

TEST(SelectItemText, IsTheTextOfOtherItems) {
    EXPECT_EQ(std::unique_ptr<SelectItem>(Item(u"'x'"))->GetSQLText(), u"'x'");
    SelectItemSubQuery subQuery;
    subQuery.Text = u"s";
    EXPECT_EQ(subQuery.GetSQLText(), u"s");
    SelectItemUnion member;
    member.Text = u"u";
    EXPECT_EQ(member.GetSQLText(), u"u");
}

// A call is not rendered by GetSQLText, only by BuildText.
TEST(SelectItemText, AFunctionsOwnTextIsEmpty) {
    SelectItem sum;
    sum.ItemKind = 4;
    sum.FuncName = u"Sum";
    sum.Children.AddTail(Item(u"a"));
    EXPECT_EQ(sum.GetSQLText(), u"");
    EXPECT_EQ(sum.BuildText(), u"Sum(a)");
}

TEST(SelectItemText, ArgumentsAreJoinedByCommas) {
    SelectItem call;
    EXPECT_EQ(call.JoinChildren(), u"");
    EXPECT_EQ(call.BuildText(), u"()");
    call.FuncName = u"f";
    EXPECT_EQ(call.BuildText(), u"f()");
    call.Children.AddTail(Item(u"1"));
    EXPECT_EQ(call.JoinChildren(), u"1");
    call.Children.AddTail(Item(u""));
    call.Children.AddTail(Item(u"3"));
    EXPECT_EQ(call.JoinChildren(), u"1,,3");
    EXPECT_EQ(call.BuildText(), u"f(1,,3)");
}

SelectItem& Infix(SelectItem& item, const CString& name, std::initializer_list<SelectItem*> operands) {
    item.IsOperator = 1;
    item.FuncName = name;
    for (SelectItem* operand : operands) item.Children.AddTail(operand);
    return item;
}

TEST(SelectItemText, AnOperatorStandsBetweenItsOperands) {
    SelectItem item;
    EXPECT_EQ(Infix(item, u"=", {Item(u"a"), Item(u"b")}).BuildText(), u"a = b");
}

TEST(SelectItemText, AnOperatorShowsItsFirstAndItsLastOperand) {
    SelectItem one;
    EXPECT_EQ(Infix(one, u"NOT", {Item(u"a")}).BuildText(), u"a NOT a");
    SelectItem three;
    EXPECT_EQ(Infix(three, u"AND", {Item(u"a"), Item(u"b"), Item(u"c")}).BuildText(), u"a AND c");
}

TEST(SelectItemText, AnyNumberButZeroMakesAnOperator) {
    SelectItem item;
    Infix(item, u"+", {Item(u"a"), Item(u"b")}).IsOperator = -1;
    EXPECT_EQ(item.BuildText(), u"a + b");
}

TEST(SelectItemText, AnOperatorWithoutOperandsThrows) {
    SelectItem item;
    item.IsOperator = 1;
    EXPECT_THROW(item.BuildText(), std::invalid_argument);
}

// One level is rendered: a nested call shows its own, empty text.
TEST(SelectItemText, IsOneLevelDeep) {
    SelectItem outer;
    auto* inner = new SelectItem;
    inner->FuncName = u"g";
    inner->Children.AddTail(Item(u"x"));
    auto* field = new SelectItemField;
    field->SetResolvedField(u"F");
    outer.FuncName = u"f";
    outer.Children.AddTail(inner);
    outer.Children.AddTail(field);
    EXPECT_EQ(outer.BuildText(), u"f(,F)");
    outer.IsOperator = 1;
    EXPECT_EQ(outer.BuildText(), u" f F");
}

}  // namespace
