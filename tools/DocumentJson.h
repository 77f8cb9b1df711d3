#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace Tool {

/// Indents a JSON text. Changes nothing but blanks.
std::string prettyPrinted(std::string_view text);

/// A JSON text on one line, without blanks between its tokens.
std::string withoutBlanks(std::string_view text);

/// What is made to be printed.
using OutputJson = nlohmann::ordered_json;

/// Its text, indented and safe for terminals. What is no UTF-8, such as in the name of a file, is replaced.
std::string dumped(const OutputJson& json);

} // namespace Tool
