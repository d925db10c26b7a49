// The texts of the build: the rewriting of bracketed pairs, and the routines that stand beside it.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <locale>
#include <random>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "QZParserSQL/front/QueryText.h"
#include "QZParserSQL/platform/Console.h"
#include "tests/catalog/Concrete.h"
#include "tests/platform/PrintText.h"

namespace {

using qz::CountFromOffset;
using qz::ResolveSourcesDeep;
using qz::RewriteBracketedPairs;
using qz::SplitUnion;

using Lines = std::vector<std::string>;

// ------------------------------------------------------------------------------------------------------ rewriting

class Rewriting : public testing::Test {
 public:
    Rewriting() {
        QZSetConsoleSink([](void* kept, std::string_view line) { static_cast<Lines*>(kept)->emplace_back(line); },
                         &lines);
    }
    ~Rewriting() override { QZSetConsoleSink(nullptr, nullptr); }

 protected:
    Lines lines;
};

TEST_F(Rewriting, MakesTwoNamesOfABracketedPair) {
    EXPECT_EQ(RewriteBracketedPairs(u"SELECT [t.a] FROM t"), u"SELECT [t].[a] FROM t");
}

TEST_F(Rewriting, LeavesWhatIsNoPairOfWords) {
    for (const CString text : {u"",
                               u"SELECT a FROM t",
                               u"SELECT [t.a.b] FROM t",
                               u"[a b.c]",
                               u"[a.b c]",
                               u"[a]",
                               u"[.a]",
                               u"[a.]",
                               u"[.]",
                               u"[]",
                               u"[a.b",
                               u"a.b]",
                               u"a.b",
                               u"[a-b.c]",
                               u"[a..b]",
                               u"[[a].b]",
                               u"[a.[b]",
                               u"[a. b]",
                               u"[a.b\n]",
                               u"[",
                               u"[a",
                               u"[a.",
                               u"[€.a]",
                               u"[a.b!]",
                               u"[`a.b`]"}) {
        EXPECT_EQ(RewriteBracketedPairs(text), text);
    }
}

TEST_F(Rewriting, TakesLettersOfAllAlphabetsDigitsAndUnderscores) {
    const std::array<std::array<CString, 2>, 8> rows = {{
        {u"[Заказы.Имя]", u"[Заказы].[Имя]"},
        {u"[Größe.é]", u"[Größe].[é]"},
        {u"[表.列1]", u"[表].[列1]"},
        {u"[שם.ערך]", u"[שם].[ערך]"},
        {u"[हित.ก]", u"[हित].[ก]"},
        {u"[\U00010400\U00010401.\U00010402]", u"[\U00010400\U00010401].[\U00010402]"},
        {u"[_.1]", u"[_].[1]"},
        {u"[Tab_1.111sss]", u"[Tab_1].[111sss]"},
    }};
    for (const auto& [text, rewritten] : rows) EXPECT_EQ(RewriteBracketedPairs(text), rewritten);
}

TEST_F(Rewriting, TakesNoHalfOfACharacterForALetter) {
    const CString text = std::u16string(u"[a.") + char16_t{0xD801} + u"]";
    EXPECT_EQ(RewriteBracketedPairs(text), text);
}

TEST_F(Rewriting, FindsPairsWhereverTheyStand) {
    const std::array<std::array<CString, 2>, 7> rows = {{
        {u"[a.b][c.d]", u"[a].[b][c].[d]"},
        {u"[x[a.b]]", u"[x[a].[b]]"},
        {u"[a.b.c][d.e]", u"[a.b.c][d].[e]"},
        {u"[[a.b]", u"[[a].[b]"},
        {u"[a.[b.c]", u"[a.[b].[c]"},
        {u"'[a.b]'\r\n[c.d]", u"'[a].[b]'\r\n[c].[d]"},
        {u"[a].[b], [a.b]", u"[a].[b], [a].[b]"},
    }};
    for (const auto& [text, rewritten] : rows) EXPECT_EQ(RewriteBracketedPairs(text), rewritten);
}

TEST_F(Rewriting, KeepsAnyUnitsAround) {
    const std::u16string around = {0, 0xD800, u'\n', 0xDC00, 0xFFFF};
    EXPECT_EQ(RewriteBracketedPairs(around + u"[a.b]" + around), around + u"[a].[b]" + around);
}

TEST_F(Rewriting, WritesEachMatchWithItsSubMatchesAndTheResultLast) {
    RewriteBracketedPairs(u"SELECT [t.a], [ж.b] FROM t");
    EXPECT_EQ(lines,
              Lines({"[t.a]", "[t.a]", "t.a", "[ж.b]", "[ж.b]", "ж.b", "Output = SELECT [t].[a], [ж].[b] FROM t"}));
}

TEST_F(Rewriting, WritesTheResultAloneWhereNothingMatches) {
    RewriteBracketedPairs(u"SELECT [a b] FROM t");
    RewriteBracketedPairs(u"");
    EXPECT_EQ(lines, Lines({"Output = SELECT [a b] FROM t", "Output = "}));
}

// The same by the expressions themselves, on wide text in a locale that knows all letters.
class ByExpressions {
 public:
    std::wstring Rewrite(const std::wstring& source) {
        std::wstring result = source;
        std::ptrdiff_t delta = 0;
        for (Matches match(source.begin(), source.end(), m_Pair); match != Matches(); ++match) {
            lines.insert(lines.end(), {match->str(), match->str(0), match->str(1)});
            std::wstring names = match->str(1);
            names = WithBrackets(WithBrackets(names, m_First), m_Second);
            result.replace(static_cast<std::size_t>(match->position() + delta), match->str().size(), names);
            delta += static_cast<std::ptrdiff_t>(names.size()) - match->length();
        }
        lines.push_back(L"Output = " + result);
        return result;
    }

