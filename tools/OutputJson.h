#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace Tool {

/// What is made to be printed.
using OutputJson = nlohmann::ordered_json;

/// Its text, indented and safe for terminals. What is no UTF-8, such as in the name of a file, is replaced.
std::string dumped(const OutputJson& json);

} // namespace Tool
