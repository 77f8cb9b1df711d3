#include "tool/Program.h"

#include <sys/wait.h>

#include <cstdlib>
#include <stdexcept>

namespace fs = std::filesystem;

ProgramRun runShell(const std::string& command, const std::string& folder) {
    const TemporaryFolder streams;
    const std::string output = streams.path("output"), errors = streams.path("errors");
    const int status = std::system(
        ("tool='" PARAMETERS_TOOL "'; { cd '" + folder + "' && " + command + "\n} >'" + output + "' 2>'" + errors + "'")
            .c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Documents::textOf(output), Documents::textOf(errors)};
}

ProgramRun runTool(const std::vector<std::string>& arguments, const std::string& folder) {
    std::string command = "\"$tool\"";
    for (const std::string& argument : arguments) {
        command += " '" + argument + "'";
    }
    return runShell(command, folder);
}

ProgramRun runToolOn(const std::string& text, const std::vector<std::string>& arguments) {
    const TemporaryFolder folder;
    folder.write("a.jsonl", text);
    return runTool(arguments, folder.path());
}

TemporaryFolder::TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "parameters-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error(name + " cannot be made.");
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void TemporaryFolder::write(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name, std::ios::binary) << text;
}
