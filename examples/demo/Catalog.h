#pragma once

#include <Parameters/ParametersEngine.h>

#include <filesystem>
#include <string>
#include <vector>

namespace Demo {

/// The JSON files of a folder and its sub-folders in the order of their names, so that each run shows the same.
std::vector<std::filesystem::path> documentsIn(const std::filesystem::path& folder);

std::string contentsOf(const std::filesystem::path& file);

struct Catalog {
    Parameters::ParametersEngine engine;
    std::size_t documents = 0;
    /// Documents that referred to something not yet registered.
    std::size_t forwardReferences = 0;
};

/// Registers all documents of a folder and resolves them.
///
/// @throws std::runtime_error  a document is refused, refers to something that is not there, or has become no item.
Catalog load(const std::filesystem::path& folder);

struct Kind {
    /// In the plural.
    const char* name;
    std::vector<std::string> typeIds;
};

/// The typeids of all finished items, with the units and their dimensions.
std::vector<Kind> itemsByKind(const Parameters::ParametersEngine& engine);

std::size_t numberOf(const std::vector<Kind>& kinds);

} // namespace Demo
