#include "Catalog.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <set>
#include <stdexcept>

namespace Demo {

using Parameters::ParametersEngine;

namespace {

void registerDocument(Catalog& catalog, const std::filesystem::path& file) {
    try {
        const auto [unknown, unknownUnits] = catalog.engine.registerSchema(contentsOf(file));
        ++catalog.documents;
        if (!unknown.empty() || !unknownUnits.empty()) {
            ++catalog.forwardReferences;
        }
    } catch (const Parameters::ValidationException& exception) {
        throw std::runtime_error(file.string() + " is refused: " + exception.what());
    }
}

template <class Item> std::vector<std::string> typeIdsOf(const std::map<std::string, Item>& items) {
    std::vector<std::string> typeIds;
    typeIds.reserve(items.size());
    for (const auto& [typeId, item] : items) {
        typeIds.push_back(typeId);
    }
    return typeIds;
}

std::vector<std::string> dimensionsOf(const std::map<std::string, Units::Unit>& units) {
    std::set<std::string> dimensions;
    for (const auto& [typeId, unit] : units) {
        if (const auto& dimension = unit.getDimension()) {
            dimensions.insert(*dimension);
        }
    }
    return {dimensions.begin(), dimensions.end()};
}

} // namespace

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
    if (files.empty()) {
        throw std::runtime_error(folder.string() + " holds no documents.");
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

Catalog load(const std::filesystem::path& folder) {
    Catalog catalog;
    for (const auto& file : documentsIn(folder)) {
        registerDocument(catalog, file);
    }
    try {
        catalog.engine.resolveSchemas();
    } catch (const Parameters::ValidationException& exception) {
        throw std::runtime_error(folder.string() + " cannot be resolved: " + exception.what());
    }
    const std::size_t items = numberOf(itemsByKind(catalog.engine));
    if (items != catalog.documents) {
        throw std::runtime_error(folder.string() + " has " + std::to_string(catalog.documents) + " documents, but " +
                                 std::to_string(items) + " items have come of them.");
    }
    return catalog;
}

std::vector<Kind> itemsByKind(const ParametersEngine& engine) {
    const auto& units = engine.getUnitsEngine().getAllUnits();
    return {{"categories", typeIdsOf(engine.getAllCategories())},
            {"disciplines", typeIdsOf(engine.getAllDisciplines())},
            {"domains", typeIdsOf(engine.getAllDomains())},
            {"enumerations", typeIdsOf(engine.getAllEnumerations())},
            {"float ranges", typeIdsOf(engine.getAllFloatRanges())},
            {"groups", typeIdsOf(engine.getAllGroups())},
            {"int ranges", typeIdsOf(engine.getAllIntRanges())},
            {"parameters", typeIdsOf(engine.getAllParameters())},
            {"specs", typeIdsOf(engine.getAllSpecs())},
            {"string ranges", typeIdsOf(engine.getAllStringRanges())},
            {"units", typeIdsOf(units)},
            {"dimensions of units", dimensionsOf(units)}};
}

std::size_t numberOf(const std::vector<Kind>& kinds) {
    return std::accumulate(kinds.begin(), kinds.end(), std::size_t{0},
                           [](std::size_t sum, const Kind& kind) { return sum + kind.typeIds.size(); });
}

} // namespace Demo
