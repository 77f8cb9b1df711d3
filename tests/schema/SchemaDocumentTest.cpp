#include "schema/SchemaDocument.h"

#include "support/Expectations.h"
#include "support/Parsing.h"

#include <Parameters/Exceptions.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

using Units::SchemaFormat;
using Strings = std::vector<std::string>;

/// A document "t" with one constant "k", whose value is the text.
SchemaDocument withConstant(const std::string& value) {
    return documentFrom(R"({"typeid":"t","inherits":["b"],"constants":[{"id":"k","value":)" + value + "}]}");
}

std::string printed(const SchemaMembers& section) {
    std::string text;
    for (const SchemaMember& member : section) {
        text += std::string(member.id) + "=" + member.json.toString() + ";";
    }
    return text;
}

TEST(SchemaDocument, ReadsTheFrame) {
    const SchemaDocument bare = documentFrom(R"({"schemaType":1,"typeid":"a-1.0.0","inherits":["b-1.0.0"],"other":1})");
    EXPECT_EQ(bare.typeId, "a-1.0.0");
    EXPECT_EQ(bare.baseSchema, "b-1.0.0");
    EXPECT_EQ(bare.schemaType, "");
    EXPECT_EQ(bare.schemaFormat, SchemaFormat::PropertySets);
    EXPECT_EQ(printed(bare.constants) + printed(bare.properties) + printed(bare.enumItems), "");

    const std::pair<const char*, const char*> cases[] = {
        {R"("typeid":"a","inherits":["b"],"constants":[])", "component b"},
        {R"("schemaType":"enum","typeid":"a","inherits":0)", "enum "},
        {R"("schemaType":"x","typeid":"a","inherits":["b"])", "x b"},
    };
    for (const auto& [members, typeAndBase] : cases) {
        const SchemaDocument document =
            documentFrom(R"({"schemaSpecification":"lumar-data-schema-2.0.0",)" + std::string(members) + "}");
        EXPECT_EQ(std::string(document.schemaType) + " " + std::string(document.baseSchema), typeAndBase);
        EXPECT_EQ(document.schemaFormat, SchemaFormat::LumarDataSchema);
    }
}

TEST(SchemaDocument, OrdersSectionsById) {
    const SchemaDocument document = documentFrom(
        R"({"typeid":"t","inherits":["b"],)"
        R"("constants":[{"id":"\u00e9","value":1},{"id":"b","typedValue":2},{"id":"ab","typedValue":3,"value":null},)"
        R"({"id":"a","value":{"typeid":"x"}},{"id":"","value":[]}],)"
        R"("properties":[{"id":"q"},{"typeid":"x","id":"p"}],"enum":[{"id":"i","value":"7"}]})");
    EXPECT_EQ(printed(document.constants), "=[];a={\"typeid\":\"x\"};ab=null;b=2;\xC3\xA9=1;");
    EXPECT_EQ(printed(document.properties), R"(p={"typeid":"x","id":"p"};q={"id":"q"};)");
    EXPECT_EQ(printed(document.enumItems), R"(i={"id":"i","value":"7"};)");
}

// Each text has the faults of later rows as well, so that the rows show which comes first.
TEST(SchemaDocument, ReportsTheFirstFaultOfTheFrame) {
    const std::string noTypeId = "Schema must specify a typeid string.";
    const std::string unsupported = "Unsupported schema specification version.";
    const std::string twiceX = "Item x in constants array must be defined only once.";
    const std::pair<std::string, std::string> cases[] = {
        {"{", "JSON parsing error at offset 1: Missing a name for an object member."},
        {R"("typeid")", noTypeId},
        {R"({"typeid":["t"],"schemaSpecification":0})", noTypeId},
        {R"({"typeid":"\u0000t","schemaSpecification":0})", "The typeid string may not be empty."},
        {R"({"typeid":"t","schemaSpecification":"lumar-data-schema-1.0.0","inherits":0})", unsupported},
        {R"({"typeid":"t","schemaSpecification":"lumar-data-schema-2.0.0","schemaType":0,"inherits":0})", unsupported},
        {R"({"typeid":"t","schemaType":"enum","constants":0})", "Schema must specify an inheritance array."},
        {R"({"typeid":"t","inherits":"b","constants":0})", "Expected an array."},
        {R"({"typeid":"t","inherits":[0,""],"constants":0})", "Expected an array of strings."},
        {R"({"typeid":"t","inherits":["b","",0],"constants":0})", "Expected an array of non-empty strings."},
        {R"({"typeid":"t","inherits":["b","c"],"constants":0})",
         "Inheritance clause must specify exactly one base schema."},
        {R"({"typeid":"t","inherits":["b"],"constants":{},"properties":0})",
         "Expected schema constants to be an array."},
        {R"({"typeid":"t","inherits":["b"],"constants":[0,{"id":"x"},{"id":"x"}],"properties":0})",
         "Expected an object describing a property."},
        {R"({"typeid":"t","inherits":["b"],"constants":[{"id":"x"},{},{"id":0}],"properties":0})",
         "A property definition must have an id attribute."},
        {R"({"typeid":"t","inherits":["b"],"constants":[{"id":"x"},{"id":0},{}],"properties":0})",
         "A property's id attribute must be a string."},
        {R"({"typeid":"t","inherits":["b"],"constants":[{"id":"x"},{"id":"x"},0],"properties":0})", twiceX},
        {R"({"typeid":"t","inherits":["b"],"constants":[{"id":"x"},{"id":"a"},{"id":"x\u0000"},{"id":"a"}]})", twiceX},
        {R"({"typeid":"t","inherits":["b"],"constants":[{"id":"x","value":0},{"id":"a"}],"properties":0})",
         "A property definition must contain either a value or a typedValue."},
        {R"({"typeid":"t","inherits":["b"],"properties":0,"enum":0})", "Expected schema properties to be an array."},
        {R"({"typeid":"t","inherits":["b"],"properties":[{"id":""},{"id":""}],"enum":0})",
         "Item  in properties array must be defined only once."},
        {R"({"typeid":"t","inherits":["b"],"enum":0})", "Expected schema enum to be an array."},
    };
    for (const auto& [text, message] : cases) {
        EXPECT_THROWS(documentFrom(text), ValidationException, message) << text;
    }
}

