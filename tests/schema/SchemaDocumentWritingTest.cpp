#include "schema/SchemaDocumentWriting.h"

#include "schema/Frame.h"
#include "support/Parsing.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

TEST(SchemaDocumentWriting, WritesTheFrames) {
    JSON full = JSON::createDocument();
    addFullFrame(full, "x-1.0.0", "quovanta.spec:discipline-2.0.0");
    EXPECT_EQ(full.toString(), R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component",)"
                               R"("typeid":"x-1.0.0","inherits":["quovanta.spec:discipline-2.0.0"],"sealed":true})");

    JSON brief = JSON::createDocument();
    addString(brief, brief, Frame::downgradedFrom, "3.0.0");
    addShortFrame(brief, "x-1.0.0", "quovanta.spec:discipline-1.0.0");
    EXPECT_EQ(brief.toString(), R"({"downgradedFrom":"3.0.0","typeid":"x-1.0.0",)"
                                R"("inherits":["quovanta.spec:discipline-1.0.0"]})");

    JSON enumeration = JSON::createDocument();
    addSchemaHeader(enumeration, Frame::enumType);
    addTypeId(enumeration, "x-1.0.0");
    EXPECT_EQ(enumeration.toString(), R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"enum",)"
                                      R"("typeid":"x-1.0.0"})");
}

TEST(SchemaDocumentWriting, WritesMembers) {
    const JSON document = JSON::createDocument();
    const std::pair<JSON, const char*> cases[] = {
        {createMember(document, ""), R"({"id":""})"},
        {createValueMember(document, "a", JSON(0.5), "Float64"), R"({"id":"a","typeid":"Float64","value":0.5})"},
        {createValueMember(document, "a", JSON::createObject(), ""), R"({"id":"a","value":{}})"},
        {createBoolMember(document, "a", false, true), R"({"id":"a","typeid":"Bool","value":false})"},
        {createBoolMember(document, "a", true, false), R"({"id":"a","value":true})"},
        {createInt64Member(document, "a", 7, true), R"({"id":"a","typeid":"Int64","value":7})"},
        {createInt64Member(document, "a", -7, false), R"({"id":"a","value":-7})"},
        {createStringMember(document, "a", "", true), R"({"id":"a","typeid":"String","value":""})"},
        {createStringMember(document, "a", "\"", false), R"({"id":"a","value":"\""})"},
        {createNameMember(document, "N", true), R"({"id":"name","typeid":"String","value":"N"})"},
        {createTypedValueMember(document, "a", "x"), R"({"id":"a","typedValue":{"typeid":"x"}})"},
    };
    for (const auto& [member, text] : cases) {
        EXPECT_EQ(member.toString(), text);
    }
}

TEST(SchemaDocumentWriting, WritesSectionsThatReadBack) {
    JSON target = JSON::createDocument();
    addFullFrame(target, "t", "b");
    std::vector<JSON> constants;
    constants.push_back(createNameMember(target, "N", true));
    constants.push_back(createTypedValueMember(target, "a", "x"));
    addConstants(target, constants);
    std::vector<JSON> properties;
    properties.push_back(createMember(target, "p"));
    addProperties(target, properties);
    std::vector<JSON> items;
    addEnumItems(target, items);
    const std::string text = target.toString();
    EXPECT_EQ(text, R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"t",)"
                    R"("inherits":["b"],"sealed":true,"constants":[{"id":"name","typeid":"String","value":"N"},)"
                    R"({"id":"a","typedValue":{"typeid":"x"}}],"properties":[{"id":"p"}],"enum":[]})");

    const SchemaDocument document = documentFrom(text);
    EXPECT_EQ(document.typeId, "t");
    EXPECT_EQ(document.baseSchema, "b");
    EXPECT_EQ(document.schemaFormat, Units::SchemaFormat::LumarDataSchema);
    EXPECT_EQ(readStringConstant(document, "name"), "N");
    EXPECT_EQ(readTypedValueConstant(document, "a"), "x");
    EXPECT_NE(document.properties.find("p"), nullptr);
}

} // namespace
} // namespace Parameters
