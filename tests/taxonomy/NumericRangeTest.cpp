#include "support/Objects.h"

#include <cmath>

namespace Parameters {
namespace {

using namespace Documents;

const Kind<FloatRange> floatRanges = {&ParametersEngine::registerFloatRange, &ParametersEngine::getFloatRange};
const Kind<IntRange> intRanges = {&ParametersEngine::registerIntRange, &ParametersEngine::getIntRange};
const std::string floats = "quovanta.range:range.float64.bounded.static-";
const std::string ints = "quovanta.range:range.int64.bounded.static-";
const std::string bound = R"({"id":"fromBottom","value":true},)";
const std::string flags = bound + R"({"id":"fromTop","value":false},)";

TEST(NumericRangeTest, ReadsFlagsAndWritesTheBoundariesThatBind) {
    const std::string numbers = R"({"id":"topBoundary","value":-3},{"id":"bottomBoundary","value":9})";
    const std::string older = R"({"id":"fromBottom","value":true},{"id":"bottomBoundary","value":9},)"
                              R"({"id":"fromTop","value":false})";
    const std::string newer = R"({"id":"fromBottom","typeid":"Bool","value":true},)"
                              R"({"id":"bottomBoundary","value":9,"typeid":"Int64"},)"
                              R"({"id":"fromTop","typeid":"Bool","value":false})";
    intRanges.expectTexts(fullForm("x", "acme." + ints + "9", flags + numbers), shortForm("x", ints + "1.0.0", older),
                          fullForm("x", ints + "2.0.0", newer));
    EXPECT_EQ(fixture({shortForm("x", ints, flags + numbers)}).getIntRange("x").getTopBoundary(), -3);
}

TEST(NumericRangeTest, WritesNumbersAsFarAsJSONHasThem) {
    const std::string top = R"({"id":"fromTop","typeid":"Bool","value":true},)";
    const std::string text = R"({"id":"fromBottom","typeid":"Bool","value":true},)" + top +
                             R"({"id":"topBoundary","value":10000000000000000000.0,"typeid":"Float64"})";
    const std::string integer =
        bound + top + R"({"id":"topBoundary","value":10000000000000000000},{"id":"bottomBoundary","value":-0.0})";
    EXPECT_EQ(floatRanges.fixtureWith(fullForm("x", "acme." + floats, integer)).getSchema("x"),
              fullForm("x", floats + "2.0.0", text));
    for (const double boundary : {HUGE_VAL, std::nan("")}) {
        ParametersEngine engine;
        engine.registerFloatRange({"x", true, boundary, false, 0, Format::LumarDataSchema});
        EXPECT_THROWS(engine.getSchema("x"), ValidationException, cannotRepresent);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat({}, "x"), ValidationException, cannotRepresent);
    }
}

// Each text has the faults of later rows as well, so that the rows show which comes first.
TEST(NumericRangeTest, ReportsTheFirstFault) {
    const std::string bad = R"({"id":"bottomBoundary","value":null},{"id":"topBoundary","value":"1"})";
    const auto range = [](const std::string& constants) { return shortForm("x", ints, constants); };
    const std::string noInteger = "Expected an integer.";
    expectRefused({{range(R"({"id":"fromTop","value":0},)" + bad), "Schema x has an undefined fromBottom constant."},
                   {range(bound + bad), "Schema x has an undefined fromTop constant."},
                   {range(bound + R"({"id":"fromTop","value":0},)" + bad), "Expected a Boolean value."},
                   {range(flags + bad), noInteger},
                   {range(flags + R"({"id":"topBoundary","value":3.0})"), noInteger},
                   {range(flags + R"({"id":"bottomBoundary","value":-9223372036854775809})"), noInteger},
                   {shortForm("x", floats, flags + bad), "Expected a number."}});
}

} // namespace
} // namespace Parameters
