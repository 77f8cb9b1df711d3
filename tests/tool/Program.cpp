#include "tool/Program.h"

#include <poll.h>
#include <pty.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <thread>

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

namespace {

/// Starts a command of the shell in a folder, on a terminal of its own.
pid_t startOnTerminal(const std::string& command, const std::string& folder, int& terminal) {
    const std::string script = "tool='" PARAMETERS_TOOL "'; cd '" + folder + "' && exec " + command;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
        _exit(127);
    }
    return child;
}

std::string textOfTerminal(pid_t child, int terminal) {
    std::string text;
    std::array<char, 256> piece{};
    for (ssize_t size = 0; (size = read(terminal, piece.data(), piece.size())) > 0;) {
        text.append(piece.data(), static_cast<std::size_t>(size));
    }
    close(terminal);
    waitpid(child, nullptr, 0);
    return text;
}

} // namespace

std::string terminalOf(const std::string& command, const std::string& folder) {
    int terminal = -1;
    const pid_t child = startOnTerminal(command, folder, terminal);
    return textOfTerminal(child, terminal);
}

std::string terminalOfSlowRun(const std::string& command, const std::string& folder, const std::string& file) {
    pollfd opened = {inotify_init1(IN_CLOEXEC), POLLIN, 0};
    inotify_add_watch(opened.fd, file.c_str(), IN_OPEN);
    int terminal = -1;
    const pid_t child = startOnTerminal(command, folder, terminal);
    if (child > 0 && poll(&opened, 1, 10'000) == 1) {
        kill(child, SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(1100));
        kill(child, SIGCONT);
    }
    close(opened.fd);
    return textOfTerminal(child, terminal);
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
