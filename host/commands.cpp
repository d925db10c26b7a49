#include "host/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "host/catalog_models.h"
#include "host/check.h"
#include "host/model.h"
#include "host/model_json.h"
#include "host/model_text.h"
#include "host/output.h"
#include "host/picture.h"
#include "host/recognition.h"
#include "host/token_formats.h"
#include "host/tree_formats.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

/// What results are made with besides the input.
struct Means {
    const Dialect& dialect;
    ModelContext models;
};

struct Result {
    std::string text;
    ExitCode code = kDone;
};

void TellAt(const std::string& name, const QZPosition& position, std::string_view message) {
    Tell(fmt::format("{}:{}:{}: {}\n", name, position.line, position.column, message));
}

void TellReports(const std::string& name, const Recognition& recognition) {
    for (const auto& report : recognition.Reports()) TellAt(name, report.position, report.message);
}

template <std::string (*format)(const QZGrammar&, const std::vector<QZToken>&)>
Result ShowTokens(const Means& means, const Input& input) {
    Recognition recognition(means.dialect.grammar(), input.text);
    Result result{format(recognition.Grammar(), recognition.Tokens())};
    TellReports(input.name, recognition);
    return result;
}

template <Result (*format)(const Tree&, const std::string& name)>
Result ShowTree(const Means& means, const Input& input) {
    Recognition recognition(means.dialect.grammar(), input.text);
    auto result = format({recognition.Grammar(), recognition.Tree()}, input.name);
    TellReports(input.name, recognition);
    if (IsNestedTooDeep(recognition.Reports())) result.code = std::max(result.code, kNotClean);
    return result;
}

Result Outline(const Tree& tree, const std::string&) { return {TreeAsText(tree)}; }
Result Sexpr(const Tree& tree, const std::string&) { return {ToUtf8(TreeAsSexpr(tree)) + '\n'}; }
Result Json(const Tree& tree, const std::string&) { return {TreeAsJson(tree)}; }
Result Dot(const Tree& tree, const std::string& name) { return {TreeAsDot(tree, name)}; }

Result Svg(const Tree& tree, const std::string& name) {
    const auto nodes = CountNodes(tree.root);
    if (nodes <= kMostNodesInPicture) return {DrawSvg(TreeAsDot(tree, name))};
    Tell(fmt::format("qzsql: {}: {} nodes are too many for svg, which shows {}; use -f dot or -f text\n", name, nodes,
                     kMostNodesInPicture));
    return {{}, kWrongUsage};
}

std::string VerdictText(const Verdict& verdict, const Input& input) { return VerdictAsText(verdict, input.text); }
std::string VerdictJson(const Verdict& verdict, const Input& input) {
    return VerdictAsJson(verdict, input.name) + '\n';
}

template <std::string (*format)(const Verdict&, const Input&)>
Result ShowCheck(const Means& means, const Input& input) {
    Recognition recognition(means.dialect.grammar(), input.text);
    const auto verdict = Judge(recognition);
    return {format(verdict, input), verdict.status == Status::Clean ? kDone : kNotClean};
}

/// A model doesn't show what was not understood.
void TellVerdict(const std::string& name, const Recognition& recognition, const Verdict& verdict) {
    TellReports(name, recognition);
    if (verdict.trailing) TellAt(name, verdict.trailing->from, TrailingMessage(*verdict.trailing));
}

template <bool (*append)(std::string& out, const Model& model)>
Result ShowModel(const Means& means, const Input& input) {
    const QueryModel model(means.dialect, input.text, means.models);
    Recognition recognition(means.dialect.grammar(), model.ReadText());
    const auto verdict = Judge(recognition);
    TellVerdict(input.name, recognition, verdict);
    Result result;
    if (!append(result.text, model.Shown())) Tell(fmt::format("qzsql: {}: {}\n", input.name, kShownModelIsCut));
    const auto& outcome = model.Outcome();
    if (!outcome.isWhole) Tell(fmt::format("qzsql: {}: {}\n", input.name, kModelIsCut));
    const bool isTooDeep = outcome.isNestedTooDeep || IsNestedTooDeep(verdict.reports);
    if (isTooDeep || !outcome.isWhole) result.code = kNotClean;
    return result;
}

bool AppendModelLine(std::string& out, const Model& model) {
    const bool isWhole = AppendModelJson(out, model);
    out += '\n';
    return isWhole;
}

struct View {
    std::string_view command;
    std::string_view format;
    Result (*show)(const Means& means, const Input& input);
    bool isHeaded;  // several inputs are told apart by a line == NAME
    bool isSingle;  // there is no way to put several inputs one behind the other
};

constexpr View kViews[] = {
    {"tokens", "text", ShowTokens<TokensAsText>, true, false},
    {"tokens", "json", ShowTokens<TokensAsJson>, false, false},
    {"tree", "text", ShowTree<Outline>, true, false},
    {"tree", "sexpr", ShowTree<Sexpr>, true, false},
    {"tree", "json", ShowTree<Json>, false, false},
    {"tree", "dot", ShowTree<Dot>, false, false},
    {"tree", "svg", ShowTree<Svg>, false, true},
    {"check", "text", ShowCheck<VerdictText>, true, false},
    {"check", "json", ShowCheck<VerdictJson>, false, false},
    {"model", "text", ShowModel<AppendModelText>, true, false},
    {"model", "json", ShowModel<AppendModelLine>, false, false},
};

const View& ViewOf(const Request& request) {
    return *std::find_if(std::begin(kViews), std::end(kViews), [&request](const View& view) {
        return view.command == request.command && view.format == request.format;
    });
}

std::unique_ptr<CatalogModels> LoadModels(const Request& request) {
    if (request.catalog.empty()) return nullptr;
    auto models = std::make_unique<CatalogModels>(request.catalog);
    for (const auto& note : models->Notes()) Tell(fmt::format("qzsql: {}: {}\n", request.catalog, note));
    return models;
}

}  // namespace

std::vector<std::string> FormatNames(std::string_view command) {
    std::vector<std::string> names;
    for (const auto& view : kViews) {
        if (view.command == command) names.emplace_back(view.format);
    }
    return names;
}

std::string WrongInputs(const Request& request) {
    const auto& inputs = request.inputs;
    if (inputs.Count() == 0) return "no input: give -e SQL, a FILE, or - for standard input";
    if (std::count(inputs.files.begin(), inputs.files.end(), "-") > 1) return "standard input can be read only once";
    if (inputs.Count() > 1 && ViewOf(request).isSingle) return fmt::format("-f {} takes one input", request.format);
    if (request.command == "model" && !HasModels(*request.dialect)) return NoModels(*request.dialect);
    return {};
}

ExitCode RunCommand(const Request& request) {
    const auto& view = ViewOf(request);
    const bool isHeaded = view.isHeaded && request.inputs.Count() > 1;
    const auto catalog = LoadModels(request);
    const Means means{*request.dialect, {catalog.get(), request.resolves}};
    Output output;
    return ForEachInput(request.inputs, [&](const Input& input) {
        const auto result = view.show(means, input);
        if (isHeaded) output.Write(fmt::format("== {}\n", input.name));
        output.Write(result.text);
        output.Flush();
        return result.code;
    });
}

}  // namespace qzsql
