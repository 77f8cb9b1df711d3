// Measures what a host pays at its start, each figure as a ratio to a floor that is measured in the same run.

#include "CatalogGenerator.h"
#include "GrowthBench.h"

#include <Parameters/ParametersEngine.h>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using Parameters::DataModelVersion;
using Parameters::Parameter;
using Parameters::ParametersEngine;

void parse(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.c_str());
    benchmark::DoNotOptimize(document.HasParseError());
}

/// What the measurements of one size share; made once and never measured.
class Fixture {
public:
    explicit Fixture(std::size_t parameters) : catalog(Bench::generateCatalog(parameters)) {
        texts.insert(catalog.documents.begin(), catalog.documents.end());
        const std::size_t before = liveHeap();
        registerAll(loaded);
        loaded.resolveSchemas();
        heapPerTextByte = static_cast<double>(liveHeap() - before) / static_cast<double>(catalog.textBytes);
        objects = loaded.getAllParameters();
        shuffled = catalog.parameterTypeIds;
        std::mt19937_64 random(1);
        for (std::size_t i = shuffled.size(); i > 1; --i) {
            std::swap(shuffled[i - 1], shuffled[random() % i]);
        }
        for (const std::string& typeId : catalog.parameterTypeIds) {
            const auto range = loaded.getCompatibleDataModelRange(typeId);
            if (range.first != range.second &&
                loaded.getParameter(typeId).getSchemaFormat() == Units::SchemaFormat::LumarDataSchema) {
                convertible.push_back(typeId);
                written.push_back(loaded.getSchemaInCompatibleFormat(range.first, typeId));
                versions.push_back(range.first);
            }
        }
        imported.assign(shuffled.begin(),
                        shuffled.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(1000, shuffled.size())));
        closure = closureOf(imported);
    }

    void registerAll(ParametersEngine& engine) const {
        for (const auto& document : catalog.documents) {
            engine.registerSchema(document.second);
        }
    }

    Bench::Catalog catalog;
    std::map<std::string, std::string> texts;
    ParametersEngine loaded;
    std::map<std::string, Parameter> objects;
    std::vector<std::string> shuffled;
    std::vector<std::string> convertible;
    std::vector<std::string> written;
    std::vector<DataModelVersion> versions;
    std::vector<std::string> imported;
    std::set<std::string> closure;
    double heapPerTextByte = 0;

private:
    static std::size_t liveHeap() {
        const struct mallinfo2 info = mallinfo2();
        return info.uordblks + info.hblkhd;
    }

    [[nodiscard]] std::set<std::string> closureOf(std::vector<std::string> work) const {
        std::set<std::string> found;
        while (!work.empty()) {
            const std::string typeId = work.back();
            work.pop_back();
            if (found.insert(typeId).second) {
                const auto dependencies = loaded.getDependencies(typeId);
                work.insert(work.end(), dependencies.begin(), dependencies.end());
            }
        }
        return found;
    }
};

const Fixture& fixture(std::size_t parameters) {
    static std::map<std::size_t, std::unique_ptr<Fixture>> fixtures;
    auto& made = fixtures[parameters];
    if (!made) {
        made = std::make_unique<Fixture>(parameters);
    }
    return *made;
}

/// A piece of work over a whole catalog. Its set-up, and what it leaves, are not measured.
struct Measurement {
    const char* name;
    std::function<void(const Fixture&, benchmark::State&)> run;
};

template <class Work> void each(benchmark::State& state, const std::vector<std::string>& typeIds, Work work) {
    for ([[maybe_unused]] auto iteration : state) {
        for (const std::string& typeId : typeIds) {
            work(typeId);
        }
    }
}

/// Runs work on an engine of its own that prepare has filled.
template <class Prepare, class Work> void onNewEngine(benchmark::State& state, Prepare prepare, Work work) {
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        auto engine = std::make_unique<ParametersEngine>();
        prepare(*engine);
        state.ResumeTiming();
        work(*engine);
        state.PauseTiming();
        engine.reset();
        state.ResumeTiming();
    }
}

const auto nothing = [](ParametersEngine& /*engine*/) {};

