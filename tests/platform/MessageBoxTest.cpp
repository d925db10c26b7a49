#include <gtest/gtest.h>

#include <thread>

#include "QZParserSQL/platform/MessageBox.h"
#include "tests/platform/PrintText.h"

namespace {

struct Shown {
    HWND owner;
    CString text;
    CString caption;
    unsigned type;
};

int Show(void* context, HWND owner, const CString& text, const CString& caption, unsigned type) {
    *static_cast<Shown*>(context) = {owner, text, caption, type};
    return 7;
}

class MessageBox : public testing::Test {
 protected:
    ~MessageBox() override { QZSetMessageBox(nullptr, nullptr); }
};

TEST_F(MessageBox, ShowsNothingWithoutAHandler) { EXPECT_EQ(MessageBoxW(nullptr, u"text", u"title", MB_ICONERROR), 0); }

TEST_F(MessageBox, HandsEverythingToTheHandlerAndReturnsItsResult) {
    int window = 0;
    const auto owner = reinterpret_cast<HWND>(&window);
    Shown shown{};
    QZSetMessageBox(Show, &shown);
    EXPECT_EQ(MessageBoxW(owner, u"text", u"title", MB_ICONERROR), 7);
    EXPECT_EQ(shown.owner, owner);
    EXPECT_EQ(shown.text, u"text");
    EXPECT_EQ(shown.caption, u"title");
    EXPECT_EQ(shown.type, 16U);
}

TEST_F(MessageBox, NullTakesTheHandlerAway) {
    Shown shown{};
    QZSetMessageBox(Show, &shown);
    QZSetMessageBox(nullptr, &shown);
    EXPECT_EQ(MessageBoxW(nullptr, u"text", u"title", MB_ICONERROR), 0);
    EXPECT_EQ(shown.text, u"");
}

TEST_F(MessageBox, OtherThreadsMayShowBoxesWhileOneIsOpen) {
    QZSetMessageBox(
        [](void*, HWND, const CString&, const CString&, unsigned type) {
            int inner = 0;
            if (type == 1) std::thread([&] { inner = MessageBoxW(nullptr, u"", u"", 2); }).join();
            return inner + static_cast<int>(type);
        },
        nullptr);
    EXPECT_EQ(MessageBoxW(nullptr, u"", u"", 1), 3);
}

}  // namespace
