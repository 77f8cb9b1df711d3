#include "support/ParameterDocuments.h"

#include <set>

namespace Parameters {
namespace {

using namespace Documents;

/// A constant that refers to a schema and overrides what stands there.
std::string overridden(const std::string& id, const std::string& typeId, const std::string& override) {
    return R"({"id":")" + id + R"(","typedValue":{"typeid":")" + typeId + "\"," + override + "}}";
}

/// Demands that a parameter waits for these typeids and has these texts from V1 on; the last is its own.
void expectWritten(const std::string& row, const std::set<std::string>& waitsFor, Texts texts) {
    SCOPED_TRACE(row);
    const std::string own = texts.back();
    EXPECT_EQ(ParametersEngine().registerSchema(own).first, waitsFor);
    const ParametersEngine fixture = parameterFixture();
    const Parameter parameter = fixture.readParameter(own);
    texts.resize(3);
    ParametersEngine finished = fixture;
    finished.registerParameter(parameter);
    expectTextsOf("x", finished, texts);
    EXPECT_EQ(fixture.getSchema(parameter), own);
    if (!texts[0].empty()) {
        EXPECT_EQ(fixture.getSchemaInCompatibleFormat(Version::V1, parameter), texts[0]);
    }
}

/// The texts with "SPEC" and so on replaced by what a row of a table has for them.
Texts filled(Texts texts, const Cases& replacements) {
    for (std::string& text : texts) {
        for (const auto& [word, replacement] : replacements) {
            for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word)) {
                text.replace(at, word.size(), replacement);
            }
        }
    }
    return texts;
}

TEST(ParameterSchemaTest, IsWrittenInEachVersionThatCanRepresentIt) {
    expectWritten("without a range", {"Bool"},
                  {R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.bool-2.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{"typeid":"Bool"}}]})",
                   R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter-2.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"}],"properties":[{"id":"data","typeid":"Bool"}]})",
                   R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
                   R"("inherits":["quovanta.parameter:parameter-3.0.0"],"sealed":true,)"
                   R"("constants":[{"id":"name","typeid":"String","value":"N"}],)"
                   R"("properties":[{"id":"data","typeid":"Bool"}]})"});
    expectWritten("on a spec of the second data model", {"old"},
                  {R"({"downgradedFrom":"2.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.bool-2.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{"typeid":"old"}}]})",
                   R"({"typeid":"x","inherits":["quovanta.parameter:parameter-2.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"}],"properties":[{"id":"data","typeid":"old"}]})"});
    expectWritten("on a type that only the newest data model knows", {"Thing"},
                  {"", "",
                   R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
                   R"("inherits":["quovanta.parameter:parameter-3.0.0"],"sealed":true,)"
                   R"("constants":[{"id":"name","typeid":"String","value":"N"}],)"
                   R"("properties":[{"id":"data","typeid":"Thing"}]})"});
    expectWritten(
        "with all constants and a registered range", {"Int64", "group", "ints"},
        {R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.int64-3.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"description","value":"D"},)"
         R"({"id":"sampleText","value":"\"S\""},{"id":"group","typedValue":{"typeid":"group"}},)"
         R"({"id":"readOnly","value":true},{"id":"spec","typedValue":{"typeid":"Int64"}},)"
         R"({"id":"range","typedValue":{"typeid":"ints"}}]})",
         R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.ranged.int64-1.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"description","value":"D"},)"
         R"({"id":"sampleText","value":"\"S\""},{"id":"group","typedValue":{"typeid":"group"}},)"
         R"({"id":"readOnly","value":true},{"id":"range","typedValue":{"typeid":"ints"}}],)"
         R"("properties":[{"id":"data","typeid":"Int64"}]})",
         R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
         R"("inherits":["quovanta.parameter:parameter.ranged.int64-2.0.0"],"sealed":true,"constants":[)"
         R"({"id":"name","typeid":"String","value":"N"},{"id":"description","typeid":"String","value":"D"},)"
         R"({"id":"sampleText","typeid":"String","value":"\"S\""},{"id":"group","typedValue":{"typeid":"group"}},)"
         R"({"id":"readOnly","typeid":"Bool","value":true},{"id":"range","typedValue":{"typeid":"ints"}}],)"
         R"("properties":[{"id":"data","typeid":"Int64"}]})"});
    expectWritten(
        "the frame goes by the format of the range, the name by that of the spec", {"floats", "Float64"},
        {R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.measurable-3.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{"typeid":"Float64"}},)"
         R"({"id":"range","typedValue":{"typeid":"floats"}}]})",
         R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.ranged.float64-1.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"range","typedValue":{"typeid":"floats"}}],)"
         R"("properties":[{"id":"data","typeid":"Float64"}]})",
         R"({"typeid":"x","inherits":["quovanta.parameter:parameter.ranged.float64-1.0.0"],)"
         R"("constants":[{"id":"name","typeid":"String","value":"N"},)"
         R"({"id":"range","typedValue":{"typeid":"floats"}}],"properties":[{"id":"data","typeid":"Float64"}]})"});
}

