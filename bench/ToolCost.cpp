// Measures the processor time and the memory of commands of the catalog tool on a large catalog, against a program that
// only reads the file, registers its documents and resolves them.

#include "CatalogGenerator.h"

#include <Parameters/ParametersEngine.h>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t parameters = 90'000;

/// What one run of a program took.
struct Cost {
    double seconds = 0;
    double bytes = 0;
};

Cost costOf(const std::string& command) {
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", ("exec " + command + " >/dev/null 2>&1").c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) > 1) {
        std::fprintf(stderr, "%s failed\n", command.c_str());
        std::exit(EXIT_FAILURE);
    }
    const auto secondsOf = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), static_cast<double>(usage.ru_maxrss) * 1024};
}

/// The floor.
void load(const char* file) {
    std::ifstream lines(file);
    Parameters::ParametersEngine engine;
    for (std::string line; std::getline(lines, line);) {
        engine.registerSchema(line);
    }
    engine.resolveSchemas();
    // As the tool does, without giving the memory back.
    std::_Exit(EXIT_SUCCESS);
}

/// Writes the catalog, a document a line, with one group that has no name if it is to be broken.
std::size_t writeCatalog(const Bench::Catalog& catalog, const std::string& file, bool isBroken) {
    std::ofstream lines(file, std::ios::binary);
    bool breaks = isBroken;
    for (auto [typeId, text] : catalog.documents) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        const std::size_t base = text.find("[\"quovanta.parameter:group-");
        if (breaks && base != std::string::npos && base < text.find("\"constants\"")) {
            text.replace(text.find("\"name\""), 6, "\"nmae\"");
            breaks = false;
        }
        lines << text << '\n';
    }
    return static_cast<std::size_t>(lines.tellp());
}

double medianOf(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

} // namespace

// ToolCost TOOL
int main(int argc, char** argv) {
    if (argc == 3 && std::string(argv[1]) == "--load") {
        load(argv[2]);
    }
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s TOOL\n", argv[0]);
        return EXIT_FAILURE;
    }
    Bench::Catalog catalog = Bench::generateCatalog(parameters);
    const std::string sound = "tool-cost.jsonl";
    const std::string broken = "tool-cost-broken.jsonl";
    const auto size = static_cast<double>(writeCatalog(catalog, sound, false));
    writeCatalog(catalog, broken, true);
    const std::string tool = argv[1];
    // The generator mixes dimensions, and specs with enumerations.
    const std::string check = tool + " check --rule other-dimension=off --rule unused-enumeration=off ";
    const std::string typeId = " --typeid " + catalog.parameterTypeIds.front();
    const std::size_t documents = catalog.documents.size();
    // A child's memory counts from what it has before it becomes the command.
    catalog = {};
    malloc_trim(0);
    const std::array<std::pair<const char*, std::string>, 6> commands = {{
        {"floor: read, register and resolve", std::string(argv[0]) + " --load " + sound},
        {"check", check + sound},
        {"check, a group without a name", check + broken},
        {"show", tool + " show " + sound + typeId},
        {"deps", tool + " deps " + sound + typeId},
        {"list", tool + " list " + sound},
    }};
    constexpr std::size_t rounds = 5;
    std::array<std::vector<double>, commands.size()> seconds;
    std::array<double, commands.size()> bytes{};
    for (std::size_t round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < commands.size(); ++i) {
            const Cost cost = costOf(commands[i].second);
            seconds[i].push_back(cost.seconds);
            bytes[i] = cost.bytes;
        }
    }
    const double floor = medianOf(seconds[0]);
    std::printf("%zu documents, %.0f MB\n", documents, size / 1e6);
    for (std::size_t i = 0; i < commands.size(); ++i) {
        const double time = medianOf(seconds[i]);
        std::printf("%-34s %6.3f s, %4.2f of the floor, %4.2f bytes per byte of text\n", commands[i].first, time,
                    time / floor, bytes[i] / size);
    }
    std::remove(sound.c_str());
    std::remove(broken.c_str());
    return EXIT_SUCCESS;
}
