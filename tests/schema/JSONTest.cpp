#include "schema/JSON.h"

#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/Parsing.h"

#include <Parameters/Exceptions.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

using Documents::repeated;

/// The names of the tests that the value passes.
std::string typesOf(const JSON& json) {
    std::string types;
    const auto add = [&types](bool passed, const char* name) { types += passed ? name : ""; };
    add(json.isObject(), "object ");
    add(json.isArray(), "array ");
    add(json.isString(), "string ");
    add(json.isBool(), "bool ");
    add(json.isNumber(), "number ");
    add(json.isInt64(), "int64 ");
    return types;
}

TEST(JSON, SaysWhereAndWhyATextIsRefused) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "0: The document is empty."},
        {std::string("\0{}", 3), "0: The document is empty."},
        {"{} x", "3: The document root must not be followed by other values."},
        {"nul", "3: Invalid value."},
        {"[1,]", "3: Invalid value."},
        {"\xEF\xBB\xBF{}", "0: Invalid value."},
        {"{1:2}", "1: Missing a name for an object member."},
        {R"({"a" 1})", "5: Missing a colon after the name of an object member."},
        {R"({"a":1 "b":2})", "7: Missing a comma or '}' after an object member."},
        {"[1 2]", "3: Missing a comma or ']' after an array element."},
        {R"(["\u12G4"])", R"(2: Incorrect hex digit after \\u escape in a string.)"},
        {R"(["\uD800x"])", "2: The Unicode surrogate pair in a string is invalid."},
        {R"(["a\x"])", "3: Invalid escape character in a string."},
        {R"("abc)", "4: Missing a closing quotation mark in a string."},
        {"[1,-1234e306]", "3: Number too big to be stored in a double."},
        {"[1.]", "3: Missing a fractional part in a number."},
        {"[1e]", "3: Missing an exponent in a number."},
        {repeated("[", 1000000), "513: Parsing was terminated."},
        {repeated(R"({"a":)", 1000000), "2561: Parsing was terminated."},
    };
    for (const auto& [text, error] : cases) {
        EXPECT_THROWS(parsed(text), ValidationException, "JSON parsing error at offset " + error) << text.substr(0, 20);
    }
}

TEST(JSON, CutsTextsAndStringsAtTheFirstNul) {
    const JSON root = parsed(std::string(R"({"a":"b\u0000c","d\u0000e":"f"})") + std::string("\0x", 2));
    EXPECT_EQ(root.getMember("a").getString(), "b");
    EXPECT_FALSE(root.hasMember("d"));
    EXPECT_TRUE(root.hasMember(std::string("d\0e", 3)));
    EXPECT_EQ(root.getStringMap(), (std::map<std::string, std::string>{{"a", "b"}, {"d", "f"}}));
}

TEST(JSON, TellsTypesApart) {
    const std::pair<const char*, const char*> cases[] = {
        {"{}", "object "},
        {"[]", "array "},
        {R"("")", "string "},
        {"null", ""},
        {"1", "number int64 "},
        {"9223372036854775807", "number int64 "},
        {"9223372036854775808", "number "},
        {"-9223372036854775809", "number "},
        {"1e3", "number "},
    };
    for (const auto& [text, types] : cases) {
        EXPECT_EQ(typesOf(parsed(text)), types) << text;
    }
    EXPECT_EQ(typesOf(JSON(std::int64_t{5000000000})), "number int64 ");
    EXPECT_EQ(parsed("-9223372036854775808").getInt64(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(parsed("18446744073709551615").getDouble(), 18446744073709551615.0);
}

TEST(JSON, LooksMembersUp) {
    const JSON root = parsed(R"({"a":"first","list":[1,{"b":null}],"a":"second"})");
    EXPECT_EQ(root.getMember("a").getString(), "first");
    EXPECT_EQ(root.getMember("list").getArray()[1].toString(), R"({"b":null})");
    for (const JSON& nowhere : {root.getMember("A"), root.getMember("list").getMember("b"),
                                root.getMember("A").getMember("a"), parsed("1").getMember("")}) {
        EXPECT_EQ(typesOf(nowhere), "");
        EXPECT_FALSE(nowhere.hasMember("a"));
    }
    EXPECT_EQ(parsed(R"({"b":"1","a":"","b":"2"})").getStringMap().at("b"), "2");
    EXPECT_THROWS(parsed(R"([{"a":"1","b":2}])").getArray().front().getStringMap(), ValidationException,
                  "Expected a map with string keys and values, but value was not a string.");
}

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
    const std::string deep = repeated("[", JSON::maximumDepth) + repeated("]", JSON::maximumDepth);
    EXPECT_EQ(parsed(deep).toString(), deep);
    EXPECT_EQ(parsed(" { \"b\" : [ 1 , 1.0 , true , null ] , \"a\" : { } }\n").toString(),
              R"({"b":[1,1.0,true,null],"a":{}})");
}

TEST(JSON, MovesValuesIntoTheTree) {
    JSON document = JSON::createDocument();
    std::string text = "a string that is longer than what fits into a value";
    std::vector<JSON> items;
    items.emplace_back(document, text);
    items.push_back(JSON::createObject());
    JSON array(document, items);
    EXPECT_EQ(items[0].toString() + items[1].toString(), "nullnull");
    std::string key = "key";
    document.addMember(document, key, array);
    EXPECT_EQ(array.toString(), "null");
    text = key = "overwritten";
    EXPECT_EQ(document.toString(), R"({"key":["a string that is longer than what fits into a value",{}]})");
}

TEST(JSON, KeepsViewsWhenTheRootMoves) {
    JSON first = parsed(R"({"a":["a string that is longer than what fits into a value"]})");
    const JSON view = first.getMember("a");
    JSON second = std::move(first);
    EXPECT_EQ(first.toString(), "null");
    first = std::move(second);
    EXPECT_EQ(second.toString(), "null");
    EXPECT_EQ(first.getSize(), 1U);
    EXPECT_EQ(view.toString(), R"(["a string that is longer than what fits into a value"])");
    EXPECT_THROWS(view.raise("Message."), ValidationException, "Message.");
}

} // namespace
} // namespace Parameters