TEST(ParameterSchemaTest, IsWrittenWithItsInlineRange) {
    const Texts texts = {
        R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.OLDEST"],)"
        R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{"typeid":"SPEC"}},)"
        R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.KIND.static-1.0.0","value":LIMITS}}]})",
        R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.ranged.TYPE-1.0.0"],)"
        R"("constants":[{"id":"name","value":"N"},)"
        R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.KIND.static-1.0.0","value":LIMITS}}],)"
        R"("properties":[{"id":"data","typeid":"SPEC"}]})",
        R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
        R"("inherits":["quovanta.parameter:parameter.ranged.TYPE-2.0.0"],"sealed":true,)"
        R"("constants":[{"id":"name","typeid":"String","value":"N"},)"
        R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.KIND.static-2.0.0","value":LIMITS}}],)"
        R"("properties":[{"id":"data","typeid":"SPEC"}]})"};
    const std::string integers = R"({"fromBottom":true,"bottomBoundary":-1,"fromTop":false,"topBoundary":7})";
    const std::string numbers = R"({"fromBottom":false,"bottomBoundary":0.0,"fromTop":true,"topBoundary":0.5})";
    const struct {
        std::string spec, oldest, type, kind, limits;
    } rows[] = {{"Int64", "int64-3.0.0", "int64", "int64.bounded", integers},
                {"Float64", "measurable-3.0.0", "float64", "float64.bounded", numbers},
                {"String", "string-3.0.0", "string", "string.set", R"({"allowedValues":["b",""]})"}};
    for (const auto& row : rows) {
        const Cases words = {
            {"OLDEST", row.oldest}, {"SPEC", row.spec}, {"TYPE", row.type}, {"KIND", row.kind}, {"LIMITS", row.limits}};
        expectWritten(row.spec, {row.spec}, filled(texts, words));
    }
    expectWritten("a pattern on the string spec", {},
                  {R"({"typeid":"x","inherits":["quovanta.parameter:parameter.string-3.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"},{"id":"range","typedValue":{)"
                   R"("typeid":"quovanta.range:range.string.regex-1.0.0","value":{"regex":"a+"}}}]})"});
}

TEST(ParameterSchemaTest, IsWrittenWithItsCategory) {
    const Texts texts = {
        R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.parameter:parameter.reference-2.0.0"],)"
        R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":OLDEST}]})",
        R"({"downgradedFrom":"3.0.0","typeid":"x","inherits":["quovanta.talmo:parameter.categorized-1.0.0"],)"
        R"("constants":[{"id":"name","value":"N"},{"id":"category","typedValue":{"typeid":"major"}}],)"
        R"("properties":[{"id":"data","typeid":"SPEC"}]})",
        R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
        R"("inherits":["quovanta.talmo:parameter.categorized-2.0.0"],"sealed":true,)"
        R"("constants":[{"id":"name","typeid":"String","value":"N"},)"
        R"({"id":"category","typedValue":{"typeid":"major"}}],"properties":[{"id":"data","typeid":"SPEC"}]})"};
    for (const auto& [spec, oldest] :
         Cases{{"quovanta.data:reference-1.0.0", R"({"typeid":"quovanta.data:reference-1.0.0"})"},
               {"quovanta.talmo.spec:familyType-2.0.0", // only major version 1 is of that time
                R"({"typeid":"quovanta.talmo.spec:familyType-1.0.0","typedValue":{"category":{"typeid":"major"}}})"}}) {
        const Cases words = {{"OLDEST", oldest}, {"SPEC", spec}};
        expectWritten(spec, {spec, "major"}, filled(texts, words));
    }
}

