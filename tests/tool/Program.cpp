#include "tool/Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace {

ProgramRun run(std::string program, const std::vector<std::string>& arguments, const std::string& folder) {
    const TemporaryFolder streams;
    std::vector<std::string> texts = arguments;
    std::vector<char*> argv = {program.data()};
    for (std::string& text : texts) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int writing = O_WRONLY | O_CREAT;
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, streams.path("output").c_str(), writing, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, streams.path("errors").c_str(), writing, 0600);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    pid_t process = 0;
    const int error = posix_spawn(&process, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (error != 0 || waitpid(process, &status, 0) != process) {
        throw std::runtime_error(program + " cannot be run.");
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentsOf(streams.path("output")),
            contentsOf(streams.path("errors"))};
}

} // namespace

ProgramRun runTool(const std::vector<std::string>& arguments, const std::string& folder) {
    return run(PARAMETERS_TOOL, arguments, folder);
}

ProgramRun runShell(const std::string& command) {
    return run("/bin/sh", {"-c", "tool='" PARAMETERS_TOOL "'; " + command}, PARAMETERS_SOURCE_DIR);
}

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
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

std::size_t TemporaryFolder::filesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}
