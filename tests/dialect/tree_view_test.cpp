#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "QZParserSQL/MSAccess_v3/MSAccessSQL_v3Tokens.h"
#include "QZParserSQL/dialect/TreeView.h"
#include "QZParserSQL/front/CQZSQLTree.h"
#include "tests/dialect/Views.h"
#include "tests/front/Slot.h"
#include "tests/support/Recognition.h"

namespace {

using namespace std::string_view_literals;

// A parsed text and the view of its tree.
class Tree {
 public:
    explicit Tree(std::u16string_view sql) : m_Text(sql) {
        m_Parser.SetSQL(m_Text);
        m_Parser.ParseSQL();
        m_View = ViewOf(m_Parser);
    }

    CQZSQLTree& Root() { return *m_View; }
    CQZSQLTree& Query() { return *Root().GetChild(0); }

 private:
    CString m_Text;
    CQZMSAccessSQL_v3Parcer m_Parser;
    std::unique_ptr<CQZSQLTree> m_View;
};

// The dialects' body of a view, which counts the views that there are.
class CountedView final : public TreeView {
 public:
    CountedView() : TreeView(QZGrammarMSAccessSQL_v3()) {
        ++made;
        ++alive;
    }
    ~CountedView() override { --alive; }

    static int made;
    static int alive;

 private:
    TreeView* NewOfSameClass() const override { return new CountedView; }
};

int CountedView::made = 0;
int CountedView::alive = 0;

TEST(TreeView, ShowsTokensByTheirTextAndMadeNodesByTheirName) {
    Tree tree(u"SELECT [Unit Price], 'it', Größe FROM t");
    CQZSQLTree& list = *tree.Query().GetChild(0);
    EXPECT_EQ(Shape(list),
              "SELECT_LIST(COLUMN_SPECIFICATION(COLUMN_NAME([Unit Price])) SQL_LITERAL(SQL_STRING('it')) "
              "COLUMN_SPECIFICATION(COLUMN_NAME(Größe)))");
    CQZSQLTree& column = *list.GetChild(0);
    EXPECT_EQ(list.GetType(), MSAccessSQL_v3::SELECT_LIST);
    EXPECT_EQ(column.GetType(), MSAccessSQL_v3::COLUMN_SPECIFICATION);
    EXPECT_EQ(column.GetChild(0)->GetType(), MSAccessSQL_v3::COLUMN_NAME);
    EXPECT_EQ(column.GetChild(0)->GetChild(0)->GetType(), MSAccessSQL_v3::COL_PAREN_ATTRITION);
}

TEST(TreeView, ShowsTheNilRootAndTheEndOfTheText) {
    Tree tree(u"SELECT a");
    EXPECT_EQ(tree.Root().GetText(), u"nil");
    EXPECT_EQ(tree.Root().GetType(), 0U);
    ASSERT_EQ(tree.Root().GetChildCount(), 2U);
    CQZSQLTree& end = *tree.Root().GetChild(1);
    EXPECT_EQ(end.GetText(), u"<EOF>");
    EXPECT_EQ(end.GetType(), std::numeric_limits<std::uint32_t>::max());
    EXPECT_EQ(end.GetChildCount(), 0U);
}

TEST(TreeView, ShowsUnitsOfTheTextUnchanged) {
    Tree tree(u"SELECT 'a\0b\xD83D\xDE00\xDC00'"sv);
    CQZSQLTree& literal = *tree.Query().GetChild(0)->GetChild(0);
    EXPECT_EQ(literal.GetChild(0)->GetChild(0)->GetText(), u"'a\0b\xD83D\xDE00\xDC00'"sv);
}

TEST(TreeView, GivesTheSameViewOfAChildEachTime) {
    Tree tree(u"SELECT a, b FROM t");
    CQZSQLTree& list = *tree.Query().GetChild(0);
    EXPECT_EQ(tree.Root().GetChild(0), &tree.Query());
    CQZSQLTree* const second = list.GetChild(1);
    CQZSQLTree* const first = list.GetChild(0);
    EXPECT_NE(first, second);
    EXPECT_EQ(list.GetChild(0), first);
    EXPECT_EQ(list.GetChild(1), second);
    EXPECT_EQ(Shape(*second), "COLUMN_SPECIFICATION(COLUMN_NAME(b))");
}

TEST(TreeView, GivesAnEmptyViewWhereThereIsNoChild) {
    Tree tree(u"SELECT a FROM t");
    CQZSQLTree& query = tree.Query();
    ASSERT_EQ(query.GetChildCount(), 2U);
    for (const std::uint32_t index : {2U, 3U, 9999U, 10000U, 4294967295U}) {
        CQZSQLTree* const none = query.GetChild(index);
        ASSERT_NE(none, nullptr);
        EXPECT_EQ(none->GetChildCount(), 0U);
        EXPECT_EQ(none->GetText(), u" ");
        EXPECT_EQ(none->GetType(), 0U);
        EXPECT_EQ(query.GetChild(index), none);
        for (const std::uint32_t other : {0U, 1U, index - 1, index + 1}) EXPECT_NE(query.GetChild(other), none);
    }
    EXPECT_EQ(query.GetChildCount(), 2U);
}

TEST(TreeView, GivesALeafAndAnEmptyViewEmptyChildren) {
    Tree tree(u"SELECT a");
    CQZSQLTree* const leaf = tree.Root().GetChild(1);
    CQZSQLTree* const none = leaf->GetChild(0);
    ASSERT_NE(none, nullptr);
    CQZSQLTree* const below = none->GetChild(7);
    ASSERT_NE(below, nullptr);
    EXPECT_NE(below, none);
    EXPECT_EQ(below->GetText(), u" ");
    EXPECT_EQ(none->GetChild(7), below);
}

TEST(TreeView, FindsEachOfManyChildren) {
    std::u16string sql = u"SELECT c0";
    for (int i = 1; i < 10002; ++i) sql += (u", c" + CString::FromInt(i)).View();
    Tree tree(sql);
    CQZSQLTree& list = *tree.Query().GetChild(0);
    ASSERT_EQ(list.GetChildCount(), 10002U);
    for (const std::uint32_t index : {10001U, 0U, 9U, 10U, 999U, 1000U, 9999U, 10000U}) {
        EXPECT_EQ(list.GetChild(index)->GetChild(0)->GetChild(0)->GetText(), u"c" + CString::FromInt(index));
        EXPECT_EQ(list.GetChild(index), list.GetChild(index));
    }
    EXPECT_EQ(list.GetChild(10002)->GetText(), u" ");
}

TEST(TreeView, MakesAViewOnlyOfWhatIsAskedForAndFreesEachOnce) {
    const Recognition recognition(u"SELECT a, b, c FROM t WHERE a = 1");
    CountedView::made = CountedView::alive = 0;
    {
        CountedView root;
        root.SetNode(recognition.Root());
        EXPECT_EQ(CountedView::made, 1);
        root.GetChild(0)->GetChild(2);
        root.GetChild(0)->GetChild(2);
        root.GetChild(0)->GetChild(100);
        EXPECT_EQ(CountedView::made, 4);
        EXPECT_EQ(CountedView::alive, 4);
    }
    EXPECT_EQ(CountedView::alive, 0);
    {
        CountedView root;
        root.SetNode(recognition.Root());
        Shape(root);
        EXPECT_GT(CountedView::alive, 20);
    }
    EXPECT_EQ(CountedView::alive, 0);
}

TEST(TreeView, LeavesTheNodesToTheParser) {
    const Recognition recognition(u"SELECT a FROM t");
    std::string first;
    for (int i = 0; i < 2; ++i) {
        CountedView root;
        root.SetNode(recognition.Root());
        if (i == 0) first = Shape(root);
        EXPECT_EQ(Shape(root), first);
    }
    EXPECT_NE(first.find("TABLE_NAME(t)"), std::string::npos);
}

// ---------------------------------------------------------------------------------------------------------- the base

class Plain : public CQZSQLTree {
 public:
    CQZSQLTree* GetChild(std::uint32_t) override { return this; }
    std::uint32_t GetChildCount() override { return number; }
    CString GetText() override { return u"plain"; }
    std::uint32_t GetType() override { return number; }

