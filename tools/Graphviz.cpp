#include "Graphviz.h"

#include "Text.h"

#include <fmt/core.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Tool {

namespace {

/// Longer texts only widen the picture.
constexpr std::size_t longestLabel = 60;
constexpr std::size_t longestTooltip = 240;

/// Quotes a text for Graphviz, in which "&" would begin a character of XML.
std::string dotString(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        if (character == '&') {
            result += "&amp;";
            continue;
        }
        if (character == '"' || character == '\\') {
            result += '\\';
        }
        result += character;
    }
    return result + '"';
}

/// Text that stands in the picture.
std::string pictured(std::string_view text, std::size_t longest) {
    return dotString(shortened(printable(text), longest));
}

/// The name of a document's node, which no entry of the legend shares, nor another document, whatever its typeid.
std::string nodeName(std::string_view typeId) {
    std::string name = "document ";
    for (const char character : typeId) {
        // Told from those that stand for what is not printable.
        name += character == '\\' ? "\\\\" : std::string(1, character);
    }
    return dotString(printable(name));
}

std::string attributesOf(const Kind& kind) { return fmt::format("shape={}, fillcolor=\"{}\"", kind.shape, kind.color); }

std::string nodeOf(const std::string& typeId, const Item& item) {
    const std::string& label = item.name.empty() ? typeId : item.name;
    return fmt::format("  {} [label={}, tooltip={}, {}];\n", nodeName(typeId), pictured(label, longestLabel),
                       pictured(typeId, longestTooltip), attributesOf(*item.kind));
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

/// The status of a child that finds no dot, as that of a shell.
constexpr int notInstalled = 127;

constexpr rlim_t mostMemory = rlim_t{4} << 30U;
constexpr rlim_t largestPicture = rlim_t{1} << 30U;

void limit(decltype(RLIMIT_AS) resource, rlim_t most) {
    struct rlimit limits {};
    getrlimit(resource, &limits);
    limits.rlim_cur = std::min(limits.rlim_cur, most);
    setrlimit(resource, &limits);
}

/// Becomes dot, without a shell.
///
/// @return what failed, if anything does.
int becomeDot(std::FILE* input, std::FILE* output, unsigned seconds, pid_t parent) {
    // The alarm survives becoming another program, and so must its effect.
    std::signal(SIGALRM, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    alarm(seconds);
    // Should this program be killed, dot goes with it; it may have been killed just before.
    if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0 || getppid() != parent) {
        return ECANCELED;
    }
    limit(RLIMIT_AS, mostMemory);
    limit(RLIMIT_CPU, seconds);
    limit(RLIMIT_FSIZE, largestPicture);
    limit(RLIMIT_CORE, 0);
    if (dup2(fileno(input), STDIN_FILENO) >= 0 && dup2(fileno(output), STDOUT_FILENO) >= 0) {
        execlp("dot", "dot", "-Tsvg", nullptr);
    }
    return errno;
}

void runDot(std::FILE* input, std::FILE* output, unsigned seconds) {
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process == 0) {
        _exit(becomeDot(input, output, seconds, parent) == ENOENT ? notInstalled : EXIT_FAILURE);
    }
    int status = 0;
    if (process < 0 || waitpid(process, &status, 0) != process) {
        throw std::runtime_error(fmt::format("Graphviz's program dot cannot be run: {}.", std::strerror(errno)));
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == notInstalled) {
        throw std::runtime_error(
            "SVG output needs Graphviz, whose program dot is not installed; .dot output does not.");
    }
    if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGALRM || WTERMSIG(status) == SIGXCPU)) {
        throw std::runtime_error(fmt::format("Graphviz's program dot was ended after {}; --typeid and --depth select "
                                             "fewer documents, --timeout gives it "
                                             "more time.",
                                             counted(seconds, "second")));
    }
    if (status != 0) {
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
                text += fmt::format("  {} -> {};\n", nodeName(typeId), nodeName(reference));
            }
        }
    }
    return text + legendOf(kinds) + "}\n";
}

std::string svgOf(const std::string& dotText, unsigned seconds) {
    const File input = fileWith(dotText);
    const File output = temporaryFile();
    runDot(input.get(), output.get(), seconds);
    return contentsOf(output.get());
}

} // namespace Tool
