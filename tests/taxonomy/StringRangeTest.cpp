#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

const Kind<StringRange> ranges = {&ParametersEngine::registerStringRange, &ParametersEngine::getStringRange};
const std::string setBase = "quovanta.range:range.string.set.static-";
const std::string regexBase = "quovanta.range:range.string.regex-";

std::string set(const std::string& json) { return shortForm("x", setBase + "1.0.0", constant("allowedValues", json)); }

TEST(StringRangeTest, ReadsAndWritesItsComponent) {
    const std::string both = R"({"id":"regex","value":""},{"id":"allowedValues","value":["b","","a"]})";
    ranges.expectTexts(
        fullForm("x", regexBase + setBase, both), set(R"(["b","","a"])"),
        fullForm("x", setBase + "2.0.0", R"({"id":"allowedValues","value":["b","","a"],"typeid":"String"})"));
    ranges.expectTexts(fullForm("x", "acme." + regexBase, both),
                       shortForm("x", regexBase + "1.0.0", constant("regex", R"("")")),
                       fullForm("x", regexBase + "2.0.0", R"({"id":"regex","typeid":"String","value":""})"));
    ranges.expectTexts(set(" [ ] "), set("[]"), "");
}

TEST(StringRangeTest, ReportsItsFirstFault) {
    expectRefused({{set(R"({"0":0})"), "Expected an array."},
                   {set(R"(["a",0,"a","a"])"), "Expected an array of strings."},
                   {set(R"(["a","b","a",0])"), "Expected an array of unique strings."}});
    const StringRange twice("x", SetStringRangeComponent({"b", "", "a", "a", ""}), {});
    EXPECT_THROWS(ParametersEngine().registerStringRange(twice), ValidationException, "Value a must appear only once.");
}

TEST(StringRangeTest, HoldsValuesOfAllSizes) {
    std::vector<std::string> values = {"", "a", std::string("\0b", 2)};
    for (const std::size_t size : std::initializer_list<std::size_t>{127, 128, 129, 16383, 16384, 3000000}) {
        values.emplace_back(size, '\xff');
    }
    ParametersEngine engine;
    engine.registerStringRange({"x", SetStringRangeComponent(values), {}});
    EXPECT_EQ(engine.getStringRange("x").getSetStringRangeComponent()->getAllowedValues(), values);
}

TEST(StringRangeTest, HoldsLargeSets) {
    std::string values = R"([""])";
    for (int number = 0; number < 100000; ++number) {
        values.replace(values.size() - 1, 1, ",\"" + std::to_string(number) + "\"]");
    }
    ranges.expectTexts(set(values), set(values), "");
}

} // namespace
} // namespace Parameters
