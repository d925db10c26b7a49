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

template <class Pointer>
Pointer NotNull(Pointer pointer) {
    if (!pointer) throw std::bad_alloc();
    return pointer;
}

}  // namespace

Recognition::Recognition(const QZGrammar& grammar, std::u16string_view text)
    : grammar_(grammar), text_(text), reporter_{Receive, this} {
    input_.reset(NotNull(antlr3NewUCS2StringInPlaceStream(text.data(), SizeOf(text), nullptr)));
    lexer_ = {NotNull(QZNewLexer(grammar, input_.get())), Freer{&grammar, QZFreeLexer}};
    QZSetLexerReporter(lexer_.get(), &reporter_);
    tokens_.reset(NotNull(QZNewTokenStream(lexer_.get())));
}

std::vector<QZToken> Recognition::Tokens() {
    std::vector<QZToken> tokens(QZTokenCount(tokens_.get()));
    RethrowFailure();
    for (std::size_t i = 0; i < tokens.size(); ++i) tokens[i] = QZTokenAt(tokens_.get(), i);
    return tokens;
}

const QZNode* Recognition::Tree() {
    if (tree_ != nullptr) return tree_;
    parser_ = {NotNull(QZNewParser(grammar_, tokens_.get())), Freer{&grammar_, QZFreeParser}};
    QZSetParserReporter(parser_.get(), &reporter_);
    tree_ = NotNull(QZRunEntryRule(grammar_, parser_.get()));
    RethrowFailure();
    return tree_;
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
    if (IsDroppedWhiteSpace(report)) return;
    if (report.kind == QZReportKind::DroppedCharacter && ++dropped_ > kMostDropped) {
        if (dropped_ > kMostDropped + 1) return;
        reports_.push_back({report.phase, report.kind, report.position, "more characters are left out from here on"});
        return;
    }
    reports_.push_back(report);
}

// White space begins no token, so that what starts with it is one character.
bool Recognition::IsDroppedWhiteSpace(const QZReport& report) const {
    return report.kind == QZReportKind::DroppedCharacter && report.position.offset < text_.size() &&
           kWhiteSpace.find(text_[report.position.offset]) != std::u16string_view::npos;
}

void Recognition::RethrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
}

}  // namespace qzsql
