#include "host/batch.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <memory>
#include <new>
#include <optional>
#include <stdexcept>

#include "host/catalog_models.h"
#include "host/check.h"
#include "host/dialects.h"
#include "host/file.h"
#include "host/json_record.h"
#include "host/model.h"
#include "host/model_json.h"
#include "host/output.h"
#include "host/progress.h"
#include "host/token_formats.h"
#include "host/tree_formats.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

/// What an answer is made of.
struct Subject {
    Recognition& recognition;
    const Verdict& verdict;
    std::string_view name;
    const QueryModel* model;  // where the emission is of models
};

void AppendTokens(std::string& out, const Subject& subject) {
    out += '[';
    for (const auto& token : subject.recognition.Tokens()) {
        if (out.back() != '[') out += ',';
        AppendJson(out, TokenLine(subject.recognition.Grammar(), token));
    }
    out += ']';
}

void AppendTree(std::string& out, const Subject& subject) {
    AppendJson(out, TreeAsSexpr({subject.recognition.Grammar(), subject.recognition.Tree()}));
}

void AppendCheck(std::string& out, const Subject& subject) { out += VerdictAsJson(subject.verdict, subject.name); }

void AppendModel(std::string& out, const Subject& subject) {
    const auto tell = [&subject](std::string_view what) { Tell(fmt::format("qzsql: {}: {}\n", subject.name, what)); };
    if (!AppendModelJson(out, subject.model->Shown())) tell(kShownModelIsCut);
    if (!subject.model->Outcome().isWhole) tell(kModelIsCut);
}

struct Emission {
    std::string_view name;
    void (*append)(std::string& out, const Subject& subject);
    bool failsUnlessClean;
    bool isOfModels;
};

constexpr Emission kEmissions[] = {
    {"tokens", AppendTokens, false, false},
    {"tree", AppendTree, false, false},
    {"check", AppendCheck, true, false},
    {"model", AppendModel, false, true},
};

const Emission& FindEmission(std::string_view name) {
    return *std::find_if(std::begin(kEmissions), std::end(kEmissions),
                         [name](const Emission& emission) { return emission.name == name; });
}

const Dialect& DialectOf(const Record& record, const BatchRequest& request) {
    const auto& name = record.dialect ? *record.dialect : request.dialect;
    if (name.empty()) throw std::runtime_error("no \"dialect\", and no -d");
    const auto* dialect = FindDialect(name);
    if (dialect == nullptr) throw std::runtime_error(UnknownDialect(name));
    return *dialect;
}

bool IsFailure(const Emission& emission, const Subject& subject) {
    const auto* model = subject.model;
    if (model != nullptr && (model->Outcome().isNestedTooDeep || !model->Outcome().isWhole)) return true;
    const auto& verdict = subject.verdict;
    return IsNestedTooDeep(verdict.reports) || (emission.failsUnlessClean && verdict.status != Status::Clean);
}

Answer Recognized(const BatchRequest& request, const Record& record, std::string_view name, CatalogModels* catalog) {
    if (!record.error.empty()) throw std::runtime_error(record.error);
    const auto& emission = FindEmission(request.emission);
    const auto& dialect = DialectOf(record, request);
    std::optional<QueryModel> model;
    if (emission.isOfModels) model.emplace(dialect, *record.sql, ModelContext{catalog, request.resolves});
    Recognition recognition(dialect.grammar(), model ? model->ReadText().View() : *record.sql);
    const auto verdict = Judge(recognition);
    const Subject subject{recognition, verdict, name, model ? &*model : nullptr};
    auto text = fmt::format(R"({{"id":{},"status":"{}","{}":)", record.id, NameOf(verdict.status), emission.name);
    emission.append(text, subject);
    text += '}';
    return {std::move(text), IsFailure(emission, subject) ? kNotClean : kDone};
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
    } catch (const std::bad_alloc&) {
        return TellOutOfMemory(name);
    } catch (const std::exception& error) {
        Tell(fmt::format("qzsql: {}: {}\n", name, error.what()));
        return kUnreadable;
    }
}

std::unique_ptr<CatalogModelsPool> LoadModels(const BatchRequest& request) {
    if (request.catalog.empty()) return nullptr;
    auto catalogs = std::make_unique<CatalogModelsPool>(request.catalog);
    for (const auto& note : catalogs->Notes()) Tell(fmt::format("qzsql: {}: {}\n", request.catalog, note));
    return catalogs;
}

}  // namespace

std::vector<std::string> EmissionNames() {
    std::vector<std::string> names;
    for (const auto& emission : kEmissions) names.emplace_back(emission.name);
    return names;
}

std::string WrongRequest(const BatchRequest& request) {
    const bool isForModels = !request.catalog.empty() || request.resolves;
    if (!isForModels || FindEmission(request.emission).isOfModels) return {};
    return "--catalog and --resolve go with --emit model";
}

Answer AnswerLine(const BatchRequest& request, const Line& line, CatalogModelsPool* catalogs) {
    Record record;
    try {
        record = ReadRecord(line.text);
        const auto name = fmt::format("{}:{}", request.file, line.number);
        if (catalogs == nullptr) return Recognized(request, record, name, nullptr);
        const CatalogModelsPool::Lease catalog(*catalogs);
        return Recognized(request, record, name, &*catalog);
    } catch (const std::bad_alloc&) {
        return {Failed(record, line.number, kNoMemory).text, kOutOfMemory};
    } catch (const std::exception& error) {
        return Failed(record, line.number, error.what());
    }
}

ExitCode RunBatch(const BatchRequest& request) {
    const auto catalogs = LoadModels(request);
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
        request.threads, [&](const Line& line) { return AnswerLine(request, line, catalogs.get()); }, write);
    const auto reading = AddFile(request.file, pool);
    pool.Finish();
    return std::max(worst, reading);
}

}  // namespace qzsql
