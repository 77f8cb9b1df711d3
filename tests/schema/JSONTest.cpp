#include "schema/JSON.h"

#include "schema/ValidationExceptionFactory.h"

#include <Parameters/Exceptions.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {
namespace {

const ValidationExceptionFactory exceptionFactory;

/// What is read as a string, or what is wrong with it.
std::string read(const std::string& text) {
    try {
        return JSON::parse(exceptionFactory, text).getString();
    } catch (const ValidationException& exception) {
        return exception.what();
    }
}

// Strings are skipped in words, so what ends a word stands at each place of one, and behind several.
TEST(JSON, ReadsStringsOfAllLengths) {
    for (std::size_t size = 0; size <= 32; ++size) {
        for (const char character : {' ', '\x7F', '\x80', '\xA2', '\xDC', '\xFF'}) {
            const std::string plain(size, character);
            const std::string begin = "\"" + plain;
            const std::string fault = "JSON parsing error at offset " + std::to_string(size + 1) + ": ";
            const std::pair<std::string, std::string> cases[] = {
                {"\"", plain},
                {R"(\na\u00e9")", plain + "\na\xC3\xA9"},
                {"", fault + "Missing a closing quotation mark in a string."},
                {"\x1F\"", fault + "Invalid escape character in a string."},
                {"\\x\"", fault + "Invalid escape character in a string."},
            };
            for (const auto& [end, result] : cases) {
                EXPECT_EQ(read(begin + end), result);
            }
        }
    }
}

// What has escapes is decoded beside the text, which stays as it is.
TEST(JSON, DecodesStringsWithEscapes) {
    constexpr std::string_view source =
        R"(["\"\\\/\b\f\n\r\t","plain","\u0041\u00e9\u20AC\uD83D\uDE00","","end\\","a\u0000b","\\",{"\u0069d":"\\"}])";
    const std::string text(source);
    const JSON array = JSON::parse(exceptionFactory, text);
    const std::string strings[] = {
        "\"\\/\b\f\n\r\t", "plain", "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "", "end\\", "a", "\\"};
    for (std::uint32_t i = 0; i < std::size(strings); ++i) {
        EXPECT_EQ(array.getElement(i).getString(), strings[i]);
    }
    EXPECT_EQ(array.getElement(std::size(strings)).getMember("id").getString(), "\\");
    EXPECT_EQ(text, source);
}

} // namespace
} // namespace Parameters
