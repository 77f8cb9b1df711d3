#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace Tool {

/// Keeps the order of the members.
using Json = nlohmann::ordered_json;

/// A document's text as JSON; discarded if it is none.
Json parseDocument(const std::string& text);

/// The text at a key; empty if there is none.
std::string textAt(const Json& object, const char* key);

/// The value of a constant that is a text; empty if there is none.
std::string textConstant(const Json& document, const char* id);

/// Laid out for people.
std::string prettyPrinted(const std::string& text);

} // namespace Tool
