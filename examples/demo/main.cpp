// Loads a folder of schema documents and shows what the library makes of them.

#include <Parameters/ParametersEngine.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using Parameters::DataModelVersion;
using Parameters::ParametersEngine;

/// In the order of their names, so that each run shows the same.
std::vector<std::filesystem::path> documentsIn(const std::filesystem::path& folder) {
    if (!std::filesystem::is_directory(folder)) {
        throw std::runtime_error(folder.string() + " is no folder.");
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && entry.path().extension() == ".json") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error(file.string() + " cannot be read.");
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

void load(ParametersEngine& engine, const std::filesystem::path& folder) {
    const auto files = documentsIn(folder);
    for (const auto& file : files) {
        try {
            engine.registerSchema(contentsOf(file));
        } catch (const Parameters::ValidationException& exception) {
            throw std::runtime_error(file.string() + ": " + exception.what());
        }
    }
    engine.resolveSchemas();
    std::cout << "Loaded " << files.size() << " documents from " << folder.string() << ".\n";
}

void showCounts(const ParametersEngine& engine) {
    const std::pair<const char*, std::size_t> counts[] = {
        {"disciplines", engine.getAllDisciplines().size()},
        {"domains", engine.getAllDomains().size()},
        {"groups", engine.getAllGroups().size()},
        {"units", engine.getUnitsEngine().getAllUnits().size()},
    };
    for (const auto& [kind, count] : counts) {
        std::cout << std::setw(6) << count << ' ' << kind << '\n';
    }
}

const char* textOf(DataModelVersion version) {
    static constexpr std::array<const char*, 3> texts = {"1.0.0", "2.0.0", "3.0.0"};
    return texts.at(static_cast<std::size_t>(version));
}

void showDiscipline(const ParametersEngine& engine, const Parameters::Taxon& discipline) {
    const std::string typeId = discipline.getTypeId();
    const auto [lowest, highest] = engine.getCompatibleDataModelRange(typeId);
    std::cout << "\nDiscipline " << typeId << "\n  name                 " << discipline.getName()
              << "\n  data model versions  " << textOf(lowest) << " to " << textOf(highest)
              << "\n\nIts text, as it was registered:\n"
              << engine.getSchema(typeId) << "\nIts text for readers of data model 2.0.0:\n"
              << engine.getSchemaInCompatibleFormat(DataModelVersion::V2, typeId) << '\n';
}

/// What the engine has against a document.
std::string objectionTo(ParametersEngine& engine, const std::string& text) {
    try {
        engine.registerSchema(text);
    } catch (const Parameters::ValidationException& exception) {
        return exception.what();
    }
    return "nothing";
}

void showObjections(ParametersEngine& engine, const std::string& registeredText) {
    const std::string nameless = R"({"typeid":"acme.building:group.nameless-1.0.0",)"
                                 R"("inherits":["quovanta.parameter:group-1.0.0"]})";
    std::cout << "\nWhat the engine has against a document"
              << "\n  cut off after 60 bytes:  " << objectionTo(engine, nameless.substr(0, 60))
              << "\n  without a name:          " << objectionTo(engine, nameless)
              << "\n  registered before:       " << objectionTo(engine, registeredText) << '\n';
}

void run(const std::filesystem::path& folder) {
    ParametersEngine engine;
    load(engine, folder);
    showCounts(engine);

    const auto disciplines = engine.getAllDisciplines();
    const auto shown = std::find_if(disciplines.begin(), disciplines.end(), [](const auto& entry) {
        return entry.second.getSchemaFormat() == Units::SchemaFormat::LumarDataSchema;
    });
    if (shown == disciplines.end()) {
        throw std::runtime_error(folder.string() + " has no discipline of data model 3.0.0 to show.");
    }
    showDiscipline(engine, shown->second);
    showObjections(engine, engine.getSchema(shown->first));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: demo FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        run(argv[1]);
    } catch (const std::exception& exception) {
        std::cerr << "demo: " << exception.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
