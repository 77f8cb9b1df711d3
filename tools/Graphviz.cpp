#include "Graphviz.h"

#include <fmt/core.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace Tool {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File temporaryFile() {
    File file(std::tmpfile(), &std::fclose);
    if (file == nullptr) {
        throw std::runtime_error(fmt::format("No temporary file can be made: {}.", std::strerror(errno)));
    }
    return file;
}

File fileWith(const std::string& text) {
    File file = temporaryFile();
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() || std::fflush(file.get()) != 0) {
        throw std::runtime_error("A temporary file cannot be written.");
    }
    std::rewind(file.get());
    return file;
}

std::string contentsOf(std::FILE* file) {
    std::string text;
    std::array<char, 65536> buffer{};
    std::rewind(file);
    for (std::size_t size = 0; (size = std::fread(buffer.data(), 1, buffer.size(), file)) != 0;) {
        text.append(buffer.data(), size);
    }
    return text;
}

/// Runs dot from one file to the other, without a shell.
void runDot(std::FILE* input, std::FILE* output) {
    std::string program = "dot";
    std::string format = "-Tsvg";
    std::array<char*, 3> arguments = {program.data(), format.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(input), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, fileno(output), STDOUT_FILENO);
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error == ENOENT) {
        throw std::runtime_error("SVG needs Graphviz, whose program dot is not installed; a .dot file does not.");
    }
    int status = 0;
    if (error != 0 || waitpid(process, &status, 0) != process || status != 0) {
        throw std::runtime_error("Graphviz's program dot has failed.");
    }
}

} // namespace

std::string svgOf(const std::string& dotText) {
    const File input = fileWith(dotText);
    const File output = temporaryFile();
    runDot(input.get(), output.get());
    return contentsOf(output.get());
}

} // namespace Tool
