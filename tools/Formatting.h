#pragma once

#include <string>
#include <string_view>

namespace Tool {

// Of texts that the library could parse. Only blanks and the order of members change, and strings and numbers stay as
// they were written. Known members come first, in the order in which the library writes them. Of members of one name
// the first remains the first.

/// The one layout of documents: short objects and arrays on a line, the others indented. Ends in a line feed.
std::string formatted(std::string_view text);

/// The same on a single line, without a line feed.
std::string formattedAsLine(std::string_view text);

} // namespace Tool
