#include <gtest/gtest.h>

#include <type_traits>

#include "QZParserSQL/front/CQZException.h"
#include "tests/front/Slot.h"

namespace {

void ExpectValues(CQZParseSQLException& exception, int number, int code, const CString& text) {
    EXPECT_EQ(exception.GetErrNumber(), number);
    EXPECT_EQ(exception.GetErrCode(), code);
    EXPECT_EQ(exception.GetErrString(), text);
    EXPECT_EQ(exception.GetErrMessage(), u"");
}

TEST(ParseException, HoldsWhatItIsBuiltFrom) {
    CQZParseSQLException number(7);
    ExpectValues(number, 7, -1, u"");
    CQZParseSQLException text(u"x", 3);
    ExpectValues(text, 0, 3, u"x");
    CQZParseSQLException highest(u"Größe", 0xFFFFFFFFU);
    ExpectValues(highest, 0, -1, u"Größe");
    CQZParseSQLException negative(-5);
    ExpectValues(negative, -5, -1, u"");
}

TEST(ParseException, IsEmptyByDefault) {
    CQZParseSQLException exception;
    EXPECT_EQ(exception.GetErrString(), u"");
    EXPECT_EQ(exception.GetErrMessage(), u"");
}

TEST(ParseException, CopiesAllThreeValues) {
    CQZParseSQLException source(u"x", 3);
    CQZParseSQLException copy(source);
    ExpectValues(copy, 0, 3, u"x");
    CQZParseSQLException target(7);
    CQZParseSQLException& result = target = source;
    EXPECT_EQ(&result, &target);
    ExpectValues(target, 0, 3, u"x");
    ExpectValues(source, 0, 3, u"x");
    target = CQZParseSQLException(9);
    ExpectValues(target, 9, -1, u"");
    ExpectValues(copy, 0, 3, u"x");
}

TEST(ParseException, TakesTheTextByValue) {
    CString text(u"x");
    CQZParseSQLException exception(text, 1);
    text += u"y";
    EXPECT_EQ(exception.GetErrString(), u"x");
    exception.GetErrString().Empty();
    EXPECT_EQ(exception.GetErrString(), u"x");
}

TEST(ParseException, IsCaughtByItsBase) {
    try {
        throw CQZParseSQLException(u"no such table", 3);
    } catch (CQZException& exception) {
        EXPECT_EQ(exception.GetErrCode(), 3);
        EXPECT_EQ(exception.GetErrString(), u"no such table");
    }
}

TEST(ParseException, HasAnAbstractBase) {
    EXPECT_TRUE(std::is_abstract_v<CQZException>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CQZException>);
    EXPECT_TRUE((std::is_base_of_v<CQZException, CQZParseSQLException>));
    EXPECT_EQ(sizeof(CQZException), sizeof(void*));
}

TEST(ParseException, KeepsItsVirtualOperationsInOrder) {
    EXPECT_EQ(SlotOf(&CQZException::DoMessageBox), 2U);
    EXPECT_EQ(SlotOf(&CQZException::GetErrNumber), 3U);
    EXPECT_EQ(SlotOf(&CQZException::GetErrCode), 4U);
    EXPECT_EQ(SlotOf(&CQZException::GetErrString), 5U);
    EXPECT_EQ(SlotOf(&CQZException::GetErrMessage), 6U);
}

struct ShownBox {
    int count = 0;
    HWND owner = nullptr;
    CString text = u"not shown";
    CString caption = u"not shown";
    unsigned type = 0;
};

int Show(void* context, HWND owner, const CString& text, const CString& caption, unsigned type) {
    auto& box = *static_cast<ShownBox*>(context);
    box = {box.count + 1, owner, text, caption, type};
    return 1;
}

TEST(ParseException, ShowsAnErrorBoxWithoutWords) {
    ShownBox box;
    QZSetMessageBox(Show, &box);
    int window = 0;
    auto* const owner = reinterpret_cast<HWND>(&window);
    CQZParseSQLException exception(u"x", 3);
    exception.DoMessageBox(owner);
    QZSetMessageBox(nullptr, nullptr);
    EXPECT_EQ(box.count, 1);
    EXPECT_EQ(box.owner, owner);
    EXPECT_EQ(box.text, u"");
    EXPECT_EQ(box.caption, u"");
    EXPECT_EQ(box.type, 16U);
    exception.DoMessageBox(owner);
    EXPECT_EQ(box.count, 1) << "nothing is shown without a handler";
}

}  // namespace
