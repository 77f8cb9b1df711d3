#pragma once

#include "support/CatalogDocuments.h"
#include "support/Documents.h"

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

/// A parameter of the example catalog.
inline const std::string diffuser = "acme.building:parameter.supplyDiffuser-1.0.0";

/// What the program under test did with its arguments.
struct ProgramRun {
    int status;
    std::string output, errors;
};

/// For reports of failed tests.
inline void PrintTo(const ProgramRun& run, std::ostream* stream) {
    *stream << "status " << run.status << ", output:\n" << run.output << "errors:\n" << run.errors;
}

/// Runs a command of the shell in a folder, for which the program is $tool.
ProgramRun runShell(const std::string& command, const std::string& folder = PARAMETERS_SOURCE_DIR);

/// Runs the program itself. No argument may have a single quote.
ProgramRun runTool(const std::vector<std::string>& arguments, const std::string& folder = PARAMETERS_SOURCE_DIR);

/// Runs it in a folder with nothing but the text, in "a.jsonl".
ProgramRun runToolOn(const std::string& text, const std::vector<std::string>& arguments);

/// @return what a command that becomes the program shows on a terminal.
std::string terminalOf(const std::string& command, const std::string& folder);

/// Runs a command that becomes the program, stopped for longer than a second once the program opens a file.
///
/// @return what reaches the terminal that is its standard error, unless the command redirects that.
std::string terminalOfSlowRun(const std::string& command, const std::string& folder, const std::string& file);

/// An empty folder that is gone at the end of the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string path(const std::string& name = {}) const { return (path_ / name).string(); }
    void write(const std::string& name, const std::string& text) const;

private:
    std::filesystem::path path_;
};
