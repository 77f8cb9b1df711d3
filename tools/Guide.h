#pragma once

#include <string>
#include <string_view>

namespace Tool {

/// What the guide to the documents says of a constant, or of another member.
///
/// @param base  the base of the document, if there is one: of several sections, the one that names it speaks
/// @param name  of the member
/// @return its meaning without marks of Markdown; empty if the guide has none.
std::string meaningOf(std::string_view base, std::string_view name);

} // namespace Tool
