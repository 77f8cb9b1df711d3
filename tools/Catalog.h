#pragma once

#include "DocumentFiles.h"
#include "Findings.h"

#include <Parameters/ParametersEngine.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tool {

/// A document that is finished in the engine of its catalog.
struct Document {
    Origin origin;
    std::string_view text;
    std::string typeId;
};

/// The documents of the paths on a command line. Those without errors are finished in the engine.
struct Catalog {
    Parameters::ParametersEngine engine;
    DocumentFiles files;
    /// In the order of the paths.
    std::vector<Document> documents;
    /// Positions of documents, by typeid.
    std::unordered_map<std::string_view, std::size_t> positions;
    /// Why others are not loaded; empty if all are.
    Report report;
};

/// Whether a typeid is built into the library.
bool isBuiltIn(const std::string& typeId);

Catalog loadCatalog(DocumentFiles files);

/// Typeids that a document itself names, except built-in ones.
std::set<std::string> referencesOf(const Document& document);

/// @param ending  a typeid, or the end of one that no other has.
/// @return the typeid of the finished document.
/// @throws std::runtime_error  there is none, or several; the message says why.
std::string typeIdIn(const Catalog& catalog, const std::string& ending);

} // namespace Tool
