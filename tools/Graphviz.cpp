#include "Graphviz.h"

#include "Text.h"

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
#include <string>
#include <string_view>

namespace Tool {

namespace {

std::string dotString(std::string_view text) {
    std::string result = "\"";
    for (const char character : printable(text)) {
        if (character == '"' || character == '\\') {
            result += '\\';
        }
        result += character;
    }
    return result + '"';
}

std::string attributesOf(const Kind& kind) { return fmt::format("shape={}, fillcolor=\"{}\"", kind.shape, kind.color); }

std::string nodeOf(const std::string& typeId, const Item& item) {
    const std::string& label = item.name.empty() ? typeId : item.name;
    return fmt::format("  {} [label={}, tooltip={}, {}];\n", dotString(typeId), dotString(label), dotString(typeId),
                       attributesOf(*item.kind));
}

constexpr std::size_t legendColumns = 4;

/// Invisible edges keep the entries in rows.
std::string legendOf(const std::map<std::string, const Kind*>& kinds) {
    std::string legend = "  subgraph cluster_legend {\n    label=\"Legend\";\n    color=\"#999999\";\n";
    std::string last;
    std::size_t column = 0;
    for (const auto& [name, kind] : kinds) {
        const std::string node = fmt::format("\"legend {}\"", name);
        legend += fmt::format("    {} [label=\"{}\", {}];\n", node, name, attributesOf(*kind));
        if (column++ % legendColumns != 0) {
            legend += fmt::format("    {} -> {} [style=invis];\n", last, node);
        }
        last = node;
    }
    return legend + "  }\n";
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File temporaryFile() {
    File file(std::tmpfile(), &std::fclose);
    if (file == nullptr) {
        throw std::runtime_error(fmt::format("Cannot create a temporary file: {}.", std::strerror(errno)));
    }
    return file;
}

File fileWith(const std::string& text) {
    File file = temporaryFile();
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() || std::fflush(file.get()) != 0) {
        throw std::runtime_error("Cannot write a temporary file.");
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

/// Runs dot without a shell.
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
        throw std::runtime_error(
            "SVG output needs Graphviz, whose program dot is not installed; .dot output does not.");
    }
    int status = 0;
    if (error != 0 || waitpid(process, &status, 0) != process || status != 0) {
        throw std::runtime_error("Graphviz's program dot failed.");
    }
}

} // namespace

std::string dotText(const std::map<std::string, Item>& items, const Links& references,
                    const std::map<std::string, std::size_t>& shown) {
    std::string text =
        "digraph catalog {\n"
        "  graph [rankdir=LR, nodesep=0.15, fontname=\"Helvetica\", fontsize=11];\n"
        "  node [style=filled, fontname=\"Helvetica\", fontsize=11, height=0.35, margin=\"0.12,0.04\"];\n"
        "  edge [color=\"#555555\"];\n";
    std::map<std::string, const Kind*> kinds;
    for (const auto& [typeId, distance] : shown) {
        const Item& item = items.at(typeId);
        kinds.emplace(item.kind->name, item.kind);
        text += nodeOf(typeId, item);
    }
    for (const auto& [typeId, distance] : shown) {
        for (const std::string& reference : references.at(typeId)) {
            if (shown.count(reference) != 0) {
                text += fmt::format("  {} -> {};\n", dotString(typeId), dotString(reference));
            }
        }
    }
    return text + legendOf(kinds) + "}\n";
}

std::string svgOf(const std::string& dotText) {
    const File input = fileWith(dotText);
    const File output = temporaryFile();
    runDot(input.get(), output.get());
    return contentsOf(output.get());
}

} // namespace Tool
