#include "DocumentJson.h"

#include "Text.h"

#include <algorithm>

namespace Tool {

namespace {

/// @return the position behind a string that begins at a quotation mark.
std::size_t endOfString(std::string_view json, std::size_t begin) {
    std::size_t position = begin + 1;
    while (position < json.size() && json[position] != '"') {
        position += json[position] == '\\' ? 2 : 1;
    }
    return std::min(position + 1, json.size());
}

} // namespace

std::string prettyPrinted(std::string_view text) {
    std::string result;
    std::size_t depth = 0;
    const auto breakLine = [&] { result.append("\n").append(2 * depth, ' '); };
    for (std::size_t position = 0; position < text.size(); ++position) {
        const char character = text[position];
        if (character == '"') {
            const std::size_t end = endOfString(text, position);
            result += text.substr(position, end - position);
            position = end - 1;
        } else if (character == '{' || character == '[') {
            result += character;
            ++depth;
            const std::size_t next = text.find_first_not_of(blanks, position + 1);
            // An empty object or array stays on its line.
            if (next != std::string_view::npos && text[next] != '}' && text[next] != ']') {
                breakLine();
            }
        } else if (character == '}' || character == ']') {
            --depth;
            if (result.back() != '{' && result.back() != '[') {
                breakLine();
            }
            result += character;
        } else if (character == ',') {
            result += character;
            breakLine();
        } else if (character == ':') {
            result += ": ";
        } else if (blanks.find(character) == std::string_view::npos) {
            result += character;
        }
    }
    return result;
}

std::string withoutBlanks(std::string_view text) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const bool isString = text[position] == '"';
        const std::size_t end = isString ? endOfString(text, position) : position + 1;
        if (isString || blanks.find(text[position]) == std::string_view::npos) {
            result += text.substr(position, end - position);
        }
        position = end;
    }
    return result;
}

std::string dumped(const OutputJson& json) {
    return printableJson(json.dump(2, ' ', false, OutputJson::error_handler_t::replace));
}

} // namespace Tool