TEST(ParameterSchemaTest, IsWrittenOnASpecOfTheOldestDataModel) {
    expectWritten("the Boolean spec, which needs no constant", {}, {older(".bool-2.0.0")});
    expectWritten("another Boolean spec of its family", {"quovanta.spec:spec.bool-1.0.1"},
                  {older(".bool-2.0.0", R"(,{"id":"spec","typedValue":{"typeid":"quovanta.spec:spec.bool-1.0.1"}})")});
    expectWritten("the integer spec", {"ints"},
                  {older(".int64-3.0.0", R"(,{"id":"range","typedValue":{"typeid":"ints"}})")});
    expectWritten("the reference spec", {}, {older(".reference-2.0.0")});
    expectWritten(
        "the family type", {"major"},
        {R"({"typeid":"x","inherits":["quovanta.parameter:parameter.reference-2.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{)"
         R"("typeid":"quovanta.talmo.spec:familyType-1.0.0","typedValue":{"category":{"typeid":"major"}}}}]})"});
    expectWritten(
        "another family type of its major version", {"major", "quovanta.talmo.spec:familyType-1.5.0"},
        {R"({"typeid":"x","inherits":["quovanta.parameter:parameter.reference-2.0.0"],)"
         R"("constants":[{"id":"name","value":"N"},{"id":"spec","typedValue":{)"
         R"("typeid":"quovanta.talmo.spec:familyType-1.5.0","typedValue":{"category":{"typeid":"major"}}}}]})"});
    expectWritten("a general spec, with an enumeration", {"choice", "choices"},
                  {R"({"typeid":"x","inherits":["quovanta.parameter:parameter-2.0.0"],)"
                   R"("constants":[{"id":"name","value":"N"},{"id":"spec","typeid":"choice","value":{}}],)"
                   R"("properties":[{"id":"value","typeid":"choices"}]})"});
}

TEST(ParameterSchemaTest, HasTheDefaultGroupOfItsFormatIfItNamesNone) {
    const std::string otherVersion = "acme.quovanta.parameter:group-9";
    const struct {
        std::string text, typeId;
        Format format;
    } rows[] = {
        {older("-2", "", "Bool"), "quovanta.parameter:group-1.0.0", Format::PropertySets},
        {newer("-3", "", "Bool"), "quovanta.parameter:group-2.0.0", Format::LumarDataSchema},
        {older("-2", "," + reference("group", "quovanta.parameter:group-2.0.0"), "Bool"),
         "quovanta.parameter:group-2.0.0", Format::LumarDataSchema},
        {newer("-3", "," + reference("group", otherVersion), "Bool"), otherVersion, Format::PropertySets},
    };
    ParametersEngine fixture = parameterFixture();
    fixture.registerGroup(Taxon(otherVersion, "Own", Format::LumarDataSchema));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Taxon group = fixture.readParameter(row.text).getGroup();
        EXPECT_EQ(group.getTypeId(), row.typeId);
        EXPECT_EQ(group.getName(), "Other");
        EXPECT_EQ(group.getSchemaFormat(), row.format);
    }
}

