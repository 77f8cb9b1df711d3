#include "schema/JSONWriter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace Parameters {
namespace {

/// A document with the value as its one member, "v".
template <class Value> std::string written(const Value& value) {
    JSON::Writer document = JSON::Writer::createDocument();
    document.addMember("v", value);
    return document.toString();
}

TEST(JSONWriter, PrintsCompactTexts) {
    const std::pair<double, std::string> doubles[] = {
        {1, "1.0"},         {-0.0, "-0.0"},
        {0.1, "0.1"},       {1e20, "100000000000000000000.0"},
        {1e21, "1e21"},     {1.5e-7, "1.5e-7"},
        {5e-324, "5e-324"}, {std::numeric_limits<double>::max(), "1.7976931348623157e308"},
    };
    for (const auto& [number, text] : doubles) {
        EXPECT_EQ(written(number), "{\"v\":" + text + "}");
    }
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "{\"v\":-9223372036854775808}");
    EXPECT_EQ(written(std::string("\"\\/\b\f\n\r\t\x01\x1F\0\x7F\xC3\xA9\xF0\x9F\x98\x80", 18)),
              "{\"v\":\"\\\"\\\\/\\b\\f\\n\\r\\t\\u0001\\u001F\\u0000\x7F\xC3\xA9\xF0\x9F\x98\x80\"}");

    JSON::Writer document = JSON::Writer::createDocument();
    document.addArray("a", [&] {
        document.addElement("one");
        document.createObject([] {});
        document.createObject([&] {
            document.addObject("empty", [] {});
            document.addArray("none", [] {});
        });
        document.addElement("");
    });
    document.addMember("b", false);
    EXPECT_EQ(document.toString(), R"({"a":["one",{},{"empty":{},"none":[]},""],"b":false})");
}

TEST(JSONWriter, FindsEscapesWhereverTheyStand) {
    for (std::size_t size = 1; size < 70; ++size) {
        for (std::size_t position = 0; position < size; ++position) {
            const std::string before(position, '\xFF');
            const std::string after(size - position - 1, '!');
            EXPECT_EQ(written(before + '"' + after), "{\"v\":\"" + before + "\\\"" + after + "\"}");
            EXPECT_EQ(written(before + '\x1F' + after), "{\"v\":\"" + before + "\\u001F" + after + "\"}");
            EXPECT_EQ(written(before + '#' + after), "{\"v\":\"" + before + "#" + after + "\"}");
        }
    }
}

TEST(JSONWriter, WritesTextsOfAnySize) {
    JSON::Writer document = JSON::Writer::createDocument();
    std::string expected = "{";
    for (std::size_t size = 1; size < 5000; size += 7) {
        const std::string text(size, 'x');
        document.addMember("key", text);
        expected += (expected.size() > 1 ? ",\"key\":\"" : "\"key\":\"") + text + '"';
    }
    EXPECT_EQ(document.toString(), expected + "}");
}

} // namespace
} // namespace Parameters
