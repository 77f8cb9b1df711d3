#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tool {

/// Text from documents and file names without the characters that would steer a terminal or break a line.
std::string printable(std::string_view text);

/// The columns that a text in UTF-8 takes in a terminal: two for a wide character, none for a combining one.
std::size_t widthOf(std::string_view text);

/// Where a text in UTF-8 goes wrong; npos for nowhere.
std::size_t findInvalidUtf8(std::string_view text);

/// The text with the letters of ASCII in lower case.
std::string lowerCase(std::string text);

/// "1 document", "2 documents".
std::string counted(std::size_t number, std::string_view noun);

/// Writes a line to standard error, in the name of the program.
void printError(std::string_view message);

} // namespace Tool
