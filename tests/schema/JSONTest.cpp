#include "schema/JSON.h"

#include "schema/ValidationExceptionFactory.h"

#include <Parameters/Exceptions.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

namespace Parameters {
namespace {

/// What is read as a string, or what is wrong with it.
std::string read(const std::string& text) {
    static const ValidationExceptionFactory exceptionFactory;
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

} // namespace
} // namespace Parameters
