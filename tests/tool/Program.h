#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// What the program under test did with its arguments.
struct ProgramRun {
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs it in a folder, without a shell.
ProgramRun runTool(const std::vector<std::string>& arguments, const std::string& folder = PARAMETERS_SOURCE_DIR);

/// Runs a command of the shell, for which the program is $tool.
ProgramRun runShell(const std::string& command);

std::string contentsOf(const std::filesystem::path& file);

/// An empty folder that is gone at the end of the test.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string path(const std::string& name = {}) const { return (path_ / name).string(); }
    void write(const std::string& name, const std::string& text) const;
    static std::size_t filesIn(const std::filesystem::path& folder);

private:
    std::filesystem::path path_;
};
