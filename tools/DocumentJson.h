#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace Tool {

/// Keeps the order of the members.
using Json = nlohmann::ordered_json;

/// A document's text as JSON; discarded if it is none.
Json parseDocument(const std::string& text);

/// What can be told of a document without a tree of its text, which takes long and much room if the text is hostile.
struct DocumentFrame {
    bool isJson = false;
    /// Empty if there is none.
    std::string typeId;
    /// What tells of which kind the document is: its bases, its specification and its type.
    Json base = Json::object();
};

DocumentFrame readFrame(const std::string& text);

/// The text at a key; empty if there is none.
std::string textAt(const Json& object, const char* key);

/// The value of a constant that is a text; empty if there is none.
std::string textConstant(const Json& document, const char* id);

/// Laid out for people.
std::string prettyPrinted(const std::string& text);

} // namespace Tool
