#include "host/check.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "host/caret.h"
#include "host/tree.h"
#include "host/unicode.h"

namespace qzsql {

namespace {

std::optional<Trailing> TrailingOf(const QZNode* root, std::u16string_view text) {
    const auto nodes = TrailingNodes(root);
    if (nodes.empty()) return std::nullopt;
    const auto from = QZTokenOf(nodes.front()).position;
    const auto last = QZTokenOf(nodes.back());
    const auto end = last.position.offset + last.text.size();
    return Trailing{from, nodes.size(), text.substr(from.offset, end - from.offset)};
}

Status StatusOf(const Verdict& verdict, const QZNode* root) {
    const auto& reports = verdict.reports;
    if (std::any_of(reports.begin(), reports.end(), IsError) || HasErrorNode(root)) return Status::Error;
    return verdict.trailing ? Status::Trailing : Status::Clean;
}

std::string_view SeverityOf(const QZReport& report) { return IsError(report) ? "error" : "warning"; }

std::string_view NameOf(QZPhase phase) { return phase == QZPhase::Lexer ? "lexer" : "parser"; }

std::string Counted(std::size_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string ReportAsText(const QZReport& report, std::u16string_view text) {
    const auto line = fmt::format("{}:{}: {}: {}\n", report.position.line, report.position.column, SeverityOf(report),
                                  report.message);
    return IsError(report) ? line + CaretLines(text, std::min(report.position.offset, text.size())) : line;
}

std::string TrailingAsText(const Trailing& trailing, std::u16string_view text) {
    return fmt::format("{}:{}: {}\n{}", trailing.from.line, trailing.from.column, TrailingMessage(trailing),
                       CaretLines(text, trailing.from.offset));
}

void AppendTrailing(std::string& out, const Trailing& trailing) {
    fmt::format_to(std::back_inserter(out), R"({{"line":{},"column":{},"offset":{},"count":{},"text":)",
                   trailing.from.line, trailing.from.column, trailing.from.offset, trailing.count);
    AppendJson(out, trailing.text);
    out += '}';
}

void AppendReport(std::string& out, const QZReport& report) {
    fmt::format_to(std::back_inserter(out), R"({{"severity":"{}","phase":"{}","line":{},"column":{},"message":)",
                   SeverityOf(report), NameOf(report.phase), report.position.line, report.position.column);
    AppendJson(out, report.message);
    out += '}';
}

}  // namespace

std::string_view NameOf(Status status) {
    switch (status) {
        case Status::Clean:
            return "clean";
        case Status::Trailing:
            return "trailing";
        case Status::Error:
            return "error";
    }
    return {};
}

bool IsError(const QZReport& report) { return report.kind != QZReportKind::DroppedCharacter; }

bool IsNestedTooDeep(const std::vector<QZReport>& reports) {
    return std::any_of(reports.begin(), reports.end(),
                       [](const QZReport& report) { return report.kind == QZReportKind::NestedTooDeep; });
}

Verdict Judge(Recognition& recognition) {
    const QZNode* root = recognition.Tree();
    Verdict verdict{Status::Clean, TrailingOf(root, recognition.Text()), recognition.Reports()};
    verdict.status = StatusOf(verdict, root);
    return verdict;
}

std::string TrailingMessage(const Trailing& trailing) {
    return fmt::format("not understood from here on: {}, {}", Counted(trailing.count, "token"),
                       Counted(trailing.text.size(), "character"));
}

std::string VerdictAsText(const Verdict& verdict, std::u16string_view text) {
    std::string out(NameOf(verdict.status));
    out += '\n';
    for (const auto& report : verdict.reports) out += ReportAsText(report, text);
    if (verdict.trailing) out += TrailingAsText(*verdict.trailing, text);
    return out;
}

std::string VerdictAsJson(const Verdict& verdict, std::string_view name) {
    std::string out = "{\"input\":";
    AppendJson(out, name);
    fmt::format_to(std::back_inserter(out), R"(,"status":"{}","trailing":)", NameOf(verdict.status));
    verdict.trailing ? AppendTrailing(out, *verdict.trailing) : void(out += "null");
    out += ",\"diagnostics\":[";
    for (const auto& report : verdict.reports) {
        if (out.back() == '}') out += ',';
        AppendReport(out, report);
    }
    return out + "]}";
}

}  // namespace qzsql