const std::vector<Measurement> measurements = {
    {"floor: parse",
     [](const Fixture& f, benchmark::State& state) {
         for ([[maybe_unused]] auto iteration : state) {
             for (const auto& document : f.catalog.documents) {
                 parse(document.second);
             }
         }
     }},
    {"floor: parse written",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.written, [](const std::string& text) { parse(text); });
     }},
    {"floor: map find",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled, [&](const std::string& typeId) { benchmark::DoNotOptimize(f.objects.find(typeId)); });
     }},
    {"floor: map find and copy",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled, [&](const std::string& typeId) {
             const Parameter copy = f.objects.find(typeId)->second;
             benchmark::DoNotOptimize(&copy);
         });
     }},
    {"floor: map find and copy text",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled, [&](const std::string& typeId) {
             const std::string copy = f.texts.find(typeId)->second;
             benchmark::DoNotOptimize(copy.data());
         });
     }},
    {"floor: register closure",
     [](const Fixture& f, benchmark::State& state) {
         onNewEngine(state, nothing, [&](ParametersEngine& engine) {
             for (const std::string& typeId : f.closure) {
                 engine.registerSchema(f.texts.find(typeId)->second);
             }
             engine.resolveSchemas();
         });
     }},
    {"registerSchema",
     [](const Fixture& f, benchmark::State& state) {
         onNewEngine(state, nothing, [&](ParametersEngine& engine) { f.registerAll(engine); });
     }},
    {"resolveSchemas",
     [](const Fixture& f, benchmark::State& state) {
         onNewEngine(
             state, [&](ParametersEngine& engine) { f.registerAll(engine); },
             [](ParametersEngine& engine) { engine.resolveSchemas(); });
     }},
    {"registerSchemas",
     [](const Fixture& f, benchmark::State& state) {
         onNewEngine(state, nothing, [&](ParametersEngine& engine) { engine.registerSchemas(f.texts); });
     }},
    {"getParameter",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled, [&](const std::string& typeId) {
             const Parameter parameter = f.loaded.getParameter(typeId);
             benchmark::DoNotOptimize(&parameter);
         });
     }},
    {"isRegistered, hit",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled,
              [&](const std::string& typeId) { benchmark::DoNotOptimize(f.loaded.isRegistered(typeId)); });
     }},
    {"isRegistered, miss",
     [](const Fixture& f, benchmark::State& state) {
         std::vector<std::string> unknown = f.shuffled;
         for (std::string& typeId : unknown) {
             typeId.back() = 'x';
         }
         each(state, unknown,
              [&](const std::string& typeId) { benchmark::DoNotOptimize(f.loaded.isRegistered(typeId)); });
     }},
    {"getSchema",
     [](const Fixture& f, benchmark::State& state) {
         each(state, f.shuffled, [&](const std::string& typeId) {
             const std::string text = f.loaded.getSchema(typeId);
             benchmark::DoNotOptimize(text.data());
         });
     }},
    {"getSchemaInCompatibleFormat",
     [](const Fixture& f, benchmark::State& state) {
         for ([[maybe_unused]] auto iteration : state) {
             for (std::size_t i = 0; i < f.convertible.size(); ++i) {
                 const std::string text = f.loaded.getSchemaInCompatibleFormat(f.versions[i], f.convertible[i]);
                 benchmark::DoNotOptimize(text.data());
             }
         }
     }},
    {"copy of a loaded engine",
     [](const Fixture& f, benchmark::State& state) {
         for ([[maybe_unused]] auto iteration : state) {
             auto copy = std::make_unique<ParametersEngine>(f.loaded);
             state.PauseTiming();
             copy.reset();
             state.ResumeTiming();
         }
     }},
    {"registerSchemaWithContext, 1,000 parameters",
     [](const Fixture& f, benchmark::State& state) {
         onNewEngine(state, nothing, [&](ParametersEngine& engine) {
             for (const std::string& typeId : f.imported) {
                 // One that another has brought along is there already.
                 if (!engine.isRegistered(typeId)) {
                     engine.registerSchemaWithContext(f.texts.find(typeId)->second, f.loaded);
                 }
             }
             engine.resolveSchemas();
         });
     }},
};

/// What a figure is compared with, and how large the ratio may be.
struct Goal {
    const char* name;
    const char* floor;
    double ratio;
};

const std::vector<Goal> goals = {
    {"registerSchema", "floor: parse", 2.2},
    {"resolveSchemas", "floor: parse", 1.3},
    {"registerSchemas", "floor: parse", 3.5},
    {"getParameter", "floor: map find and copy", 1.1},
    {"isRegistered, hit", "floor: map find", 1.5},
    {"isRegistered, miss", "floor: map find", 1.5},
    {"getSchema", "floor: map find and copy text", 1.5},
    {"getSchemaInCompatibleFormat", "floor: parse written", 1.5},
    {"copy of a loaded engine", "floor: parse", 1.5},
    {"registerSchemaWithContext, 1,000 parameters", "floor: register closure", 3.0},
};
constexpr double heapGoal = 3.0;

