// Lists of words, and words in other cases, for what tests know of a dialect's vocabulary.
#pragma once

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>
#include <vector>

namespace vocabulary {

struct Entry {
    std::string_view token;
    std::string_view text;
};

/// The words of a list by blanks.
inline std::vector<std::string_view> Words(std::string_view list) {
    std::vector<std::string_view> words;
    for (std::size_t begin = 0, end = 0; end != std::string_view::npos; begin = end + 1) {
        end = list.find(' ', begin);
        words.push_back(list.substr(begin, end - begin));
    }
    return words;
}

inline std::string Upper(std::string_view word) {
    std::string upper(word);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
    return upper;
}

inline std::string Lower(std::string_view word) {
    std::string lower(word);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower;
}

inline char OtherCase(char letter) {
    const auto unit = static_cast<unsigned char>(letter);
    return static_cast<char>(std::isupper(unit) != 0 ? std::tolower(unit) : std::toupper(unit));
}

/// Letters in turn in capitals and small: SeLeCt.
inline std::string Mixed(std::string_view word) {
    std::string mixed = Upper(word);
    for (std::size_t i = 1; i < mixed.size(); i += 2) mixed[i] = OtherCase(mixed[i]);
    return mixed;
}

/// The word, and the word with each of its letters in the other case.
inline std::vector<std::string> WithEachLetterTurned(const std::string& word) {
    std::vector<std::string> words{word};
    for (std::size_t i = 0; i < word.size(); ++i) {
        words.push_back(word);
        words.back()[i] = OtherCase(word[i]);
    }
    return words;
}

}  // namespace vocabulary
