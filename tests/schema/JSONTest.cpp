#include "schema/JSON.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace Parameters {
namespace {

TEST(JSON, PrintsCompactTexts) {
    const std::pair<double, const char*> doubles[] = {
        {1, "1.0"},         {-0.0, "-0.0"},
        {0.1, "0.1"},       {1e20, "100000000000000000000.0"},
        {1e21, "1e21"},     {1.5e-7, "1.5e-7"},
        {5e-324, "5e-324"}, {std::numeric_limits<double>::max(), "1.7976931348623157e308"},
    };
    for (const auto& [number, text] : doubles) {
        EXPECT_EQ(JSON(number).toString(), text);
    }
    const JSON document = JSON::createDocument();
    EXPECT_EQ(JSON(document, std::string("\"\\/\b\f\n\r\t\x01\x1F\0\x7F\xC3\xA9\xF0\x9F\x98\x80", 18)).toString(),
              "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001F\\u0000\x7F\xC3\xA9\xF0\x9F\x98\x80\"");
}

} // namespace
} // namespace Parameters
