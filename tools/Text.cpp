#include "Text.h"

#include <fmt/core.h>
#include <utf8.h>
#include <utf8proc.h>

#include <algorithm>
#include <cstdio>

namespace Tool {

namespace {

constexpr utf8proc_int32_t noCharacter = -1;

/// Calls visit(codePoint, bytes) for each character, and visit(noCharacter, byte) for each byte that is part of none.
template <class Visit> void forEachCharacter(std::string_view text, Visit visit) {
    while (!text.empty()) {
        utf8proc_int32_t codePoint = noCharacter;
        const utf8proc_ssize_t length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                                         static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
        const std::size_t size = length > 0 ? static_cast<std::size_t>(length) : 1;
        visit(length > 0 ? codePoint : noCharacter, text.substr(0, size));
        text.remove_prefix(size);
    }
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    forEachCharacter(text, [&](utf8proc_int32_t codePoint, std::string_view bytes) {
        if (codePoint != noCharacter && utf8proc_category(codePoint) == UTF8PROC_CATEGORY_CC) {
            result += fmt::format("\\x{:02x}", codePoint);
        } else {
            result += bytes;
        }
    });
    return result;
}

std::size_t widthOf(std::string_view text) {
    std::size_t width = 0;
    forEachCharacter(text, [&](utf8proc_int32_t codePoint, std::string_view) {
        width += codePoint == noCharacter ? 1 : static_cast<std::size_t>(utf8proc_charwidth(codePoint));
    });
    return width;
}

std::size_t findInvalidUtf8(std::string_view text) { return utf8::find_invalid(text); }

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return text;
}

std::string counted(std::size_t number, std::string_view noun) {
    return fmt::format("{} {}{}", number, noun, number == 1 ? "" : "s");
}

void printError(std::string_view message) {
    // If standard error fails, there is nowhere to report it.
    static_cast<void>(std::fputs(fmt::format("parameters: {}\n", message).c_str(), stderr));
}

} // namespace Tool
