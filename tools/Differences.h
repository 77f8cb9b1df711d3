#pragma once

#include <string>
#include <vector>

namespace Tool {

/// What a registered text holds and the one written for an older data model does not: constants, properties and
/// attributes that are gone or changed, a line each.
///
/// What each data model has in a form of its own is no loss: the frame, the base schema, the version of a built-in
/// base, and a reference that stands in another member or that the base implies.
std::vector<std::string> lossesOf(const std::string& registered, const std::string& written);

} // namespace Tool
