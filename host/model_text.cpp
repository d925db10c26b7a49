#include "host/model_text.h"

#include <fmt/format.h>

#include <iterator>
#include <vector>

#include "host/notation.h"
#include "host/outline.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

class TextSink final : public ModelSink {
 public:
    explicit TextSink(std::string& out) : out_(out) {}

    void Open(Shape shape, const ModelKey& key) override {
        const bool hasLine = key.member != "Children";
        if (hasLine) {
            BeginLine();
            AppendKey(shapes_.empty() ? ModelKey{"Query", {}} : key);
            ++depth_;
        }
        shapes_.push_back({shape, hasLine});
    }

    void Close() override {
        if (shapes_.back().hasLine) --depth_;
        shapes_.pop_back();
        if (shapes_.empty()) out_ += '\n';
    }

    void Number(const ModelKey& key, int number) override {
        BeginValue(key);
        fmt::format_to(std::back_inserter(out_), "{}", number);
    }

    void Text(const ModelKey& key, std::u16string_view text) override {
        BeginValue(key);
        AppendText(text);
    }

    void Word(const ModelKey& key, std::string_view word) override {
        BeginValue(key);
        out_ += word;
    }

 private:
    struct Opened {
        Shape shape;
        bool hasLine;
    };

    void BeginLine() {
        if (!shapes_.empty()) out_ += '\n';
        AppendIndent(out_, depth_);
        isLineEmpty_ = true;
    }

    /// Entries of maps have lines of their own.
    void BeginValue(const ModelKey& key) {
        if (shapes_.back().shape == Shape::Map) BeginLine();
        AppendKey(key);
        out_ += '=';
    }

    void AppendKey(const ModelKey& key) {
        if (key.member.empty() && !key.entry) return;
        if (!isLineEmpty_) out_ += ' ';
        isLineEmpty_ = false;
        out_ += key.member;
        if (key.entry) AppendText(*key.entry);
    }

    void AppendText(std::u16string_view text) {
        std::u16string quoted;
        AppendQuoted(quoted, text);
        AppendUtf8(out_, quoted);
    }

    std::string& out_;
    std::vector<Opened> shapes_;
    std::size_t depth_ = 0;
    bool isLineEmpty_ = true;
};

}  // namespace

bool AppendModelText(std::string& out, const Model& model) {
    TextSink sink(out);
    return WalkModel(model, sink);
}

}  // namespace qzsql
