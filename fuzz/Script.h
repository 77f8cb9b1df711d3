#pragma once

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

/// A script is what the catalog target runs: a line for each operation on one of a few engines. Texts, so that a
/// finding can be read and stays what it is when the example catalog changes.
namespace Fuzz {

constexpr std::size_t engineCount = 3;

/// What a line begins with. Behind it stand the digits of two engines, and then a document or a typeid.
namespace Operation {
constexpr char registerSchema = '+';
constexpr char registerUnits = 'u';
/// Takes the second engine for the context.
constexpr char import = 'i';
constexpr char resolve = '!';
constexpr char readDirectly = 'r';
constexpr char copyEngine = '=';
constexpr char moveEngine = '<';
/// Registers the object that the second engine has under the typeid.
constexpr char registerObject = '@';
constexpr char writeTexts = 'w';
constexpr std::string_view all = "+ui!r=<@w";
} // namespace Operation

inline std::string line(char operation, std::size_t target, std::size_t source = 0, std::string_view argument = {}) {
    std::string text{operation, static_cast<char>('0' + target), static_cast<char>('0' + source)};
    return text.append(argument).append("\n");
}

/// Without the line ends.
inline std::vector<std::string> linesOf(const std::string& script) {
    std::vector<std::string> lines;
    std::istringstream stream(script);
    for (std::string text; std::getline(stream, text);) {
        lines.push_back(text);
    }
    return lines;
}

} // namespace Fuzz
