#pragma once

#include <string>
#include <string_view>

namespace Tool {

/// Whether the text is JSON as a whole.
bool isCompleteJson(std::string_view text);

// Of a document that the library has taken. None reads on behind what it looks for.

/// Empty if there is none.
std::string typeIdOf(std::string_view text);
/// The value of the constant that holds the name; empty if there is none.
std::string nameOf(std::string_view text);
/// Whether the document names the specification that it follows.
bool hasSpecification(std::string_view text);

} // namespace Tool
