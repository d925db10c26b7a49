#include "host/batch.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <stdexcept>

#include "host/check.h"
#include "host/dialects.h"
#include "host/file.h"
#include "host/json_record.h"
#include "host/output.h"
#include "host/progress.h"
#include "host/token_formats.h"
#include "host/tree_formats.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

void AppendTokens(std::string& out, Recognition& recognition, const Verdict&, std::string_view) {
    out += '[';
    for (const auto& token : recognition.Tokens()) {
        if (out.back() != '[') out += ',';
        AppendJson(out, TokenLine(recognition.Grammar(), token));
    }
    out += ']';
}

void AppendTree(std::string& out, Recognition& recognition, const Verdict&, std::string_view) {
    AppendJson(out, TreeAsSexpr({recognition.Grammar(), recognition.Tree()}));
}

void AppendCheck(std::string& out, Recognition&, const Verdict& verdict, std::string_view name) {
    out += VerdictAsJson(verdict, name);
}

struct Emission {
    std::string_view name;
    void (*append)(std::string& out, Recognition& recognition, const Verdict& verdict, std::string_view name);
    bool failsUnlessClean;
};

constexpr Emission kEmissions[] = {
    {"tokens", AppendTokens, false},
    {"tree", AppendTree, false},
    {"check", AppendCheck, true},
};

const Emission& FindEmission(std::string_view name) {
    return *std::find_if(std::begin(kEmissions), std::end(kEmissions),
                         [name](const Emission& emission) { return emission.name == name; });
}

const QZGrammar& GrammarOf(const Record& record, const BatchRequest& request) {
    const auto& name = record.dialect ? *record.dialect : request.dialect;
    if (name.empty()) throw std::runtime_error("no \"dialect\", and no -d");
    const auto* dialect = FindDialect(name);
    if (dialect == nullptr) throw std::runtime_error(UnknownDialect(name));
    return dialect->grammar();
}

bool IsFailure(const Emission& emission, const Verdict& verdict) {
    return IsNestedTooDeep(verdict.reports) || (emission.failsUnlessClean && verdict.status != Status::Clean);
}

Answer Recognized(const BatchRequest& request, const Record& record, std::string_view name) {
    if (!record.error.empty()) throw std::runtime_error(record.error);
    const auto& emission = FindEmission(request.emission);
    Recognition recognition(GrammarOf(record, request), *record.sql);
    const auto verdict = Judge(recognition);
    auto text = fmt::format(R"({{"id":{},"status":"{}","{}":)", record.id, NameOf(verdict.status), emission.name);
    emission.append(text, recognition, verdict, name);
    text += '}';
    return {std::move(text), IsFailure(emission, verdict) ? kNotClean : kDone};
}

Answer Failed(const Record& record, std::size_t lineNumber, std::string_view what) {
    auto text = fmt::format(R"({{"id":{},"error":)", record.id);
    AppendJson(text, fmt::format("line {}: {}", lineNumber, what));
    text += '}';
    return {std::move(text), kNotClean};
}

bool IsBlank(std::string_view line) { return line.find_first_not_of(" \t\r") == std::string_view::npos; }

/// Lines are UTF-8; a mark that says so is left out, one that says otherwise is refused.
void RemoveMark(std::string& firstLine) {
    const auto mark = std::string_view(firstLine).substr(0, 2);
    if (mark == "\xFF\xFE" || mark == "\xFE\xFF") throw std::runtime_error("is UTF-16; convert it to UTF-8");
    if (std::string_view(firstLine).substr(0, 3) == "\xEF\xBB\xBF") firstLine.erase(0, 3);
}

void AddLines(File& file, OrderedPool& pool) {
    LineReader lines(file);
    std::string text;
    for (std::size_t number = 1; lines.Next(text); ++number) {
        if (number == 1) RemoveMark(text);
        if (!IsBlank(text)) pool.Add({number, std::move(text)});
    }
}

ExitCode AddFile(const std::string& name, OrderedPool& pool) {
    try {
        File file(name);
        AddLines(file, pool);
        return kDone;
    } catch (const std::exception& error) {
        Tell(fmt::format("qzsql: {}: {}\n", name, error.what()));
        return kUnreadable;
    }
}

}  // namespace

std::vector<std::string> EmissionNames() {
    std::vector<std::string> names;
    for (const auto& emission : kEmissions) names.emplace_back(emission.name);
    return names;
}

Answer AnswerLine(const BatchRequest& request, const Line& line) {
    Record record;
    try {
        record = ReadRecord(line.text);
        return Recognized(request, record, fmt::format("{}:{}", request.file, line.number));
    } catch (const std::exception& error) {
        return Failed(record, line.number, error.what());
    }
}

ExitCode RunBatch(const BatchRequest& request) {
    ExitCode worst = kDone;
    Output output;
    Progress progress;
    const auto write = [&](const Answer& answer, bool isLast) {
        worst = std::max(worst, answer.code);
        progress.Count();
        progress.MakeRoom();
        output.Write(answer.text);
        output.Write("\n");
        if (isLast) output.Flush();
        progress.Show();
    };
    OrderedPool pool(
        request.threads, [&request](const Line& line) { return AnswerLine(request, line); }, write);
    const auto reading = AddFile(request.file, pool);
    pool.Finish();
    return std::max(worst, reading);
}

}  // namespace qzsql
