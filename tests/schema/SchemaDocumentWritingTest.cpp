#include "schema/SchemaDocumentWriting.h"

#include "support/Parsing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Parameters {
namespace {

TEST(SchemaDocumentWriting, WritesFramesAndSections) {
    JSON target = JSON::createDocument();
    addFullFrame(target, "t", "b");
    std::vector<JSON> constants;
    constants.push_back(createNameMember(target, "N", true));
    constants.push_back(createTypedValueMember(target, "a", "x"));
    addConstants(target, constants);
    std::vector<JSON> items;
    items.push_back(createMember(target, "p"));
    addProperties(target, items);
    items.clear();
    addEnumItems(target, items);
    EXPECT_EQ(target.toString(),
              R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"t",)"
              R"("inherits":["b"],"sealed":true,"constants":[{"id":"name","typeid":"String","value":"N"},)"
              R"({"id":"a","typedValue":{"typeid":"x"}}],"properties":[{"id":"p"}],"enum":[]})");
}

} // namespace
} // namespace Parameters
