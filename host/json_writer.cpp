#include "host/json_writer.h"

#include "host/unicode.h"

namespace qzsql {

void JsonWriter::Separate() {
    if (out_.empty()) return;
    const char last = out_.back();
    if (last != '{' && last != '[' && last != ':') out_ += ',';
}

void JsonWriter::Open(char bracket) {
    Separate();
    out_ += bracket;
}

void JsonWriter::Close(char bracket) { out_ += bracket; }

void JsonWriter::Key(std::string_view key) {
    Text(key);
    out_ += ':';
}

void JsonWriter::Key(std::u16string_view key) {
    Text(key);
    out_ += ':';
}

void JsonWriter::Number(int number) {
    Separate();
    out_ += std::to_string(number);
}

void JsonWriter::Text(std::u16string_view text) {
    Separate();
    AppendJson(out_, text);
}

void JsonWriter::Text(std::string_view utf8) {
    Separate();
    AppendJson(out_, utf8);
}

}  // namespace qzsql
