#include "tests/golden/GoldenFile.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace {

/// The lines of a text, one at a time.
class Lines {
 public:
    explicit Lines(const std::string& text) : m_Stream(text) { Next(); }

    bool AtEnd() const { return m_AtEnd; }
    const std::string& Line() const { return m_Line; }
    bool StartsWith(char character) const { return !m_AtEnd && !m_Line.empty() && m_Line[0] == character; }
    bool IsHeading() const { return !m_AtEnd && (m_Line.empty() || m_Line[0] == '#'); }

    std::string Take() {
        if (m_AtEnd) throw std::runtime_error("line " + std::to_string(m_Number) + ": the case has no end");
        std::string line = std::move(m_Line);
        Next();
        return line;
    }

    /// The lines up to the one that holds `end` alone, which is taken too.
    std::vector<std::string> TakeTo(const std::string& end) {
        std::vector<std::string> lines;
        while (AtEnd() || m_Line != end) lines.push_back(Take());
        Next();
        return lines;
    }

    /// The lines of a tree, and whether a model follows.
    std::vector<std::string> TakeTree(bool& hasModel) {
        std::vector<std::string> lines;
        while (AtEnd() || (m_Line != "--" && m_Line != "==")) lines.push_back(Take());
        hasModel = Take() == "--";
        return lines;
    }

    std::string TakeHeading() {
        std::string heading;
        while (IsHeading()) heading += Take() + '\n';
        return heading;
    }

    bool TakeErrorMark() {
        bool error = false;
        for (; StartsWith(':'); error = true) {
            if (m_Line != ":error") throw std::runtime_error("line " + std::to_string(m_Number) + ": " + m_Line);
            Take();
        }
        return error;
    }

 private:
    void Next() {
        m_AtEnd = !std::getline(m_Stream, m_Line);
        ++m_Number;
    }

    std::istringstream m_Stream;
    std::string m_Line;
    int m_Number = 0;
    bool m_AtEnd = false;
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    return text;
}

std::string WithLineEnd(const std::string& text) { return text.empty() ? text : text + '\n'; }

GoldenCase ParseCase(Lines& lines, std::string heading) {
    GoldenCase golden;
    golden.heading = std::move(heading);
    golden.title = lines.Take();
    golden.error = lines.TakeErrorMark();
    golden.sql = Joined(lines.TakeTo("--"));
    bool hasModel = false;
    golden.tree = WithLineEnd(Joined(lines.TakeTree(hasModel)));
    if (hasModel) golden.model = WithLineEnd(Joined(lines.TakeTo("==")));
    return golden;
}

std::string ErrorMark(const GoldenCase& golden) { return golden.error ? ":error\n" : ""; }

}  // namespace

std::vector<GoldenCase> ParseCases(const std::string& text) {
    Lines lines(text);
    std::vector<GoldenCase> cases;
    while (true) {
        std::string heading = lines.TakeHeading();
        if (lines.AtEnd()) return cases;
        cases.push_back(ParseCase(lines, std::move(heading)));
    }
}

std::string FormatCases(const std::vector<GoldenCase>& cases) {
    std::string text;
    for (const GoldenCase& golden : cases) {
        text += golden.heading + golden.title + '\n' + ErrorMark(golden) + WithLineEnd(golden.sql) + "--\n" +
                golden.tree + (golden.model ? "--\n" + *golden.model : "") + "==\n";
    }
    return text;
}

GoldenCase ParseTree(const std::string& text) {
    Lines lines(text);
    GoldenCase golden;
    golden.heading = lines.TakeHeading();
    golden.error = lines.TakeErrorMark();
    while (!lines.AtEnd()) golden.tree += lines.Take() + '\n';
    return golden;
}

std::string FormatTree(const GoldenCase& golden) { return golden.heading + ErrorMark(golden) + golden.tree; }

void ParseModel(const std::string& text, GoldenCase& golden) {
    Lines lines(text);
    golden.modelHeading = lines.TakeHeading();
    golden.model = "";
    while (!lines.AtEnd()) *golden.model += lines.Take() + '\n';
}

std::string FormatModel(const GoldenCase& golden) { return golden.modelHeading + *golden.model; }

void Adopt(GoldenCase& golden, const Outcome& outcome) {
    if (golden.error == outcome.error) golden.tree = outcome.tree;
}

Rewriting RewritingFor(const char* update, const char* ci) {
    if (update == nullptr || std::string(update) != "1") return Rewriting::Off;
    return ci == nullptr ? Rewriting::On : Rewriting::Refused;
}

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path.string() + " cannot be read");
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    if (std::filesystem::exists(path) && ReadFile(path) == text) return;
    const std::filesystem::path fresh = path.string() + ".new";
    std::ofstream file(fresh, std::ios::binary);
    file << text;
    file.close();
    if (!file) throw std::runtime_error(fresh.string() + " cannot be written");
    std::filesystem::rename(fresh, path);
}
