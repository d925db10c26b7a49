#include "host/model_json.h"

#include "host/json_writer.h"

namespace qzsql {

namespace {

class JsonSink final : public ModelSink {
 public:
    void Open(Shape shape, const ModelKey& key) override {
        Key(key);
        json_.Open(shape == Shape::List ? '[' : '{');
        closers_ += shape == Shape::List ? ']' : '}';
    }

    void Close() override {
        json_.Close(closers_.back());
        closers_.pop_back();
    }

    void Number(const ModelKey& key, int number) override {
        Key(key);
        json_.Number(number);
    }

    void Text(const ModelKey& key, std::u16string_view text) override {
        Key(key);
        json_.Text(text);
    }

    void Word(const ModelKey& key, std::string_view word) override {
        Key(key);
        json_.Text(word);
    }

    const std::string& Result() const { return json_.Result(); }

 private:
    void Key(const ModelKey& key) {
        if (closers_.empty() || closers_.back() == ']') return;
        key.entry ? json_.Key(*key.entry) : json_.Key(key.member);
    }

    JsonWriter json_;
    std::string closers_;
};

}  // namespace

bool AppendModelJson(std::string& out, const Model& model) {
    JsonSink sink;
    const bool isWhole = WalkModel(model, sink);
    out += sink.Result();
    return isWhole;
}

}  // namespace qzsql
