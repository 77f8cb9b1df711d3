#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace Tool {

/// Keeps the order of the members.
using Json = nlohmann::ordered_json;

/// Parses a document; the result is discarded if the text is not JSON.
Json parseDocument(const std::string& text);

/// What can be read of a document without building a tree, which hostile texts make slow and large.
struct DocumentFrame {
    bool isJson = false;
    /// Empty if there is none.
    std::string typeId;
    /// What determines the kind of the document: its bases, specification and type.
    Json base = Json::object();
};

DocumentFrame readFrame(const std::string& text);

/// The string at a key; empty if there is none.
std::string textAt(const Json& object, const char* key);

/// The value of a string constant; empty if there is none.
std::string textConstant(const Json& document, const char* id);

/// Indents a document.
std::string prettyPrinted(const std::string& text);

} // namespace Tool