/// Keeps the medians, in milliseconds by name and size, beside what is printed.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                medians[run.run_name.function_name] = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, double> medians;
};

std::string fullName(const std::string& name, std::size_t parameters) {
    return name + " @" + std::to_string(parameters);
}

/// The table of ratios, one column a size, and the cost a document for the plot.
void writeReport(const std::string& folder, const std::vector<std::size_t>& sizes,
                 const std::map<std::string, double>& medians) {
    const auto ratio = [&](const char* name, const char* floor, std::size_t size) {
        return medians.at(fullName(name, size)) / medians.at(fullName(floor, size));
    };
    std::ofstream table(folder + "/table.md");
    const auto line = [&](const std::string& text) {
        std::printf("%s\n", text.c_str());
        table << text << '\n';
    };
    char cell[128];
    std::string header = "| work | floor | goal |";
    std::string rule = "|---|---|--:|";
    for (const std::size_t size : sizes) {
        header += " N = " + std::to_string(size) + " |";
        rule += "--:|";
    }
    line(header);
    line(rule);
    for (const Goal& goal : goals) {
        std::snprintf(cell, sizeof cell, "| %s | %s | %.1f |", goal.name, goal.floor + sizeof("floor: ") - 1,
                      goal.ratio);
        std::string row = cell;
        for (const std::size_t size : sizes) {
            std::snprintf(cell, sizeof cell, " %.2f |", ratio(goal.name, goal.floor, size));
            row += cell;
        }
        line(row);
    }
    std::snprintf(cell, sizeof cell, "| live heap of a loaded engine | bytes of text | %.1f |", heapGoal);
    std::string row = cell;
    for (const std::size_t size : sizes) {
        std::snprintf(cell, sizeof cell, " %.2f |", fixture(size).heapPerTextByte);
        row += cell;
    }
    line(row);

    std::ofstream plot(folder + "/cost.dat");
    for (const std::size_t size : sizes) {
        const auto documents = static_cast<double>(fixture(size).catalog.documents.size());
        plot << size;
        for (const char* name : {"floor: parse", "registerSchema", "resolveSchemas"}) {
            plot << ' ' << medians.at(fullName(name, size)) * 1000 / documents;
        }
        plot << '\n';
    }
}

/// How many times as long the work on four times an input takes.
void writeGrowth(const std::string& folder, const std::map<std::string, double>& medians) {
    std::ofstream table(folder + "/growth.md");
    char line[256];
    std::snprintf(line, sizeof line, "| work | size | ms | ms at %zu times the size | ratio | goal |",
                  Bench::growthFactor);
    table << line << "\n|---|--:|--:|--:|--:|--:|\n";
    for (const Bench::Growth& growth : Bench::growths()) {
        const double once = medians.at(fullName(growth.name, growth.size));
        const double larger = medians.at(fullName(growth.name, Bench::growthFactor * growth.size));
        std::snprintf(line, sizeof line, "| %s | %zu | %.1f | %.1f | %.1f | below %.0f |", growth.name, growth.size,
                      once, larger, larger / once, Bench::growthGoal);
        std::printf("%s\n", line);
        table << line << '\n';
    }
}

benchmark::internal::Benchmark* add(const std::string& name, const std::function<void(benchmark::State&)>& run) {
    return benchmark::RegisterBenchmark(name.c_str(), run)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Repetitions(5)
        ->ReportAggregatesOnly();
}

} // namespace

// EngineBench FOLDER SIZE...: writes table.md, growth.md and cost.dat into the folder.
int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s FOLDER PARAMETERS...\n", argv[0]);
        return EXIT_FAILURE;
    }
    std::vector<std::size_t> sizes;
    for (int i = 2; i < argc; ++i) {
        sizes.push_back(static_cast<std::size_t>(std::strtoull(argv[i], nullptr, 10)));
    }
    for (const std::size_t size : sizes) {
        for (const Measurement& measurement : measurements) {
            add(fullName(measurement.name, size),
                [&, size](benchmark::State& state) { measurement.run(fixture(size), state); });
        }
    }
    for (const Bench::Growth& growth : Bench::growths()) {
        for (const std::size_t size : {growth.size, Bench::growthFactor * growth.size}) {
            add(fullName(growth.name, size), [&, size](benchmark::State& state) {
                const auto work = growth.prepare(size);
                for ([[maybe_unused]] auto iteration : state) {
                    work();
                }
            });
        }
    }
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    writeReport(argv[1], sizes, reporter.medians);
    writeGrowth(argv[1], reporter.medians);
    return EXIT_SUCCESS;
}
