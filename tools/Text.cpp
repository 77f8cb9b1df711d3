#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdio>

namespace Tool {

namespace {

unsigned char byteAt(std::string_view text, std::size_t position) { return static_cast<unsigned char>(text[position]); }

bool isContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80U; }

/// Length of the sequence that begins with a byte; 0 for a byte that begins none.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80U) {
        return 1;
    }
    if (lead < 0xC2U || lead > 0xF4U) {
        return 0;
    }
    return lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : 4;
}

/// Whether the second byte makes no overlong form, no surrogate and nothing beyond U+10FFFF.
bool isSecondByteOf(unsigned char lead, unsigned char second) {
    const unsigned lowest = lead == 0xE0U ? 0xA0U : lead == 0xF0U ? 0x90U : 0x80U;
    const unsigned highest = lead == 0xEDU ? 0x9FU : lead == 0xF4U ? 0x8FU : 0xBFU;
    return second >= lowest && second <= highest;
}

bool isSequence(std::string_view bytes) {
    return bytes.size() < 2 || (isSecondByteOf(byteAt(bytes, 0), byteAt(bytes, 1)) &&
                                std::all_of(bytes.begin() + 2, bytes.end(), [](char byte) {
                                    return isContinuation(static_cast<unsigned char>(byte));
                                }));
}

/// Whether bytes are one of the control characters from U+0080 to U+009F.
bool isHighControl(std::string_view bytes) {
    return bytes.size() == 2 && byteAt(bytes, 0) == 0xC2U && byteAt(bytes, 1) >= 0x80U && byteAt(bytes, 1) < 0xA0U;
}

} // namespace

std::string printable(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size(); ++position) {
        const unsigned char byte = byteAt(text, position);
        if (byte < 0x20U || byte == 0x7FU) {
            result += fmt::format("\\x{:02x}", byte);
        } else if (isHighControl(text.substr(position, 2))) {
            result += fmt::format("\\x{:02x}", byteAt(text, ++position));
        } else {
            result += text[position];
        }
    }
    return result;
}

std::size_t widthOf(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char byte) { return !isContinuation(static_cast<unsigned char>(byte)); }));
}

std::size_t findInvalidUtf8(std::string_view text) {
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t length = sequenceLength(byteAt(text, position));
        if (length == 0 || length > text.size() - position || !isSequence(text.substr(position, length))) {
            return position;
        }
        position += length;
    }
    return std::string_view::npos;
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
    // Where errors cannot be written there is nowhere to tell so.
    static_cast<void>(std::fputs(fmt::format("parameters: {}\n", message).c_str(), stderr));
}

} // namespace Tool
