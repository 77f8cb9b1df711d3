#pragma once

#include "DocumentFiles.h"

#include <Parameters/ParametersEngine.h>

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tool {

enum class DocumentState {
    /// No text that the library takes for a schema document.
    Refused,
    /// Taken, and not yet resolved.
    Registered,
    /// It has a fault that shows only beside other documents.
    Invalid,
    /// It has no fault that shows, but refers to a document that is faulty or blocked.
    Blocked,
    Finished,
};

struct Document {
    Origin origin;
    std::string text;
    /// Empty in a refused document that has none.
    std::string typeId;
    /// The base of the frame, as JSON.
    std::string base;
    /// Typeids that the document itself names, without built-in ones.
    std::set<std::string> references;
    bool isOfUnits = false;
    DocumentState state = DocumentState::Refused;
};

/// What is wrong with a document.
struct Error {
    std::size_t document;
    std::string message;
};

/// The documents behind the paths of a command line. What has no fault is finished in the engine.
struct Catalog {
    Parameters::ParametersEngine engine;
    /// In the order of the paths.
    std::vector<Document> documents;
    /// Positions of the documents that were taken, by typeid.
    std::map<std::string, std::size_t> positions;
    /// Those of texts, then those of references, then those that only resolution finds.
    std::vector<Error> errors;
    /// For each blocked document a reference that blocks it, in the order of the documents.
    std::vector<Error> blocked;
    /// Paths that could not be read, a message each.
    std::vector<std::string> unreadable;
};

/// Whether the library knows a typeid by itself.
bool isBuiltIn(const std::string& typeId);

Catalog loadCatalog(const std::vector<std::string>& paths);

/// FILE[:LINE]: message
std::string formatError(const Catalog& catalog, const Error& error);

/// The position of the finished document of a typeid.
///
/// @throws std::runtime_error  there is none; the message says why.
std::size_t positionOf(const Catalog& catalog, const std::string& typeId);

} // namespace Tool