    std::vector<std::wstring> lines;

 private:
    using Matches = std::wsregex_iterator;

    std::wregex Expression(const wchar_t* pattern) {
        std::wregex expression;
        expression.imbue(m_Locale);
        expression.assign(pattern, std::regex::ECMAScript);
        return expression;
    }

    static std::wstring WithBrackets(const std::wstring& text, const std::wregex& expression) {
        std::wstring result = text;
        std::ptrdiff_t growth = 0;
        for (Matches match(text.begin(), text.end(), expression); match != Matches(); ++match) {
            const std::wstring name = L"[" + match->str(1) + L"]";
            result.replace(static_cast<std::size_t>(match->position(1) + growth), match->str(1).size(), name);
            growth += static_cast<std::ptrdiff_t>(name.size()) - match->length(1);
        }
        return result;
    }

    std::locale m_Locale{"C.UTF-8"};
    std::wregex m_Pair = Expression(LR"(\[([\w]+\.[\w]+)\])");
    std::wregex m_First = Expression(LR"(([\w]+)\.)");
    std::wregex m_Second = Expression(LR"(\.([\w]+))");
};

CString Narrowed(const std::wstring& wide) {
    std::u16string text;
    for (const wchar_t character : wide) {
        const auto point = static_cast<char32_t>(character);
        if (point >= 0x10000) text += static_cast<char16_t>(0xD7C0 + (point >> 10));
        text += static_cast<char16_t>(point < 0x10000 ? point : 0xDC00 + (point & 0x3FF));
    }
    return text;
}

TEST_F(Rewriting, IsThatOfTheExpressions) {
    std::vector<std::wstring> parts = {L"[a", L"_.", L".9", L"Z]", L"[x.y", L".ж]", L"[é.表]"};
    for (const wchar_t character : std::wstring(L"[[]]..aZ9_éжשก表\u0903\u0301\u0660\U00010400 -\"'`\n€\u2003"))
        parts.emplace_back(1, character);
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> part(0, parts.size() - 1);
    std::uniform_int_distribution<int> length(0, 16);
    ByExpressions expected;
    int rewritten = 0;
    for (int text = 0; text < 20000; ++text) {
        std::wstring source;
        for (int left = length(random); left > 0; --left) source += parts[part(random)];
        lines.clear();
        expected.lines.clear();
        const CString result = Narrowed(expected.Rewrite(source));
        ASSERT_EQ(RewriteBracketedPairs(Narrowed(source)), result);
        ASSERT_EQ(lines.size(), expected.lines.size());
        for (std::size_t i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], Narrowed(expected.lines[i]).ToUtf8());
        if (lines.size() > 1) ++rewritten;
    }
    EXPECT_GT(rewritten, 3000) << "pairs must be among the texts";
}

