#include "support/ParameterDocuments.h"

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
    EXPECT_EQ(workshop({shortForm("x", ints, flags + numbers)}).getIntRange("x").getTopBoundary(), -3);
}

TEST(NumericRangeTest, WritesNumbersAsFarAsJSONHasThem) {
    const std::string top = R"({"id":"fromTop","typeid":"Bool","value":true},)";
    const std::string text = R"({"id":"fromBottom","typeid":"Bool","value":true},)" + top +
                             R"({"id":"topBoundary","value":10000000000000000000.0,"typeid":"Float64"})";
    const std::string integer =
        bound + top + R"({"id":"topBoundary","value":10000000000000000000},{"id":"bottomBoundary","value":-0.0})";
    EXPECT_EQ(floatRanges.workshopWith(fullForm("x", "acme." + floats, integer)).getSchema("x"),
              fullForm("x", floats + "2.0.0", text));
    for (const double boundary : {HUGE_VAL, std::nan("")}) {
        ParametersEngine engine;
        engine.registerFloatRange({"x", true, boundary, false, 0, Format::LumarDataSchema});
        EXPECT_THROWS(engine.getSchema("x"), ValidationException, cannotRepresent);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat({}, "x"), ValidationException, cannotRepresent);
    }
}

TEST(NumericRangeTest, IsWrittenForAParameterByHowItsTypeIdBegins) {
    struct Row {
        std::string typeId, olderTypeId;
        bool isInline;
    };
    const ParametersEngine engine = parameterWorkshop();
    const auto expectWritten = [&](const std::string& type, const std::string& spec, const std::string& family,
                                   const std::string& value, const auto& makeRange) {
        for (const auto& [typeId, olderTypeId, isInline] :
             {Row{family + "1.0.0", family + "1.0.0", true}, Row{family + "1.5.0", family + "1.5.0", true},
              Row{family + "2.0.0", family + "1.0.0", true}, Row{family + "10.0.0", family + "1.0.0", true},
              Row{family, family + "1.0.0", true},
              Row{"acme." + family + "2.0.0", "acme." + family + "2.0.0", false}}) {
            const std::string rest = isInline ? R"(","value":)" + value + "}}" : R"("}})";
            const std::string range = R"(,{"id":"range","typedValue":{"typeid":")";
            const std::string older = range + olderTypeId + rest;
            const Parameter parameter("x", "N", engine.getSpec(spec), engine.getGroup("quovanta.parameter:group-2.0.0"),
                                      makeRange(typeId), "", "", false);
            EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V2, parameter),
                      downgraded(Documents::older(".ranged." + type + "-1.0.0", older, spec)));
            EXPECT_EQ(engine.getSchema(parameter), newer(".ranged." + type + "-2.0.0", range + typeId + rest, spec));
        }
    };
    // What does not bind is written, too.
    expectWritten(
        "int64", "Int64", ints, R"({"fromBottom":true,"bottomBoundary":1,"fromTop":false,"topBoundary":7})",
        [](const std::string& typeId) { return IntRange(typeId, true, 1, false, 7, Format::LumarDataSchema); });
    expectWritten(
        "float64", "Float64", floats, R"({"fromBottom":false,"bottomBoundary":1.0,"fromTop":true,"topBoundary":0.5})",
        [](const std::string& typeId) { return FloatRange(typeId, false, 1, true, 0.5, Format::LumarDataSchema); });
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
