#include "Sections.h"

#include "Words.h"

#include <iomanip>
#include <iostream>
#include <set>
#include <stdexcept>

namespace Demo {

using namespace Parameters;

namespace {

void registerWithContext(ParametersEngine& engine, const std::filesystem::path& file, const ParametersEngine& library) {
    const std::set<std::string> unknown = engine.registerSchemaWithContext(contentsOf(file), library);
    if (!unknown.empty()) {
        throw std::runtime_error(file.string() + " refers to " + *unknown.begin() + ", which nobody knows.");
    }
    std::cout << "Registered " << file.string() << " with the library as its context.\n";
}

/// @return what the parameters that the library does not know need from it.
std::set<std::string> showOwnParameters(const ParametersEngine& engine, const ParametersEngine& library) {
    std::set<std::string> needed;
    for (const auto& [typeId, parameter] : engine.getAllParameters()) {
        if (library.isRegistered(typeId)) {
            continue;
        }
        std::cout << "\n  " << wordsFor(typeId, parameter.getName()) << "\n    is of the spec \""
                  << parameter.getSpec().getName() << "\" in the group \"" << parameter.getGroup().getName()
                  << "\"\n    and allows " << wordsFor(parameter.getRange()) << ".\n";
        for (const std::string& dependency : engine.getDependencies(typeId)) {
            if (library.isRegistered(dependency)) {
                needed.insert(dependency);
            }
        }
    }
    return needed;
}

/// @return what has come along from the library.
std::set<std::string> showImported(const ParametersEngine& engine, const ParametersEngine& library) {
    std::set<std::string> imported;
    for (const Kind& kind : itemsByKind(engine)) {
        const char* label = kind.name;
        for (const std::string& typeId : kind.typeIds) {
            if (!library.isRegistered(typeId)) {
                continue;
            }
            if (engine.getSchema(typeId) != library.getSchema(typeId)) {
                throw std::runtime_error("The text of " + typeId + " has not come along.");
            }
            std::cout << "  " << std::left << std::setw(20) << label << std::right << ' ' << typeId << '\n';
            label = "";
            imported.insert(typeId);
        }
    }
    return imported;
}

} // namespace

void showImport(const std::filesystem::path& libraryFolder, const std::filesystem::path& importFolder) {
    const Catalog library = load(libraryFolder);
    printHeading("An import from a library");
    std::cout << "An engine of its own holds the " << library.documents << " documents from " << libraryFolder.string()
              << ", the library.\nAnother engine is empty.\n";

    ParametersEngine engine;
    for (const auto& file : documentsIn(importFolder)) {
        registerWithContext(engine, file, library.engine);
    }
    engine.resolveSchemas();
    const std::set<std::string> needed = showOwnParameters(engine, library.engine);

    std::cout << "\nWhat they need has come along from the library, with its texts:\n";
    const std::set<std::string> imported = showImported(engine, library.engine);
    if (imported != needed) {
        throw std::runtime_error("What has come along is not what is needed.");
    }
    std::cout << "\nThat is " << imported.size() << " of " << library.documents
              << " items; nobody needed the others.\n";
}

} // namespace Demo