TEST(SchemaDocument, NamesTheFirstRepetitionOfALongArray) {
    std::string items;
    for (int i = 0; i < 100; ++i) {
        items += R"({"id":")" + std::to_string(i < 50 ? i : 99 - i) + R"("},)";
    }
    EXPECT_THROWS(documentFrom(R"({"typeid":"t","inherits":["b"],"properties":[)" + items + "0]}"), ValidationException,
                  "Item 49 in properties array must be defined only once.");
}

TEST(SchemaDocument, ReadsConstants) {
    EXPECT_EQ(readStringConstant(withConstant(R"("x")"), "k"), "x");
    EXPECT_EQ(readAnyStringConstant(withConstant(R"("")"), "k", "default"), "");
    EXPECT_EQ(readNumberConstant(withConstant("3"), "k", 1.5), 3.0);
    EXPECT_EQ(readIntegerConstant(withConstant("-3"), "k"), -3);
    EXPECT_FALSE(readBoolConstant(withConstant("false"), "k", true));
    EXPECT_EQ(readTypedValueConstant(withConstant(R"({"typeid":"x"})"), "k", "default"), "x");
    EXPECT_EQ(readTypedValueArrayConstant(withConstant(R"([{"typeid":"y"},{"typeid":"x"}])"), "k"),
              (Strings{"y", "x"}));
    EXPECT_EQ(readTypedValueArrayConstant(withConstant("[]"), "k", Strings{"default"}), Strings());
    EXPECT_EQ(readIntegerConstant(withConstant("0"), "other", 7), 7);
}

TEST(SchemaDocument, SaysWhatIsWrongWithAConstant) {
    using Read = std::function<void(const SchemaDocument&, std::string_view)>;
    const Read string = [](const auto& document, auto key) { return void(readStringConstant(document, key)); };
    const Read any = [](const auto& document, auto key) { return void(readAnyStringConstant(document, key)); };
    const Read number = [](const auto& document, auto key) { return void(readNumberConstant(document, key)); };
    const Read integer = [](const auto& document, auto key) { return void(readIntegerConstant(document, key)); };
    const Read boolean = [](const auto& document, auto key) { return void(readBoolConstant(document, key)); };
    const Read typed = [](const auto& document, auto key) { return void(readTypedValueConstant(document, key)); };
    const Read list = [](const auto& document, auto key) { return void(readTypedValueArrayConstant(document, key)); };
    const std::string notATypeIdOnly = "A typedValue object may not be empty and must contain a typeid attribute only.";
    const std::tuple<Read, std::string, std::string> cases[] = {
        {string, "0", "Expected a string."},
        {string, R"("")", "Expected a non-empty string."},
        {any, "null", "Expected a string."},
        {number, R"("1")", "Expected a number."},
        {integer, "1.0", "Expected an integer."},
        {integer, "9223372036854775808", "Expected an integer."},
        {boolean, "0", "Expected a Boolean value."},
        {typed, R"("x")", "A typedValue must be an object."},
        {typed, "{}", notATypeIdOnly},
        {typed, R"({"typeid":"x","other":"y"})", notATypeIdOnly},
        {typed, R"({"other":"y"})", "A typedValue did not contain a typeid attribute."},
        {typed, R"({"typeid":""})", "A typeid attribute in a typedValue object may not be empty."},
        {list, R"({"typeid":"x"})", "Expected an array of typedValue objects."},
        {list, R"([{"typeid":"x"},"y"])", "A typedValue must be an object."},
    };
    for (const auto& [read, value, message] : cases) {
        EXPECT_THROWS(read(withConstant(value), "k"), ValidationException, message) << value;
    }
    for (const Read& read : {string, any, number, integer, boolean, typed, list}) {
        EXPECT_THROWS(read(withConstant("0"), "other"), ValidationException,
                      "Schema t has an undefined other constant.");
    }
}

TEST(SchemaDocument, ReadsTheTypeOfAProperty) {
    const SchemaDocument document = documentFrom(
        R"({"typeid":"t","inherits":["b"],"properties":[{"id":"p","typeid":"x"},{"id":"number","typeid":1},)"
        R"({"id":"empty","typeid":""},{"id":"none"}]})");
    EXPECT_EQ(readPropertyTypeId(document, "p"), "x");
    const std::pair<const char*, const char*> cases[] = {
        {"number", "Expected a string."},
        {"empty", "Expected a non-empty string."},
        {"none", R"(Property "none" in schema t must specify a nonempty typeid string.)"},
        {"missing", R"(Schema t has an undefined "missing" property.)"},
    };
    for (const auto& [key, message] : cases) {
        EXPECT_THROWS(readPropertyTypeId(document, key), ValidationException, message);
    }
}

} // namespace
} // namespace Parameters
