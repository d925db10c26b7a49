// Golden trees as text. A file of cases:
//
//     # why the tree must look so
//     title
//     :error                    where the tree holds an error node or the parser reports
//     SQL of one to three lines
//     --
//     outline of the tree
//     ! 1:8 message             the reports, in a case marked :error
//     --                        from here on only where the case has a model
//     outline of the model
//     ==
//
// A query of the corpus is a case whose text stands in NAME.sql, its comment, mark and tree in NAME.tree, and its model
// with a comment in NAME.model.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct GoldenCase {
    std::string heading;  // comments and empty lines, as they stand
    std::string title;
    bool error = false;
    std::string sql;
    std::string tree;
    std::optional<std::string> model;
    std::string modelHeading;  // in the corpus
};

/// What the recognizers made of a case's text.
struct Outcome {
    bool error = false;
    std::string tree;
};

/// Throws std::runtime_error, with the number of the line, for what is no case.
std::vector<GoldenCase> ParseCases(const std::string& text);
std::string FormatCases(const std::vector<GoldenCase>& cases);

/// The case in a .tree file; title and SQL are the caller's.
GoldenCase ParseTree(const std::string& text);
std::string FormatTree(const GoldenCase& golden);

/// Takes the model in a .model file over.
void ParseModel(const std::string& text, GoldenCase& golden);
std::string FormatModel(const GoldenCase& golden);

/// Takes the tree over, unless there is an error in a case not marked so, or none in one marked.
void Adopt(GoldenCase& golden, const Outcome& outcome);

enum class Rewriting { Off, On, Refused };
/// By the values of QZ_UPDATE_GOLDEN and CI, null where they are not set.
Rewriting RewritingFor(const char* update, const char* ci);

std::string ReadFile(const std::filesystem::path& path);
/// Leaves no half-written file, and an unchanged one alone.
void WriteFile(const std::filesystem::path& path, const std::string& text);
