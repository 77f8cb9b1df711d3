#include "support/Objects.h"

namespace Parameters {
namespace {

// Each text has the faults of later rows as well, so that the rows show which comes first.
TEST(SchemaDocumentTest, IsRefusedForTheFirstFaultOfItsFrame) {
    const std::string parsing = "JSON parsing error at offset ";
    const std::string noTypeId = "Schema must specify a typeid string.";
    const std::string unsupported = "Unsupported schema specification version.";
    const std::string twiceX = "Item x in constants array must be defined only once.";
    const std::string t = R"({"typeid":"t",)";
    const std::string b = t + R"("inherits":["b"],)";
    std::string mirrored;
    for (int i = 0; i < 100; ++i) {
        mirrored += R"({"id":")" + std::to_string(i < 50 ? i : 99 - i) + R"("},)";
    }
    expectRefused({
        {std::string("\0{}", 3), parsing + "0: The document is empty."},
        {"\xEF\xBB\xBF{}", parsing + "0: Invalid value."},
        {"nul", parsing + "3: Invalid value."},
        {"[1,]", parsing + "3: Invalid value."},
        {"[1,-1e309]", parsing + "3: Number too big to be stored in a double."},
        {R"("typeid")", noTypeId},
        {R"({"typeid":["t"],"schemaSpecification":0})", noTypeId},
        {R"({"typeid":"\u0000t","schemaSpecification":0})", "The typeid string may not be empty."},
        {t + R"("schemaSpecification":"lumar-data-schema-1.0.0","inherits":0})", unsupported},
        {t + R"("schemaSpecification":"lumar-data-schema-2.0.0","schemaType":0,"inherits":0})", unsupported},
        {t + R"("schemaType":"enum","constants":0})", "Schema must specify an inheritance array."},
        {t + R"("inherits":"b","constants":0})", "Expected an array."},
        {t + R"("inherits":[0,""],"constants":0})", "Expected an array of strings."},
        {t + R"("inherits":["b","",0],"constants":0})", "Expected an array of non-empty strings."},
        {t + R"("inherits":["b","c"],"constants":0})", "Inheritance clause must specify exactly one base schema."},
        {b + R"("constants":{},"properties":0})", "Expected schema constants to be an array."},
        {b + R"("constants":[0,{"id":"x"},{"id":"x"}]})", "Expected an object describing a property."},
        {b + R"("constants":[{"id":"x"},{},{"id":0}]})", "A property definition must have an id attribute."},
        {b + R"("constants":[{"id":"x"},{"id":0},{}]})", "A property's id attribute must be a string."},
        {b + R"("constants":[{"id":"x"},{"id":"x"},0]})", twiceX},
        {b + R"("constants":[{"id":"x"},{"id":"a"},{"id":"x\u0000"},{"id":"a"}]})", twiceX},
        {b + R"("constants":[{"id":"x","value":0},{"id":"a"}],"properties":0})",
         "A property definition must contain either a value or a typedValue."},
        {b + R"("properties":0,"enum":0})", "Expected schema properties to be an array."},
        {b + R"("properties":[{"id":""},{"id":""}],"enum":0})", "Item  in properties array must be defined only once."},
        {b + R"("properties":[)" + mirrored + "0]}", "Item 49 in properties array must be defined only once."},
        {b + R"("enum":0})", "Expected schema enum to be an array."},
    });
}

} // namespace
} // namespace Parameters