    std::uint32_t number = 0;
};

TEST(TreeViewBase, IsAbstractAndHoldsNoData) {
    EXPECT_TRUE(std::is_abstract_v<CQZSQLTree>);
    EXPECT_TRUE(std::has_virtual_destructor_v<CQZSQLTree>);
    EXPECT_TRUE(std::is_default_constructible_v<Plain>);
    EXPECT_EQ(sizeof(CQZSQLTree), sizeof(void*));
}

TEST(TreeViewBase, KeepsItsVirtualOperationsInOrder) {
    EXPECT_EQ(SlotOf(&CQZSQLTree::GetChild), 2U);
    EXPECT_EQ(SlotOf(&CQZSQLTree::GetChildCount), 3U);
    EXPECT_EQ(SlotOf(&CQZSQLTree::GetText), 4U);
    EXPECT_EQ(SlotOf(&CQZSQLTree::GetType), 5U);
}

TEST(TreeViewBase, CopiesNothing) {
    Plain source;
    source.number = 3;
    Plain target;
    target.number = 5;
    CQZSQLTree& left = target;
    CQZSQLTree& result = left = source;
    EXPECT_EQ(&result, &left);
    EXPECT_EQ(target.number, 5U);
    Plain copy(source);
    EXPECT_EQ(copy.GetChild(0), &copy);
}

TEST(TreeViewBase, HasAnEmptyClassBesideIt) {
    EXPECT_EQ(sizeof(CQZTransformTree), sizeof(void*));
    EXPECT_TRUE(std::has_virtual_destructor_v<CQZTransformTree>);
    EXPECT_FALSE((std::is_base_of_v<CQZSQLTree, CQZTransformTree>));
    const CQZTransformTree transform{};
    EXPECT_NE(&transform, nullptr);
}

}  // namespace
