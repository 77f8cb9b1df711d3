// Measures what a host pays at its very start, when no memory has been used yet: each sample on a fresh engine, with
// the heap given back to the system before, so that page faults count. Each stands between two samples of its floor.

#include "CatalogGenerator.h"

#include <Parameters/ParametersEngine.h>

#include <malloc.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Parameters::DataModelVersion;
using Parameters::ParametersEngine;

/// Processor time of work, in milliseconds, which other programs lengthen little.
template <class Work> double timeOf(const Work& work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double begin = now();
    work();
    return now() - begin;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Medians by row, one column a size.
struct Row {
    const char* work;
    const char* floor;
    const char* goal;
    const char* format;
    std::vector<double> medians;
};

void parse(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.c_str());
    if (document.HasParseError()) {
        std::abort();
    }
}

class ColdRun {
public:
    explicit ColdRun(std::size_t parameters) : catalog_(Bench::generateCatalog(parameters)) {}

    void run(std::vector<Row>& rows) {
        constexpr std::size_t documentsOfAllSamples = 3'000'000;
        const std::size_t samples = std::clamp<std::size_t>(documentsOfAllSamples / catalog_.documents.size(), 9, 101);
        std::vector<std::vector<double>> results(rows.size());
        for (std::size_t sample = 0; sample < samples; ++sample) {
            const double before = parseAll();
            auto engine = std::make_unique<ParametersEngine>();
            malloc_trim(0);
            const double registering = timeOf([&] {
                for (const auto& document : catalog_.documents) {
                    engine->registerSchema(document.second);
                }
            });
            const double resolving = timeOf([&] { engine->resolveSchemas(); });
            const double writing = writeAll(*engine);
            const double copying = registerInCopy(*engine);
            engine.reset();
            malloc_trim(0);
            const double floor = (before + parseAll()) / 2;
            const double values[] = {registering / floor, resolving / floor, (registering + resolving) / floor,
                                     writing / floor * static_cast<double>(catalog_.documents.size()), copying};
            for (std::size_t i = 0; i < results.size(); ++i) {
                results[i].push_back(values[i]);
            }
        }
        for (std::size_t i = 0; i < results.size(); ++i) {
            rows[i].medians.push_back(median(results[i]));
        }
    }

private:
    double parseAll() const {
        malloc_trim(0);
        return timeOf([&] {
            for (const auto& document : catalog_.documents) {
                parse(document.second);
            }
        });
    }

    /// Of one text, in the oldest version that is not its own.
    double writeAll(const ParametersEngine& engine) {
        if (written_.empty()) {
            for (const std::string& typeId : catalog_.parameterTypeIds) {
                const auto range = engine.getCompatibleDataModelRange(typeId);
                if (range.first != range.second &&
                    engine.getParameter(typeId).getSchemaFormat() == Units::SchemaFormat::LumarDataSchema) {
                    written_.emplace_back(typeId, range.first);
                }
            }
        }
        return timeOf([&] {
                   for (const auto& [typeId, version] : written_) {
                       static_cast<void>(engine.getSchemaInCompatibleFormat(version, typeId));
                   }
               }) /
               static_cast<double>(written_.size());
    }

    /// The first registration in a copy of a loaded engine.
    static double registerInCopy(const ParametersEngine& engine) {
        ParametersEngine copy = engine;
        return timeOf([&] {
            copy.registerSchema(R"({"typeid":"bench:first-1.0.0","inherits":["quovanta.parameter:group-1.0.0"],)"
                                R"("constants":[{"id":"name","value":"First"}]})");
        });
    }

    Bench::Catalog catalog_;
    std::vector<std::pair<std::string, DataModelVersion>> written_;
};

} // namespace

// ColdBench FOLDER PARAMETERS...: writes cold.md into the folder.
int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s FOLDER PARAMETERS...\n", argv[0]);
        return EXIT_FAILURE;
    }
    std::vector<Row> rows = {{"registerSchema", "parse", "2.0", "%.2f", {}},
                             {"resolveSchemas", "parse", "0.6", "%.2f", {}},
                             {"both", "parse", "2.6", "%.2f", {}},
                             {"getSchemaInCompatibleFormat, an item", "parse, a document", "0.7", "%.2f", {}},
                             {"first registration in a copy, ms", "", "0.1", "%.3f", {}}};
    std::string header = "| work | floor | goal |";
    std::string rule = "|---|---|--:|";
    for (int i = 2; i < argc; ++i) {
        ColdRun(std::strtoull(argv[i], nullptr, 10)).run(rows);
        header += std::string(" N = ") + argv[i] + " |";
        rule += "--:|";
    }
    std::ofstream table(std::string(argv[1]) + "/cold.md");
    table << header << '\n' << rule << '\n';
    for (const Row& row : rows) {
        std::string line = std::string("| ") + row.work + " | " + row.floor + " | " + row.goal + " |";
        for (const double value : row.medians) {
            char cell[64];
            std::snprintf(cell, sizeof cell, row.format, value);
            line += std::string(" ") + cell + " |";
        }
        std::printf("%s\n", line.c_str());
        table << line << '\n';
    }
    return EXIT_SUCCESS;
}