TEST(ParameterSchemaTest, IgnoresWhatItsFormDoesNotHaveAndTakesTheBaseOfItsFormat) {
    const ParametersEngine fixture = parameterFixture();
    const Parameter parameter = fixture.readParameter(
        R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
        R"("inherits":["quovanta.parameter:parameter quovanta.parameter:parameter.ranged.int64-9"],"sealed":true,)"
        R"("constants":[{"id":"name","typeid":"String","value":"N"},)"
        R"({"id":"description","typedValue":0,"value":""},{"id":"readOnly","value":false},)"
        R"({"id":"group","value":{"typeid":"acme.quovanta.parameter:group-9"}},{"id":"spec","value":5},)"
        R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.int64.bounded.static-1.0.0",)"
        R"("value":{"fromBottom":false,"fromTop":true}}}],"properties":[{"id":"data","typeid":"Int64"}]})");
    EXPECT_EQ(fixture.getSchema(parameter),
              R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
              R"("inherits":["quovanta.parameter:parameter.ranged.int64-2.0.0"],"sealed":true,)"
              R"("constants":[{"id":"name","typeid":"String","value":"N"},)"
              R"({"id":"range","typedValue":{"typeid":"quovanta.range:range.int64.bounded.static-2.0.0",)"
              R"("value":{"fromBottom":false,"bottomBoundary":0,"fromTop":true,"topBoundary":0}}}],)"
              R"("properties":[{"id":"data","typeid":"Int64"}]})");
}

// Each document has the faults of later rows as well where its form allows, so that the rows show which comes first.
TEST(ParameterSchemaTest, ReportsItsFirstFault) {
    const std::string intRange = "quovanta.range:range.int64.bounded.static-2.0.0";
    const std::string legacyIntRange = "quovanta.range:range.int64.bounded.static-1.0.0";
    const std::string stringSet = "quovanta.range:range.string.set.static-2.0.0";
    const std::string referenceSpec = "quovanta.spec:spec.reference-1.0.0";
    const std::string categoryAsGroup = reference("group", "m");
    const std::string disciplineAsRange = reference("range", "d"), domainAsSpec = reference("spec", "o");
    // With a comma before the constants, which stand behind the name.
    expectRefused({
        {older(".measurable-3", "," + reference("range", "")), "Schema x has an undefined spec constant."},
        {older(".ranged.float64-1", "," + reference("range", "")), "Expected a non-empty string."},
        {older(".int64-3", "," + overridden("range", "own", R"("value":5)")),
         "Inline value override for range schema own in range constant typedValue, if present, must be an empty "
         "object."},
        {older(".int64-3", "," + overridden("range", intRange, R"("value":{"a":0})")),
         "Inline value override for range schema quovanta.range:range.int64.bounded.static-2.0.0 in range constant "
         "typedValue, if present, must be an empty object."},
        {older(".int64-3", "," + overridden("range", legacyIntRange, R"("value":{"fromTop":5})")),
         "Inline value override in range constant typedValue must specify a Boolean value for constant fromBottom."},
        {older(".string-3", "," + overridden("range", stringSet, R"("value":{"allowedValues":[]})")),
         "Inline value override in range constant typedValue must specify a non-empty array of unique string values "
         "for constant allowedValues."},
        {older(".reference-2", "," + reference("spec", "quovanta.talmo.spec:familyType-2.0.0")),
         "Reference parameter schema may use only major version 1 of the family type base spec."},
        {older(".reference-2", "," + overridden("spec", referenceSpec, R"("value":{})")),
         "Inline value override for spec quovanta.spec:spec.reference-1.0.0 is not permitted."},
        {older(".reference-2", "," + overridden("spec", "own", R"("typedValue":{"category":{"typeid":"m"}})")),
         "Inline value override for spec own is not permitted."},
        {older(".int64-3", "," + listed({categoryAsGroup, disciplineAsRange, domainAsSpec})),
         "Dependency m in schema x is missing or does not represent an object of the expected type."},
        {older(".int64-3", "," + listed({disciplineAsRange, domainAsSpec})),
         "Dependency d in schema x is missing or does not represent an object of the expected type."},
        {older(".bool-2", "," + domainAsSpec),
         "Dependency o in schema x is missing or does not represent an object of the expected type."},
    });
}

} // namespace
} // namespace Parameters
