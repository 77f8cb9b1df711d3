#pragma once

#include <string>
#include <vector>

namespace Tool {

/// Lists the constants, properties and attributes of a registered text that are removed or changed in the text written
/// for an older data model, one line each.
///
/// Not a loss is what each data model expresses in its own way: the frame, the base schema, the version of a built-in
/// base, and a reference that moves to another member or that the base implies.
std::vector<std::string> lossesOf(const std::string& registered, const std::string& written);

} // namespace Tool
