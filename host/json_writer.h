// JSON, one value behind the other.
#pragma once

#include <string>
#include <string_view>

#include "QZParserSQL/platform/CString.h"

namespace qzsql {

/// Puts the commas; what is opened is to be closed again.
class JsonWriter {
 public:
    void Open(char bracket);
    void Close(char bracket);
    void Key(std::string_view key);
    void Key(std::u16string_view key);
    void Number(int number);
    void Text(std::u16string_view text);
    void Text(const CString& text) { Text(text.View()); }
    void Text(std::string_view utf8);

    const std::string& Result() const { return out_; }

 private:
    void Separate();

    std::string out_;
};

}  // namespace qzsql
