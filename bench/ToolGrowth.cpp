// Measures how the time of the catalog tool grows with its input, which hostile documents would have it do faster than
// by the size.

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string repeated(std::size_t times, const std::function<std::string(std::size_t)>& piece) {
    std::string text;
    for (std::size_t number = 0; number < times; ++number) {
        text += piece(number);
    }
    return text;
}

std::string discipline(const std::string& typeId, const std::string& name, const std::string& members = "") {
    return R"({"schemaSpecification":"lumar-data-schema-2.0.0","typeid":")" + typeId +
           R"(","inherits":["quovanta.spec:discipline-2.0.0"],)" + members +
           R"("constants":[{"id":"name","typeid":"String","value":")" + name + "\"}]}\n";
}

std::string dimension(const std::string& typeId, const std::string& members) {
    return R"({"typeid":")" + typeId + R"(","inherits":["quovanta.unit:dimension-1.0.0"],)" + members +
           "\"constants\":[{\"id\":\"name\",\"value\":\"N\"}]}\n";
}

std::string members(std::size_t count) {
    return repeated(count, [](std::size_t number) { return "\"m" + std::to_string(number) + "\":1,"; });
}

/// A command on input of a size.
struct Measurement {
    const char* name;
    std::size_t size;
    /// Writes the input into the current folder.
    std::function<void(std::size_t)> prepare;
    const char* arguments;
};

void writeDocuments(const std::string& text) { std::ofstream("a.jsonl", std::ios::binary) << text; }

const std::function<void(std::size_t)> oneDimension = [](std::size_t size) {
    writeDocuments(dimension("d", members(size)));
};
const std::function<void(std::size_t)> delName = [](std::size_t size) {
    writeDocuments(discipline("d", std::string(size, '\x7f')));
};

const std::vector<Measurement> measurements = {
    {"list, a dimension with many members", 100'000, oneDimension, "list a.jsonl"},
    {"schema --pretty, a dimension with many members", 100'000, oneDimension, "schema a.jsonl --typeid d --pretty"},
    {"export, a document with many members", 20'000,
     [](std::size_t size) { writeDocuments(discipline("d", "N", members(size))); },
     "export a.jsonl --data-model 1.0.0 --out out"},
    {"export, many typeids with one stem", 4000,
     [](std::size_t size) {
         writeDocuments(repeated(
             size, [](std::size_t number) { return discipline(std::string(200, 'd') + std::to_string(number), "N"); }));
     },
     "export a.jsonl --data-model 3.0.0 --out out"},
    {"list, a name of DEL", 1'000'000, delName, "list a.jsonl"},
    {"show, a name of DEL", 1'000'000, delName, "show a.jsonl --typeid d"},
    {"graph, a name of DEL", 1'000'000, delName, "graph a.jsonl --out a.svg"},
    {"check, many missing references in a document", 20'000,
     [](std::size_t size) {
         writeDocuments(
             R"({"typeid":"c","inherits":["quovanta.talmo.category:majorCategory-1.0.0"],"constants":[)"
             R"({"id":"name","value":"N"},{"id":"domain","typedValue":{"typeid":"d"}},)"
             R"({"id":"disciplines","value":[{"typeid":"d"})" +
             repeated(size,
                      [](std::size_t number) { return R"(,{"typeid":"missing)" + std::to_string(number) + "\"}"; }) +
             "]}]}\n");
     },
     "check a.jsonl"},
    {"check, items of one number", 20'000,
     [](std::size_t size) {
         writeDocuments(
             R"({"typeid":"e","inherits":["Enum"],"properties":[{"id":"i","value":0})" +
             repeated(size,
                      [](std::size_t number) { return R"(,{"id":"i)" + std::to_string(number) + R"(","value":0})"; }) +
             "]}\n");
     },
     "check a.jsonl"},
    {"check, many documents with an error behind a warning", 10'000,
     [](std::size_t size) {
         writeDocuments(repeated(size, [](std::size_t number) {
             return R"({"oops":1,"typeid":"g)" + std::to_string(number) +
                    R"(","inherits":["quovanta.parameter:group-1.0.0"],"constants":[{"id":"name","value":1}]})"
                    "\n";
         }));
     },
     "check a.jsonl"},
    {"check, a deep folder", 500,
     [](std::size_t size) {
         writeDocuments(discipline("d", "N"));
         const fs::path top = fs::current_path();
         for (std::size_t depth = 0; depth < size; ++depth) {
             fs::create_directory("deeper");
             fs::current_path("deeper");
         }
         fs::current_path(top);
     },
     "check ."},
    {"check, a sparse file of lines", 1U << 28U,
     [](std::size_t size) {
         writeDocuments("");
         fs::resize_file("a.jsonl", size);
     },
     "check a.jsonl"},
};

/// @return the seconds that a command takes on input of a size.
double measure(const std::string& tool, const Measurement& measurement, std::size_t size) {
    const fs::path former = fs::current_path();
    std::string folder = (fs::temp_directory_path() / "growth-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
        std::perror(folder.c_str());
        std::exit(EXIT_FAILURE);
    }
    fs::current_path(folder);
    measurement.prepare(size);
    const std::string command = tool + ' ' + measurement.arguments + " >/dev/null 2>&1";
    const auto start = std::chrono::steady_clock::now();
    const int status = std::system(command.c_str());
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    fs::current_path(former);
    // By a program, since the paths are too long for the library.
    if (status < 0 || std::system(("rm -rf " + folder).c_str()) != 0) {
        std::perror(folder.c_str());
    }
    return seconds.count();
}

} // namespace

// ToolGrowth TOOL: fails if four times the input takes eight times as long, or longer.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s TOOL\n", argv[0]);
        return EXIT_FAILURE;
    }
    constexpr double mostGrowth = 8;
    bool isFine = true;
    for (const Measurement& measurement : measurements) {
        const double once = measure(argv[1], measurement, measurement.size);
        const double fourTimes = measure(argv[1], measurement, 4 * measurement.size);
        const double growth = fourTimes / once;
        std::printf("%-48s %9zu: %6.3f s, four times: %6.3f s, growth %4.1f%s\n", measurement.name, measurement.size,
                    once, fourTimes, growth, growth < mostGrowth ? "" : " TOO MUCH");
        std::fflush(stdout);
        isFine = isFine && growth < mostGrowth;
    }
    return isFine ? EXIT_SUCCESS : EXIT_FAILURE;
}
