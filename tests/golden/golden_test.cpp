// Golden trees and models: every case of golden/<dialect>/*.txt and every query of corpus/<dialect>/ has the tree and,
// where there is one, the model that its file shows, and the invariants of invariants.h hold for it. With
// QZ_UPDATE_GOLDEN=1 trees and models are rewritten in place first.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <ostream>
#include <set>
#include <sstream>

#include "tests/golden/Dialect.h"
#include "tests/golden/GoldenFile.h"
#include "tests/golden/Model.h"
#include "tests/golden/invariants.h"
#include "tests/support/Outline.h"
#include "tests/support/Recognition.h"

namespace fs = std::filesystem;

namespace {

struct CaseFile {
    const Dialect& dialect;
    fs::path path;
    std::vector<GoldenCase> cases;
    void (*write)(const CaseFile&);
};

void WriteCases(const CaseFile& file) { WriteFile(file.path, FormatCases(file.cases)); }

fs::path ModelPath(fs::path query) { return query.replace_extension(".model"); }

void WriteTreeAndModel(const CaseFile& file) {
    WriteFile(file.path, FormatTree(file.cases.front()));
    if (file.cases.front().model) WriteFile(ModelPath(file.path), FormatModel(file.cases.front()));
}

std::vector<fs::path> FilesIn(const fs::path& folder, const std::string& extension) {
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.path().extension() == extension) paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

fs::path Tests(const char* folder, const Dialect& dialect) {
    return fs::path(QZ_SOURCE_FOLDER) / "tests" / folder / dialect.folder;
}

CaseFile GoldenFileAt(const Dialect& dialect, const fs::path& path) {
    return {dialect, path, ParseCases(ReadFile(path)), WriteCases};
}

/// A query without a tree is a case whose tree is yet to be made; an empty model is, too.
CaseFile CorpusFileAt(const Dialect& dialect, const fs::path& query) {
    const fs::path path = fs::path(query).replace_extension(".tree");
    GoldenCase golden = ParseTree(fs::exists(path) ? ReadFile(path) : "");
    golden.title = query.stem().string();
    golden.sql = ReadFile(query);
    if (fs::exists(ModelPath(path))) ParseModel(ReadFile(ModelPath(path)), golden);
    return {dialect, path, {golden}, WriteTreeAndModel};
}

using ReadCaseFile = CaseFile (*)(const Dialect&, const fs::path&);

std::vector<CaseFile> ReadAll(const char* folder, const std::string& extension, ReadCaseFile read) {
    std::vector<CaseFile> files;
    for (const Dialect* dialect : AllDialects()) {
        for (const fs::path& path : FilesIn(Tests(folder, *dialect), extension)) files.push_back(read(*dialect, path));
    }
    return files;
}

std::vector<CaseFile>& Goldens() {
    static std::vector<CaseFile> files = ReadAll("golden", ".txt", GoldenFileAt);
    return files;
}

std::vector<CaseFile>& Corpus() {
    static std::vector<CaseFile> files = ReadAll("corpus", ".sql", CorpusFileAt);
    return files;
}

bool HasErrorNode(const QZNode* root) {
    const std::vector<TreeLine> lines = TreeLines(root);
    return std::any_of(lines.begin(), lines.end(),
                       [](const TreeLine& line) { return QZKindOf(line.node) == QZNodeKind::Error; });
}

std::string ReportLine(const QZReport& report) {
    return "! " + std::to_string(report.position.line) + ':' + std::to_string(report.position.column) + ' ' +
           report.message + '\n';
}

Outcome OutcomeOf(const Recognition& recognition) {
    Outcome outcome;
    outcome.error = !recognition.ParserReports().empty() || HasErrorNode(recognition.Root());
    outcome.tree = Outline(recognition.Grammar(), recognition.Root());
    if (outcome.error) {
        for (const QZReport& report : recognition.Reports()) outcome.tree += ReportLine(report);
    }
    return outcome;
}

void Rewrite(CaseFile& file) {
    for (GoldenCase& golden : file.cases) {
        Adopt(golden, OutcomeOf(Recognition(FromUtf8(golden.sql), file.dialect.grammar)));
        if (golden.model) golden.model = ModelOutline(file.dialect.folder, golden.sql);
    }
    file.write(file);
}

class RewriteOnDemand : public testing::Environment {
 public:
    void SetUp() override {
        const Rewriting rewriting = RewritingFor(std::getenv("QZ_UPDATE_GOLDEN"), std::getenv("CI"));
        ASSERT_NE(rewriting, Rewriting::Refused) << "golden trees are not rewritten on CI";
        if (rewriting == Rewriting::Off) return;
        for (CaseFile& file : Goldens()) Rewrite(file);
        for (CaseFile& file : Corpus()) Rewrite(file);
    }
};

// NOLINTNEXTLINE(cert-err58-cpp): nothing could go on without it
const testing::Environment* const rewriteOnDemand = testing::AddGlobalTestEnvironment(new RewriteOnDemand);

/// A case by its place, as its tree may be rewritten before the test runs.
struct CaseId {
    std::vector<CaseFile>& (*files)();
    std::size_t file;
    std::size_t index;

