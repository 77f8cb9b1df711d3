#include "support/ParameterDocuments.h"

#include <set>

namespace Parameters {
namespace {

using namespace Documents;

const std::string familyType = "quovanta.talmo.spec:familyType-";

// Constants of a parameter, each with the comma before it.

std::string spec(const std::string& typeId) { return "," + reference("spec", typeId); }
std::string range(const std::string& typeId) { return "," + reference("range", typeId); }
std::string typed(const std::string& id, const std::string& typeId, const std::string& rest) {
    return R"(,{"id":")" + id + R"(","typedValue":{"typeid":")" + typeId + "\"," + rest + "}}";
}
std::string inlined(const std::string& base, const std::string& value) {
    return typed("range", "quovanta.range:range." + base, R"("value":)" + value);
}
std::string ofMajor(const std::string& version) {
    return typed("spec", familyType + version, R"("typedValue":{"category":{"typeid":"major"}})");
}

Texts ranged(const std::string& type, const std::string& oldForm, const std::string& data, const std::string& base,
             const std::string& value) {
    const std::string oldRange = inlined(base + "1.0.0", value);
    return {older(oldForm, spec(data) + oldRange), older(".ranged." + type + "-1.0.0", oldRange, data),
            newer(".ranged." + type + "-2.0.0", inlined(base + "2.0.0", value), data)};
}

Texts categorized(const std::string& oldSpec, const std::string& spec) {
    const std::string base = "quovanta.talmo:parameter.categorized-";
    const std::string category = R"(,{"id":"category","typedValue":{"typeid":"major"}})";
    return {older(".reference-2.0.0", oldSpec),
            shortForm("x", base + "1.0.0", R"({"id":"name","value":"N"})" + category, data(spec)),
            fullForm("x", base + "2.0.0", R"({"id":"name","typeid":"String","value":"N"})" + category, data(spec))};
}

TEST(ParameterSchemaTest, IsWrittenInEachVersionThatCanRepresentIt) {
    const std::string members = R"(,{"id":"description","value":"D"},{"id":"sampleText","value":"\"S\""},)"
                                R"({"id":"group","typedValue":{"typeid":"group"}},{"id":"readOnly","value":true})";
    const std::string choice = R"({"id":"name","value":"N"},{"id":"spec","typeid":"choice","value":{}})";
    const std::string ints = R"({"fromBottom":true,"bottomBoundary":-1,"fromTop":false,"topBoundary":7})";
    const std::string floats = R"({"fromBottom":false,"bottomBoundary":0.0,"fromTop":true,"topBoundary":0.5})";
    const std::vector<std::pair<std::set<std::string>, Texts>> forms = {
        {{"Int64", "group", "ints"},
         {older(".int64-3.0.0", members + spec("Int64") + range("ints")),
          older(".ranged.int64-1.0.0", members + range("ints"), "Int64"),
          R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x",)"
          R"("inherits":["quovanta.parameter:parameter.ranged.int64-2.0.0"],"sealed":true,"constants":[)"
          R"({"id":"name","typeid":"String","value":"N"},{"id":"description","typeid":"String","value":"D"},)"
          R"({"id":"sampleText","typeid":"String","value":"\"S\""},{"id":"group","typedValue":{"typeid":"group"}},)"
          R"({"id":"readOnly","typeid":"Bool","value":true},{"id":"range","typedValue":{"typeid":"ints"}}],)"
          R"("properties":[{"id":"data","typeid":"Int64"}]})"}},
        // The frame goes by the format of the range, the name by that of the spec.
        {{"floats", "Float64"},
         {older(".measurable-3.0.0", spec("Float64") + range("floats")),
          older(".ranged.float64-1.0.0", range("floats"), "Float64"),
          R"({"typeid":"x","inherits":["quovanta.parameter:parameter.ranged.float64-1.0.0"],"constants":[)"
          R"({"id":"name","typeid":"String","value":"N"},{"id":"range","typedValue":{"typeid":"floats"}}],)"
          R"("properties":[{"id":"data","typeid":"Float64"}]})"}},
        {{"Bool"}, {older(".bool-2.0.0", spec("Bool")), older("-2.0.0", "", "Bool"), newer("-3.0.0", "", "Bool")}},
        {{"Int64"}, ranged("int64", ".int64-3.0.0", "Int64", "int64.bounded.static-", ints)},
        {{"Float64"}, ranged("float64", ".measurable-3.0.0", "Float64", "float64.bounded.static-", floats)},
        {{"String"},
         ranged("string", ".string-3.0.0", "String", "string.set.static-", R"({"allowedValues":["b",""]})")},
        {{"quovanta.data:reference-1.0.0", "major"},
         categorized(spec("quovanta.data:reference-1.0.0"), "quovanta.data:reference-1.0.0")},
        {{"major", familyType + "2.0.0"}, categorized(ofMajor("1.0.0"), familyType + "2.0.0")},
        {{"Thing"}, {"", "", newer("-3.0.0", "", "Thing")}},
        {{"old"}, {older(".bool-2.0.0", spec("old")), older("-2.0.0", "", "old")}},
        {{}, {older(".bool-2.0.0")}},
        {{"ints"}, {older(".int64-3.0.0", range("ints"))}},
        {{}, {older(".reference-2.0.0")}},
        {{"major"}, {older(".reference-2.0.0", ofMajor("1.0.0"))}},
        {{"major", familyType + "1.5.0"}, {older(".reference-2.0.0", ofMajor("1.5.0"))}},
        {{}, {older(".string-3.0.0", inlined("string.regex-1.0.0", R"({"regex":"a+"})"))}},
        {{"choice", "choices"},
         {shortForm("x", "quovanta.parameter:parameter-2.0.0", choice, R"({"id":"value","typeid":"choices"})")}},
    };
    const ParametersEngine engine = parameterWorkshop();
    for (auto [missing, texts] : forms) {
        const std::string own = texts.back(), ownVersion = std::to_string(texts.size()) + ".0.0";
        SCOPED_TRACE(own);
        EXPECT_EQ(ParametersEngine().registerSchema(own).first, missing);
        const Parameter parameter = engine.readParameter(own);
        for (std::string& text : texts) {
            text = text == own || text.empty() ? text : downgraded(text, ownVersion);
        }
        texts.resize(3);
        ParametersEngine finished = engine;
        finished.registerParameter(parameter);
        expectTextsOf("x", finished, texts);
        EXPECT_EQ(engine.getSchema(parameter), own);
        if (!texts[0].empty()) {
            EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V1, parameter), texts[0]);
        }
    }
}

