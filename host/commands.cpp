#include "host/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "host/check.h"
#include "host/output.h"
#include "host/picture.h"
#include "host/recognition.h"
#include "host/token_formats.h"
#include "host/tree_formats.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

struct Result {
    std::string text;
    ExitCode code = kDone;
};

void TellReports(const std::string& name, const Recognition& recognition) {
    for (const auto& report : recognition.Reports()) {
        Tell(fmt::format("{}:{}:{}: {}\n", name, report.position.line, report.position.column, report.message));
    }
}

template <std::string (*format)(const QZGrammar&, const std::vector<QZToken>&)>
Result ShowTokens(const QZGrammar& grammar, const Input& input) {
    Recognition recognition(grammar, input.text);
    Result result{format(grammar, recognition.Tokens())};
    TellReports(input.name, recognition);
    return result;
}

template <Result (*format)(const Tree&, const std::string& name)>
Result ShowTree(const QZGrammar& grammar, const Input& input) {
    Recognition recognition(grammar, input.text);
    auto result = format({grammar, recognition.Tree()}, input.name);
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
Result ShowCheck(const QZGrammar& grammar, const Input& input) {
    Recognition recognition(grammar, input.text);
    const auto verdict = Judge(recognition);
    return {format(verdict, input), verdict.status == Status::Clean ? kDone : kNotClean};
}

struct View {
    std::string_view command;
    std::string_view format;
    Result (*show)(const QZGrammar& grammar, const Input& input);
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
};

const View& ViewOf(const Request& request) {
    return *std::find_if(std::begin(kViews), std::end(kViews), [&request](const View& view) {
        return view.command == request.command && view.format == request.format;
    });
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
    return {};
}

ExitCode RunCommand(const Request& request) {
    const auto& view = ViewOf(request);
    const bool isHeaded = view.isHeaded && request.inputs.Count() > 1;
    Output output;
    return ForEachInput(request.inputs, [&](const Input& input) {
        const auto result = view.show(request.dialect->grammar(), input);
        if (isHeaded) output.Write(fmt::format("== {}\n", input.name));
        output.Write(result.text);
        output.Flush();
        return result.code;
    });
}

}  // namespace qzsql
