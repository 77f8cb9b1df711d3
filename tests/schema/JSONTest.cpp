#include "schema/JSON.h"

#include "engine/ValidationExceptionFactory.h"

#include <Parameters/Exceptions.h>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {
namespace {

const ValidationExceptionFactory exceptionFactory;

/// What is read as a string, or what is wrong with it.
std::string read(const std::string& text) {
    try {
        const JSON::Document tree = JSON::parse(exceptionFactory, text);
        const JSON json = tree.root();
        return json.isString() ? json.getString() : "no string";
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
    const JSON::Document tree = JSON::parse(exceptionFactory, text);
    const JSON array = tree.root();
    const std::string strings[] = {
        "\"\\/\b\f\n\r\t", "plain", "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "", "end\\", "a", "\\"};
    for (std::uint32_t i = 0; i < std::size(strings); ++i) {
        EXPECT_EQ(array.getElement(i).getString(), strings[i]);
    }
    EXPECT_EQ(array.getElement(std::size(strings)).getMember("id").getString(), "\\");
    EXPECT_EQ(text, source);
}

TEST(JSON, ReadsNumbersBeyondTheRangeOfDoubleAsInfinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::pair<std::string, double> numbers[] = {
        {"10e308", infinity},
        {"-10e308", -infinity},
        {"1.7976931348623158e308", infinity},
        {"1e-400", 0},
    };
    for (const auto& [text, number] : numbers) {
        const JSON::Document tree = JSON::parse(exceptionFactory, text);
        EXPECT_EQ(tree.root().getDouble(), number) << text;
    }
    EXPECT_EQ(read(R"({"a":11e308,">)"),
              "JSON parsing error at offset 14: Missing a closing quotation mark in a string.");
    EXPECT_EQ(read("[1e309]"), "JSON parsing error at offset 1: Number too big to be stored in a double.");
}

// The texts are pieced together, so that most of them have a fault or none at any place.
TEST(JSON, AcceptsAndRefusesWhatThePlainParserDoes) {
    constexpr std::string_view pieces[] = {
        "{",       "}",       "[",    "]",      ",",       ":",      "\"",     "\"a\"",   "\"\\u00e9\"",
        "\\ud83d", "\\ude00", "\\x",  "true",   "null",    "tru",    "1",      "-",       "0",
        "01",      "1.5",     "1.",   "1e",     "e308",    "10e308", "-9e307", "1e309",   "\t",
        " ",       "\x01",    "\xC3", "\"b\":", "{\"a\":", "[1,",    "]}",     "\"\\u12", std::string_view("\0", 1)};
    std::mt19937 random(7);
    std::map<int, std::string> messages;
    std::size_t accepted = 0;
    for (std::size_t i = 0; i < 60000; ++i) {
        std::string text;
        for (std::size_t count = random() % 8; count > 0; --count) {
            text += pieces[random() % std::size(pieces)];
        }
        rapidjson::Document plain;
        plain.Parse(text.c_str());
        const std::string outcome = read(text);
        if (!plain.HasParseError()) {
            ++accepted;
            EXPECT_EQ(outcome.rfind("JSON parsing error", 0), std::string::npos) << text;
            continue;
        }
        const std::string beginning = "JSON parsing error at offset " + std::to_string(plain.GetErrorOffset()) + ": ";
        ASSERT_EQ(outcome.substr(0, beginning.size()), beginning) << text;
        const std::string message = outcome.substr(beginning.size());
        EXPECT_EQ(messages.try_emplace(plain.GetParseError(), message).first->second, message) << text;
    }
    EXPECT_GT(accepted, 1000U);
    EXPECT_EQ(messages.size(), 14U) << "of the codes, 12, 16 and 17 are of no text that is taken as it is";
}

} // namespace
} // namespace Parameters
