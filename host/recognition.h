// A query recognized: its tokens, its tree and what the recognizers have to say, in the host's own hands.
#pragma once

#include <cstddef>
#include <exception>
#include <string_view>
#include <vector>

#include "QZParserSQL/dialect/QZRecognizers.h"

namespace qzsql {

/// Made and used on one thread. The text must outlive it.
class Recognition {
 public:
    /// Throws std::bad_alloc, and std::length_error for a text of 2^31 units or more.
    Recognition(const QZGrammar& grammar, std::u16string_view text);
    Recognition(const Recognition&) = delete;
    Recognition& operator=(const Recognition&) = delete;

    /// Hidden tokens included, the end of the text not.
    std::vector<QZToken> Tokens();

    /// Parses when asked first.
    const QZNode* Tree();

    /// The reports so far; complete behind Tree(). White space that a lexer drops is not among them, and of very many
    /// dropped characters only the first ones are.
    const std::vector<QZReport>& Reports() const { return reports_; }

    const QZGrammar& Grammar() const { return recognizers_.grammar; }
    std::u16string_view Text() const { return text_; }

 private:
    /// Frees what there is in the order that the library wants.
    struct Recognizers {
        explicit Recognizers(const QZGrammar& madeFor) : grammar(madeFor) {}
        ~Recognizers();
        Recognizers(const Recognizers&) = delete;
        Recognizers& operator=(const Recognizers&) = delete;

        const QZGrammar& grammar;
        QZInputStream* input = nullptr;
        void* lexer = nullptr;
        QZTokenStream* tokens = nullptr;
        void* parser = nullptr;
    };

    static void Receive(void* self, const QZReport& report);
    void Add(const QZReport& report);
    void RethrowFailure() const;

    std::u16string_view text_;
    std::vector<QZReport> reports_;
    std::size_t dropped_ = 0;
    std::exception_ptr failure_;
    QZReporter reporter_;
    Recognizers recognizers_;
    const QZNode* tree_ = nullptr;
};

}  // namespace qzsql