    const CaseFile& File() const { return files()[file]; }
    const GoldenCase& Case() const { return File().cases[index]; }
    std::string Name() const {
        const std::string name = File().dialect.folder + '/' + File().path.stem().string();
        return File().path.extension() == ".tree" ? name : name + '/' + Case().title;
    }
};

void PrintTo(const CaseId& id, std::ostream* out) { *out << id.Name(); }

std::vector<CaseId> AllCases(std::vector<CaseFile>& (*files)()) {
    std::vector<CaseId> ids;
    for (std::size_t file = 0; file < files().size(); ++file) {
        for (std::size_t index = 0; index < files()[file].cases.size(); ++index) ids.push_back({files, file, index});
    }
    return ids;
}

std::vector<CaseId> CasesWithModel(std::vector<CaseFile>& (*files)()) {
    std::vector<CaseId> ids = AllCases(files);
    ids.erase(std::remove_if(ids.begin(), ids.end(), [](const CaseId& id) { return !id.Case().model; }), ids.end());
    return ids;
}

std::string TestName(const testing::TestParamInfo<CaseId>& info) {
    std::string name = info.param.Name();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

class Golden : public testing::TestWithParam<CaseId> {};

TEST_P(Golden, Tree) {
    const Dialect& dialect = GetParam().File().dialect;
    const GoldenCase& golden = GetParam().Case();
    const Recognition recognition(FromUtf8(golden.sql), dialect.grammar);
    const Outcome outcome = OutcomeOf(recognition);
    EXPECT_NE(golden.heading.find('#'), std::string::npos) << "a case says why its tree looks so";
    EXPECT_EQ(outcome.error, golden.error) << "an error node or a report, against the mark of the case";
    EXPECT_EQ(outcome.tree, golden.tree) << golden.sql;
    ExpectTokensInTree(dialect, recognition);
    ExpectSameTreeWithOtherSpace(dialect, recognition);
    ExpectSameInSecondRun(recognition);
    ExpectReportsInText(recognition);
    ExpectSameThroughView(dialect, recognition);
}

INSTANTIATE_TEST_SUITE_P(Cases, Golden, testing::ValuesIn(AllCases(Goldens)), TestName);
INSTANTIATE_TEST_SUITE_P(Corpus, Golden, testing::ValuesIn(AllCases(Corpus)), TestName);

class GoldenModel : public testing::TestWithParam<CaseId> {};

TEST_P(GoldenModel, Model) {
    const GoldenCase& golden = GetParam().Case();
    EXPECT_EQ(ModelOutline(GetParam().File().dialect.folder, golden.sql), *golden.model) << golden.sql;
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenModel, testing::ValuesIn(CasesWithModel(Goldens)), TestName);
INSTANTIATE_TEST_SUITE_P(Corpus, GoldenModel, testing::ValuesIn(CasesWithModel(Corpus)), TestName);

/// The names of the nodes that stand over others in any golden tree.
std::set<std::string> InnerKindsShown(const Dialect& dialect) {
    std::set<std::string> names;
    for (const CaseId& id : AllCases(Goldens)) {
        if (&id.File().dialect != &dialect) continue;
        const Recognition recognition(FromUtf8(id.Case().sql), dialect.grammar);
        for (const TreeLine& line : TreeLines(recognition.Root())) {
            const QZNodeKind kind = QZKindOf(line.node);
            const bool isRoot = kind == QZNodeKind::Token && QZChildCount(line.node) > 0;
            if (kind == QZNodeKind::Imaginary || isRoot) {
                names.insert(QZTokenName(dialect.grammar, QZTypeOf(line.node)));
            }
        }
    }
    return names;
}

/// The names of `all` that are not among `some`.
std::vector<std::string> Without(const std::set<std::string>& all, const std::set<std::string>& some) {
    std::vector<std::string> rest;
    std::set_difference(all.begin(), all.end(), some.begin(), some.end(), std::back_inserter(rest));
    return rest;
}

class GoldenCoverage : public testing::TestWithParam<const Dialect*> {};

TEST_P(GoldenCoverage, EveryKindOfInnerNodeIsShownAndNoOther) {
    const Dialect& dialect = *GetParam();
    const std::set<std::string> known(dialect.innerKinds.begin(), dialect.innerKinds.end());
    const std::set<std::string> shown = InnerKindsShown(dialect);
    EXPECT_EQ(Without(known, shown), std::vector<std::string>()) << "no golden tree shows it";
    EXPECT_EQ(Without(shown, known), std::vector<std::string>()) << "not in the dialect's list";
}

std::set<std::string> Vocabulary(const QZGrammar& grammar) {
    std::set<std::string> names;
    constexpr std::uint32_t firstType = 4;  // the runtime's own come before
    for (std::uint32_t type = firstType; QZTokenName(grammar, type) != nullptr; ++type) {
        names.insert(QZTokenName(grammar, type));
    }
    return names;
}

TEST_P(GoldenCoverage, TheVocabularyHasEveryNameOfTheLists) {
    const Dialect& dialect = *GetParam();
    const std::set<std::string> vocabulary = Vocabulary(dialect.grammar);
    for (const auto* list : {&dialect.droppedTokens, &dialect.innerKinds, &dialect.kindsNeverMade}) {
        for (const std::string& names : *list) {
            std::istringstream stream(names);
            for (std::string name; stream >> name;) EXPECT_EQ(vocabulary.count(name), 1U) << name;
        }
    }
}

TEST_P(GoldenCoverage, NoKindIsBothMadeAndNeverMade) {
    const Dialect& dialect = *GetParam();
    const std::set<std::string> shown = InnerKindsShown(dialect);
    for (const std::string& name : dialect.kindsNeverMade) EXPECT_EQ(shown.count(name), 0U) << name;
}

std::string FolderOf(const testing::TestParamInfo<const Dialect*>& dialect) {
    std::string name = dialect.param->folder;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Dialects, GoldenCoverage, testing::ValuesIn(AllDialects()), FolderOf);

}  // namespace
