#include "host/recognition.h"

#include <cstdint>
#include <limits>
#include <new>
#include <stdexcept>

namespace qzsql {

namespace {

constexpr std::size_t kMostDropped = 1000;
constexpr std::u16string_view kWhiteSpace = u" \t\n\r\v\f";

std::uint32_t SizeOf(std::u16string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw std::length_error("the text is too long");
    }
    return static_cast<std::uint32_t>(text.size());
}

// White space begins no token, so that it is dropped alone.
bool IsWhiteSpace(void*, std::u16string_view dropped) {
    return dropped.size() == 1 && kWhiteSpace.find(dropped[0]) != std::u16string_view::npos;
}

template <class Pointer>
Pointer NotNull(Pointer pointer) {
    if (!pointer) throw std::bad_alloc();
    return pointer;
}

}  // namespace

Recognition::Recognizers::~Recognizers() {
    QZCloseInput(input);
    QZFreeTokenStream(tokens);
    QZFreeLexer(grammar, lexer);
    QZFreeParser(grammar, parser);
}

Recognition::Recognition(const QZGrammar& grammar, std::u16string_view text)
    : text_(text), reporter_{Receive, this, IsWhiteSpace}, recognizers_(grammar) {
    recognizers_.input = NotNull(antlr3NewUCS2StringInPlaceStream(text.data(), SizeOf(text), nullptr));
    recognizers_.lexer = NotNull(QZNewLexer(grammar, recognizers_.input));
    QZSetLexerReporter(recognizers_.lexer, &reporter_);
    recognizers_.tokens = NotNull(QZNewTokenStream(recognizers_.lexer));
}

std::vector<QZToken> Recognition::Tokens() {
    std::vector<QZToken> tokens(QZTokenCount(recognizers_.tokens));
    RethrowFailure();
    for (std::size_t i = 0; i < tokens.size(); ++i) tokens[i] = QZTokenAt(recognizers_.tokens, i);
    return tokens;
}

const QZNode* Recognition::Tree() {
    if (tree_ != nullptr) return tree_;
    recognizers_.parser = NotNull(QZNewParser(Grammar(), recognizers_.tokens));
    QZSetParserReporter(recognizers_.parser, &reporter_);
    const QZNode* tree = QZRunEntryRule(Grammar(), recognizers_.parser);
    RethrowFailure();
    return tree_ = NotNull(tree);
}

// Nothing may be thrown through the recognizers.
void Recognition::Receive(void* self, const QZReport& report) {
    auto& recognition = *static_cast<Recognition*>(self);
    try {
        recognition.Add(report);
    } catch (...) {
        recognition.failure_ = std::current_exception();
    }
}

void Recognition::Add(const QZReport& report) {
    if (report.kind == QZReportKind::OutOfMemory) throw std::bad_alloc();
    if (report.kind == QZReportKind::DroppedCharacter && ++dropped_ > kMostDropped) {
        if (dropped_ > kMostDropped + 1) return;
        reports_.push_back({report.phase, report.kind, report.position, "more characters are left out from here on"});
        return;
    }
    reports_.push_back(report);
}

void Recognition::RethrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
}

}  // namespace qzsql
