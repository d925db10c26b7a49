// The command line of qzsql catalog.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/catalog_commands.h"

namespace qzsql {

/// Says that the program or one of its commands was called without one of its commands, or with an unknown one.
void TellMissingCommand(const CLI::App& app);

class CatalogCommandLine {
 public:
    explicit CatalogCommandLine(CLI::App& app);
    CatalogCommandLine(const CatalogCommandLine&) = delete;
    CatalogCommandLine& operator=(const CatalogCommandLine&) = delete;

    bool IsChosen() const { return command_->parsed(); }
    /// Tells on standard error what fails.
    ExitCode Run() const;

 private:
    CLI::App& Add(const char* name, const char* about, const char* help, const char* example, std::string& store,
                  std::function<ExitCode()> run);
    void AddInit();
    void AddImport();
    void AddAddQuery();
    void AddShow();
    void AddSet();
    void AddCheck();
    void AddFilter();

    CLI::App* command_;
    std::vector<std::pair<CLI::App*, std::function<ExitCode()>>> commands_;
    catalog::InitRequest init_;
    catalog::ImportRequest import_;
    catalog::AddQueryRequest addQuery_;
    catalog::ShowRequest show_;
    catalog::SetRequest set_;
    catalog::CheckRequest check_;
    catalog::FilterRequest filter_;
};

}  // namespace qzsql