TEST(ParameterSchemaTest, IgnoresWhatItsFormDoesNotHaveAndTakesTheBaseOfItsFormat) {
    const std::string constants =
        R"(,{"id":"description","typedValue":0,"value":""},{"id":"readOnly","value":false},)"
        R"({"id":"group","value":{"typeid":"acme.quovanta.parameter:group-9"}},{"id":"spec","value":5})";
    const std::string text =
        newer(" quovanta.parameter:parameter.ranged.int64-9",
              constants + inlined("int64.bounded.static-1.0.0", R"({"fromBottom":false,"fromTop":true})"), "Int64");
    const std::string whole = R"({"fromBottom":false,"bottomBoundary":0,"fromTop":true,"topBoundary":0})";
    const ParametersEngine engine = parameterWorkshop();
    EXPECT_EQ(engine.getSchema(engine.readParameter(text)),
              newer(".ranged.int64-2.0.0", inlined("int64.bounded.static-2.0.0", whole), "Int64"));
}

TEST(ParameterSchemaTest, ReportsItsFirstFault) {
    const std::string missing = " in schema x is missing or does not represent an object of the expected type.";
    const std::string ints = "quovanta.range:range.int64.bounded.static-2.0.0";
    const std::string ofRange = "Inline value override for range schema ";
    const std::string empty = " in range constant typedValue, if present, must be an empty object.";
    expectRefused({
        {older(".measurable-3", range("")), "Schema x has an undefined spec constant."},
        {older(".ranged.float64-1", range("")), "Expected a non-empty string."},
        {older(".int64-3", typed("range", "r", R"("value":5)")), ofRange + "r" + empty},
        {older(".int64-3", typed("range", ints, R"("value":{"a":0})")), ofRange + ints + empty},
        {older(".int64-3", inlined("int64.bounded.static-1.0.0", R"({"fromTop":5})")),
         "Inline value override in range constant typedValue must specify a Boolean value for constant fromBottom."},
        {older(".string-3", inlined("string.set.static-2.0.0", R"({"allowedValues":[]})")),
         "Inline value override in range constant typedValue must specify a non-empty array of unique string values "
         "for constant allowedValues."},
        {older(".reference-2", spec(familyType + "2.0.0")),
         "Reference parameter schema may use only major version 1 of the family type base spec."},
        {older(".int64-3", "," + reference("group", "m") + range("d") + spec("o")), "Dependency m" + missing},
        {older(".int64-3", range("d") + spec("o")), "Dependency d" + missing},
        {older(".bool-2", spec("o")), "Dependency o" + missing},
    });
}

} // namespace
} // namespace Parameters