double SecondsToRewrite(const CString& text) {
    double least = 1e9;
    for (int i = 0; i < 3; ++i) {
        const std::clock_t start = std::clock();
        RewriteBracketedPairs(text);
        least = std::min(least, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return least;
}

std::u16string Repeated(std::u16string_view part, std::size_t length) {
    std::u16string text;
    while (text.size() < length) text += part;
    return text;
}

TEST_F(Rewriting, TakesANameOfAMillionCharacters) {
    const std::u16string name(1000000, u'x');
    const std::u16string before = Repeated(u"SELECT a, ", 2000000);
    const std::u16string after = Repeated(u" FROM t", 2000000);
    const CString source(before + u"[" + name + u".b]" + after);
    EXPECT_EQ(RewriteBracketedPairs(source), before + u"[" + name + u"].[b]" + after);
    EXPECT_LT(SecondsToRewrite(source), 1);
}

// Four times the text may take ten times as long, for the sake of caches, and not the sixteen of a quadratic walk.
constexpr double kMostGrowth = 10;

TEST_F(Rewriting, GrowsWithTheText) {
    QZSetConsoleSink([](void*, std::string_view) {}, nullptr);
    for (const std::u16string_view part :
         {u"[", u"[a", u"[a.", u"[a.b", u"a.b]", u"x", u"[a.b.", u"[a.b] ", u"[t.a], [u.b], c ", u"\n"}) {
        const double small = SecondsToRewrite(Repeated(part, 1250000));
        const double large = SecondsToRewrite(Repeated(part, 5000000));
        EXPECT_LT(large, kMostGrowth * std::max(small, 0.001)) << CString(part).ToUtf8();
        EXPECT_LT(large, 3) << CString(part).ToUtf8();
    }
    const double small = SecondsToRewrite(u"[" + std::u16string(1250000, u'x'));
    const double large = SecondsToRewrite(u"[" + std::u16string(5000000, u'x'));
    EXPECT_LT(large, kMostGrowth * std::max(small, 0.001));
}

// ------------------------------------------------------------------------------------------------------- splitting

void DeleteEntries(CQZQueryInfo& query) {
    for (CQZQueryUnionInfo* entry : query.m_listUnions) {
        DeleteEntries(*entry->Query);
        delete entry;
    }
    query.m_listUnions.RemoveAll();
}

// Each part's text, with how it is joined to the next one.
Lines PartsOf(const CString& text) {
    CQZQueryInfo query;
    SplitUnion(text, query);
    Lines parts;
    for (const CQZQueryUnionInfo* entry : query.m_listUnions)
        parts.push_back(entry->Query->GetSQL().ToUtf8() + (entry->UnionAll == 0 ? "|" : "|ALL"));
    DeleteEntries(query);
    return parts;
}

TEST(Splitting, GivesNoPartsWithoutAUnion) {
    EXPECT_EQ(PartsOf(u""), Lines());
    EXPECT_EQ(PartsOf(u"SELECT a FROM t"), Lines());
    EXPECT_EQ(PartsOf(u"SELECT a FROM t union SELECT b FROM u"), Lines()) << "only capitals count";
}

TEST(Splitting, GivesAPartForEachSelect) {
    EXPECT_EQ(PartsOf(u"SELECT a UNION SELECT b"), Lines({"SELECT a|", "SELECT b|"}));
    EXPECT_EQ(PartsOf(u"a UNION b UNION c"), Lines({"a|", "b|", "c|"}));
}

TEST(Splitting, NotesOnAPartThatItIsJoinedToTheNextOneByAll) {
    EXPECT_EQ(PartsOf(u"a UNION ALL b"), Lines({"a|ALL", " b|"}));
    EXPECT_EQ(PartsOf(u"a UNION ALL b UNION c"), Lines({"a|ALL", " b|", "c|"}));
    EXPECT_EQ(PartsOf(u"a UNION b UNION ALL c"), Lines({"a|", "b|ALL", " c|"}));
}

// Six units are cut for UNION, whatever the sixth is.
TEST(Splitting, CutsTheUnitBehindUnion) {
    EXPECT_EQ(PartsOf(u"a UNION(b)"), Lines({"a|", "b)|"}));
    EXPECT_EQ(PartsOf(u"a UNION\nb"), Lines({"a|", "b|"}));
    EXPECT_EQ(PartsOf(u"a UNION  ALL b"), Lines({"a|", " ALL b|"}));
    EXPECT_EQ(PartsOf(u"xUNIONx"), Lines({"x|"}));
}

TEST(Splitting, GivesNoPartForNothingBehindTheLastUnion) {
    EXPECT_EQ(PartsOf(u"a UNION"), Lines({"a|"}));
    EXPECT_EQ(PartsOf(u"a UNION ALL"), Lines({"a|ALL"}));
    EXPECT_EQ(PartsOf(u"UNION b"), Lines({"|", "b|"}));
}

TEST(Splitting, ClonesTheQueryWithTheEntriesSoFar) {
    CQZQueryInfo query;
    query.SetName(u"q");
    query.SetSQL(u"whole");
    query.SetSelectQuantifier(2);
    query.SetQueryKind(7);
    SplitUnion(u"a \r\n b UNION c UNION d", query);
    ASSERT_EQ(query.m_listUnions.GetCount(), 3);
    EXPECT_EQ(query.GetSQL(), u"whole");
    int earlier = 0;
    for (const CQZQueryUnionInfo* entry : query.m_listUnions) {
        EXPECT_EQ(entry->Query->GetGUID(), query.GetGUID());
        EXPECT_EQ(entry->Query->GetName(), u"q");
        EXPECT_EQ(entry->Query->GetSelectQuantifier(), 2);
        EXPECT_EQ(entry->Query->GetQueryKind(), 0);
        EXPECT_EQ(entry->Query->m_listUnions.GetCount(), earlier++);
    }
    EXPECT_EQ(query.m_listUnions.GetHead()->Query->GetSQL(), u"a   b");
    DeleteEntries(query);
}

// ------------------------------------------------------------------------------------------------- sources, offsets

class DeepSources : public testing::Test {
 protected:
    // The value of a source in the query after the walk.
    CString ValueOf(const CString& name) {
        query.m_mapSources.SetAt(name, name);
        query.SetDatabase(&database);
        ResolveSourcesDeep(query);
        return query.m_mapSources[name];
    }

    concrete::Database database;
    CQZQueryInfo query;
};

TEST_F(DeepSources, AreTablesByTheirTargetName) {
    concrete::Table& table = database.AddTable(u"source");
    table.SetName(u"Target");
    EXPECT_EQ(ValueOf(u"target"), table.GetGUID());
    EXPECT_EQ(ValueOf(u"source"), u"source");
}

TEST_F(DeepSources, AreElseQueriesByTheirSourceName) {
    concrete::Query& stored = database.AddQuery(u"q");
    stored.SetName(u"renamed");
    EXPECT_EQ(ValueOf(u"Q"), stored.GetGUID());
    EXPECT_EQ(ValueOf(u"renamed"), u"renamed");
    concrete::Table& table = database.AddTable(u"t");
    table.SetName(u"q");
    EXPECT_EQ(ValueOf(u"Q"), table.GetGUID());
}

TEST_F(DeepSources, OfNestedQueriesAreTiedWhateverTheOuterOneHas) {
    concrete::Table& table = database.AddTable(u"");
    table.SetName(u"t");
    auto* nested = new CQZQueryInfo;
    auto* innermost = new CQZQueryInfo;
    query.m_listSubQueries.AddTail(nested);
    nested->m_listSubQueries.AddTail(innermost);
    innermost->SetDatabase(&database);
    innermost->m_mapSources.SetAt(u"t", u"t");
    nested->m_mapSources.SetAt(u"t", u"t");
    ResolveSourcesDeep(query);
    EXPECT_EQ(innermost->m_mapSources[u"t"], table.GetGUID());
    EXPECT_EQ(nested->m_mapSources[u"t"], u"t") << "it has no database";
}

// The text is given in reading order.
int Offset(std::u16string text) {
    std::reverse(text.begin(), text.end());
    return CountFromOffset(text);
}

TEST(FromOffset, IsTheLengthBeforeTheFromLessWhatFollowsLess4) {
    EXPECT_EQ(Offset(u"SELECT a FROM t"), 9 - 2 - 4);
    EXPECT_EQ(Offset(u"SELECT a FROM table"), 9 - 6 - 4);
    EXPECT_EQ(Offset(u"FROM t"), 0 - 2 - 4);
}

TEST(FromOffset, LooksForAFromWithoutAWhereBeforeIt) {
    EXPECT_EQ(Offset(u"SELECT a FROM t WHERE b IN (SELECT c FROM u)"), 9 - 24 - 4);
    EXPECT_EQ(Offset(u"SELECT a FROM t WHERE b"), 9 - 10 - 4);
}

TEST(FromOffset, PassesAFromThatNothingFollows) {
    EXPECT_EQ(Offset(u"a FROM b FROM"), 2 - 3 - 4);
    EXPECT_EQ(Offset(u"a FROM"), 0);
}

TEST(FromOffset, IsNothingWithoutAFrom) {
    for (const char16_t* text : {u"", u"SELECT a", u"WHERE", u"from t", u"x WHERE a FROM t"})
        EXPECT_EQ(Offset(text), 0);
}

TEST(FromOffset, TakesALongText) {
    EXPECT_EQ(Offset(u"WHERE" + Repeated(u" FROM", 5000000)), 0);
    EXPECT_EQ(Offset(u"FROM x" + std::u16string(1000000, u'y')), 0 - 1000002 - 4);
}

}  // namespace
