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
    /// The library does not accept the text as a schema document.
    Refused,
    /// Accepted, not yet resolved.
    Registered,
    /// Has an error in its references, or one that only resolution finds.
    Invalid,
    /// Has no known error, but refers to an invalid or blocked document.
    Blocked,
    Finished,
};

struct Document {
    Origin origin;
    std::string text;
    /// Empty if the document is refused and has none.
    std::string typeId;
    /// The base of the frame, as JSON.
    std::string base;
    /// Typeids that the document itself names, except built-in ones.
    std::set<std::string> references;
    bool isOfUnits = false;
    DocumentState state = DocumentState::Refused;
};

/// What is wrong with a document.
struct Error {
    std::size_t document;
    std::string message;
};

/// The documents of the paths on a command line. Those without errors are finished in the engine.
struct Catalog {
    Parameters::ParametersEngine engine;
    /// In the order of the paths.
    std::vector<Document> documents;
    /// Positions of accepted documents, by typeid.
    std::map<std::string, std::size_t> positions;
    /// First those of texts, then missing references, then what only resolution finds.
    std::vector<Error> errors;
    /// One message per blocked document, in the order of the documents.
    std::vector<Error> blocked;
    /// One message per path that could not be read.
    std::vector<std::string> unreadable;
    /// Links in folders that were not followed.
    std::size_t skippedLinks = 0;
};

/// Whether a typeid is built into the library.
bool isBuiltIn(const std::string& typeId);

Catalog loadCatalog(const Sources& sources);

/// FILE[:LINE]: message
std::string formatError(const Catalog& catalog, const Error& error);

/// @return the position of the finished document with a typeid.
/// @throws std::runtime_error  there is none; the message says why.
std::size_t positionOf(const Catalog& catalog, const std::string& typeId);

} // namespace Tool
