#include "QZParserSQL/front/QueryText.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "QZParserSQL/catalog/CQZDatabaseInfo.h"
#include "QZParserSQL/catalog/CQZTableInfo.h"
#include "QZParserSQL/model/CQZQueryInfo.h"
#include "QZParserSQL/model/CQZQueryUnionInfo.h"
#include "QZParserSQL/model/Nesting.h"
#include "QZParserSQL/platform/Console.h"

namespace qz {
namespace {

constexpr auto npos = std::u16string_view::npos;

bool IsWordCharacter(UChar32 character) {
    return u_isUAlphabetic(character) || u_isdigit(character) || character == u'_';
}

std::size_t EndOfWord(std::u16string_view text, std::size_t place) {
    for (std::size_t next = place; next < text.size(); place = next) {
        UChar32 character = 0;
        U16_NEXT(text.data(), next, text.size(), character);
        if (!IsWordCharacter(character)) break;
    }
    return place;
}

// What the expression \[([\w]+\.[\w]+)\] matches: "[", two words with a point between them, "]".
struct Pair {
    std::size_t start = npos;
    std::size_t point = npos;
    std::size_t end = npos;

    explicit operator bool() const { return start != npos; }
};

// The first pair from a place on. What a failed attempt went through holds no bracket that another one could start at,
// so the search goes on behind it.
Pair FindPair(std::u16string_view text, std::size_t place) {
    const auto stands = [text](char16_t unit, std::size_t at) { return at < text.size() && text[at] == unit; };
    while ((place = text.find(u'[', place)) != npos) {
        const std::size_t start = place;
        const std::size_t point = EndOfWord(text, start + 1);
        place = point;
        if (point == start + 1 || !stands(u'.', point)) continue;
        place = EndOfWord(text, point + 1);
        if (place != point + 1 && stands(u']', place)) return {start, point, place + 1};
    }
    return {};
}

// Calls onPair(match) for each pair.
template <class OnPair>
CString Rewritten(std::u16string_view text, OnPair onPair) {
    std::u16string result;
    std::size_t copied = 0;
    for (Pair pair = FindPair(text, 0); pair; pair = FindPair(text, copied)) {
        onPair(text.substr(pair.start, pair.end - pair.start));
        result.append(text, copied, pair.point - copied).append(u"].[");
        result.append(text, pair.point + 1, pair.end - pair.point - 1);
        copied = pair.end;
    }
    return {std::move(result.append(text, copied))};
}

}  // namespace

CString RewriteBracketedPairs(const CString& strSource) {
    CString strResult = Rewritten(strSource, [](std::u16string_view match) {
        QZConsoleWriteLine(match);
        QZConsoleWriteLine(match);
        QZConsoleWriteLine(match.substr(1, match.size() - 2));
    });
    QZConsoleWriteLine(u"Output = " + strResult);
    return strResult;
}

CString WithPairsRewritten(const CString& strSource) {
    return Rewritten(strSource, [](std::u16string_view) {});
}

// Each clone of the query has the entries made before it, with their queries.
void SplitUnion(CString strText, CQZQueryInfo& query) {
    constexpr std::u16string_view kUnion = u"UNION";
    constexpr std::u16string_view kUnionAll = u"UNION ALL";
    bool wasSplit = false;
    while (!strText.IsEmpty()) {
        const int place = strText.Find(kUnion);
        if (place == -1 && !wasSplit) return;
        const int all = strText.Find(kUnionAll);
        const bool isPlain = all == -1 || all > place;
        const int length = place == -1 ? strText.GetLength() : place + (isPlain ? 6 : 9);

        CString strPart = strText.Left(length);
        strText.Delete(0, length);
        if (place != -1) strPart = strPart.Left(place);

        auto part = std::make_unique<CQZQueryUnionInfo>();
        part->UnionAll = isPlain ? 0 : 1;
        part->Query = query.Clone(0);
        part->Query->SetSQL(strPart);
        query.m_listUnions.AddTail(part.get());
        part.release();  // NOLINT(bugprone-unused-return-value): the list has it
        wasSplit = true;
    }
}

void ResolveSourcesDeep(CQZQueryInfo& query) {
    for (CQZQueryInfo* nested : InnermostFirst(query)) {
        const CQZDatabaseInfo* database = nested->GetDatabase();
        if (database == nullptr) continue;
        for (const auto& [name, value] : nested->m_mapSources) {
            const CQZSourceInfo* source = database->FindTableByName(name);
            if (source == nullptr) source = database->FindQueryBySrcName(name);
            if (source != nullptr) nested->m_mapSources.SetAt(name, source->GetGUID());
        }
    }
}

int CountFromOffset(const CString& strReversed) {
    constexpr std::u16string_view kFrom = u"MORF";
    constexpr std::u16string_view kWhere = u"EREHW";
    const int lastWhere = static_cast<int>(strReversed.View().rfind(kWhere));
    const int size = strReversed.GetLength();
    int start = 0;
    for (int from = strReversed.Find(kFrom); from != -1; from = strReversed.Find(kFrom, start)) {
        const int follows = from - start;
        start = from + 4;
        if (follows > 0 && lastWhere < start) return size - start - follows - 4;
    }
    return 0;
}

}  // namespace qz
