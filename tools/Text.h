#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tool {

/// Escapes control characters, so that text from documents and file names neither controls the terminal nor breaks
/// lines.
std::string printable(std::string_view text);

/// The columns that a text in UTF-8 takes in a terminal: two for a wide character, none for a combining one.
std::size_t widthOf(std::string_view text);

/// @return the offset of the first byte that is not UTF-8; npos if there is none.
std::size_t findInvalidUtf8(std::string_view text);

/// Converts ASCII letters to lower case.
std::string lowerCase(std::string text);

/// "1 document", "2 documents".
std::string counted(std::size_t number, std::string_view noun);

/// Prints a line to standard error, after the name of the program.
void printError(std::string_view message);

} // namespace Tool
