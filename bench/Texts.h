// What is measured: the corpora, one text of 200 KB a dialect, and shapes that grow.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/Road.h"

struct Query {
    std::string name;
    std::string utf8;
    std::u16string text;
};

std::vector<Query> Corpus(const std::string& dialect);

/// A query of 181 characters that all dialects understand.
const Query& CommonQuery();

/// A text that is made of the corpus-like parts of a dialect, of at least 200,000 characters.
std::u16string LargeText();

struct Shape {
    const char* name;
    std::int64_t largest;
    std::function<std::string(std::int64_t)> make;
};

const std::vector<Shape>& Shapes();

std::u16string Widened(const std::string& utf8);
