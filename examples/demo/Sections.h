#pragma once

#include "Catalog.h"

#include <filesystem>

/// The sections of what the demo shows, in their order. All throw a std::exception if something is not as expected.
namespace Demo {

/// How many items of each kind there are, and in how many versions each of them can be written.
void showCatalog(const Catalog& catalog, const std::filesystem::path& folder);

void showTaxon(const Parameters::ParametersEngine& engine, const Parameters::Taxon& taxon);

void showSpec(const Parameters::ParametersEngine& engine, const Parameters::Spec& spec);

void showParameter(const Parameters::ParametersEngine& engine, const Parameters::Parameter& parameter);

/// What the engine says to faulty documents and requests.
void showRefusals(const Parameters::ParametersEngine& engine);

/// Documents registered in a new engine, with a library of another author as their context.
void showImport(const std::filesystem::path& libraryFolder, const std::filesystem::path& importFolder);

} // namespace Demo
