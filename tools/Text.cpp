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

/// Whether each character is one of ASCII that is seen, as in most texts.
bool isPlainAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char character) { return character >= ' ' && character < '\x7f'; });
}

bool isUnseen(utf8proc_int32_t codePoint) {
    if (codePoint >= ' ' && codePoint < '\x7f') {
        return false;
    }
    const utf8proc_property_t& property = *utf8proc_get_property(codePoint);
    const bool isNoCharacter = (codePoint & 0xfffe) == 0xfffe || (codePoint >= 0xfdd0 && codePoint <= 0xfdef);
    return isNoCharacter || property.ignorable != 0 || property.category == UTF8PROC_CATEGORY_CC ||
           property.category == UTF8PROC_CATEGORY_CF || property.category == UTF8PROC_CATEGORY_ZL ||
           property.category == UTF8PROC_CATEGORY_ZP;
}

std::string escaped(utf8proc_int32_t codePoint) {
    return codePoint < 0x100 ? fmt::format("\\x{:02x}", codePoint)
                             : fmt::format(codePoint < 0x10000 ? "\\u{:04x}" : "\\U{:08x}", codePoint);
}

std::string escapedInJson(utf8proc_int32_t codePoint) {
    return codePoint < 0x10000
               ? fmt::format("\\u{:04x}", codePoint)
               : fmt::format("\\u{:04x}\\u{:04x}", 0xd7c0 + (codePoint >> 10), 0xdc00 + (codePoint & 0x3ff));
}

} // namespace

std::string printable(std::string_view text) {
    if (isPlainAscii(text)) {
        return std::string(text);
    }
    std::string result;
    result.reserve(text.size());
    forEachCharacter(text, [&](utf8proc_int32_t codePoint, std::string_view bytes) {
        if (codePoint == noCharacter) {
            result += escaped(static_cast<unsigned char>(bytes.front()));
        } else if (isUnseen(codePoint)) {
            result += escaped(codePoint);
        } else {
            result += bytes;
        }
    });
    return result;
}

std::string printableJson(std::string_view json) {
    std::string result;
    result.reserve(json.size());
    forEachCharacter(json, [&](utf8proc_int32_t codePoint, std::string_view bytes) {
        if (codePoint == '\r') {
            // A blank outside of strings, but one that lets the terminal write over the line.
            result += ' ';
        } else if (codePoint == '\n' || codePoint == '\t' || codePoint == noCharacter || !isUnseen(codePoint)) {
            result += bytes;
        } else {
            result += escapedInJson(codePoint);
        }
    });
    return result;
}

std::string shortened(std::string_view text, std::size_t longest) {
    std::size_t characters = 0;
    std::size_t size = 0;
    std::size_t kept = 0;
    forEachCharacter(text, [&](utf8proc_int32_t, std::string_view bytes) {
        size += bytes.size();
        if (++characters < longest) {
            kept = size;
        }
    });
    return characters <= longest ? std::string(text) : std::string(text.substr(0, kept)) + "…";
}

std::size_t widthOf(std::string_view text) {
    if (isPlainAscii(text)) {
        return text.size();
    }
    std::size_t width = 0;
    forEachCharacter(text, [&](utf8proc_int32_t codePoint, std::string_view) {
        width += codePoint == noCharacter ? 1 : static_cast<std::size_t>(utf8proc_charwidth(codePoint));
    });
    return width;
}

std::size_t findInvalidUtf8(std::string_view text) { return utf8::find_invalid(text); }

bool beginsWith(std::string_view text, std::string_view beginning) {
    return text.substr(0, beginning.size()) == beginning;
}

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
