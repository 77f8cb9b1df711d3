#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tool {

/// What may stand between the tokens of JSON.
inline constexpr std::string_view blanks = " \t\r\n";

/// Escapes what is no UTF-8 and what cannot be seen, but for blanks: control characters, separators of lines, what
/// changes the direction of text, characters without width or meaning. So text from documents and file names neither
/// controls the terminal nor breaks lines nor looks like another text.
std::string printable(std::string_view text);

/// As printable(), for a text in JSON: the characters are escaped as JSON does, so that it says the same.
std::string printableJson(std::string_view json);

/// Cuts a text to so many characters, the last of which is then an ellipsis.
std::string shortened(std::string_view text, std::size_t longest);

/// The columns that a text in UTF-8 takes in a terminal: two for a wide character, none for a combining one.
std::size_t widthOf(std::string_view text);

/// @return the offset of the first byte that is not UTF-8; npos if there is none.
std::size_t findInvalidUtf8(std::string_view text);

bool beginsWith(std::string_view text, std::string_view beginning);

/// Converts ASCII letters to lower case.
std::string lowerCase(std::string text);

/// "1 document", "2 documents".
std::string counted(std::size_t number, std::string_view noun);

/// Prints a line to standard error, after the name of the program.
void printError(std::string_view message);

} // namespace Tool
