#include "support/Objects.h"

namespace Parameters {
namespace {

const Kind<Enumeration> enumerations = {&ParametersEngine::registerEnumeration, &ParametersEngine::getEnumeration};
const std::string header = R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":)";

std::string older(const std::string& items) { return R"({"typeid":"x","inherits":["Enum"],"properties":)" + items; }
std::string newer(const std::string& items) { return header + R"("enum","typeid":"x","enum":)" + items; }

TEST(EnumerationTest, ReadsAndWritesItemsInTheOrderOfTheirNumbers) {
    const std::string items = R"([{"id":"c","value":2,"typeid":"Int64"},{"id":"a","value":9223372036854775807},)"
                              R"({"id":"b","value":2},{"id":"d","value":-9223372036854775808,"typedValue":"x"}]})";
    const std::string sorted = R"([{"id":"d","value":-9223372036854775808},{"id":"b","value":2},{"id":"c","value":2},)"
                               R"({"id":"a","value":9223372036854775807}]})";
    enumerations.expectTexts(older(items), older(sorted), "");
    enumerations.expectTexts(header + R"("enum","typeid":"x","inherits":0,"enum":)" + items, older(sorted),
                             newer(sorted));
}

TEST(EnumerationTest, ReportsTheFirstFaultInTheOrderOfTheIds) {
    const std::string noInteger = "Value a in enumeration schema x must specify an integer value.";
    const std::string noValues = "Enumeration schema x must specify at least one value.";
    const std::string properties = R"("typeid":"x","inherits":["Enum"],"properties":[{"id":"a","value":1}]})";
    expectRefused({{newer(R"([{"id":"a"},{"id":""}]})"), "ID of value in enumeration schema x must not be empty."},
                   {newer(R"([{"id":"b","value":"1"},{"id":"a","typedValue":1}]})"), noInteger},
                   {older(R"([{"id":"b","value":1},{"id":"a","value":1e3}]})"), noInteger},
                   {older(R"([{"id":"a","value":9223372036854775808}]})"), noInteger},
                   {older(R"([],"schemaType":"enum","enum":[{"id":"a","value":1}]})"), noValues},
                   {header + R"("enum",)" + properties, noValues},
                   {header + R"("Enum",)" + properties, "Schema x does not represent a unit or a dimension."}});
}

TEST(EnumerationTest, IsCheckedAndKeepsItsOrderWhenItIsRegistered) {
    ParametersEngine engine;
    EXPECT_THROWS(engine.registerEnumeration({"x", {{"a", 1}, {"", 2}, {"a", 3}}, {}}), ValidationException,
                  "ID of value in enumeration must not be empty.");
    EXPECT_THROWS(engine.registerEnumeration({"x", {{"b", 1}, {"a", 1}, {"b", 2}, {"", 3}}, {}}), ValidationException,
                  "Value b must appear only once.");
    EXPECT_THROWS(engine.registerEnumeration({"x", {}, {}}), ValidationException,
                  "Enumeration must specify at least one value.");
    engine.registerEnumeration({"x", {{"b", 2}, {"a", 2}, {"c", 1}}, {}});
    EXPECT_EQ(engine.getSchema("x"), older(R"([{"id":"b","value":2},{"id":"a","value":2},{"id":"c","value":1}]})"));
}

TEST(EnumerationTest, HoldsManyValues) {
    std::string items = R"({"id":"first","value":-1})";
    for (int number = 0; number < 100000; ++number) {
        items += R"(,{"id":")" + std::to_string(number) + R"(","value":)" + std::to_string(number) + "}";
    }
    enumerations.expectTexts(older("[" + items + "]}"), older("[" + items + "]}"), "");
}

} // namespace
} // namespace Parameters
