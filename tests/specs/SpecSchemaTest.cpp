#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

const Kind<Spec> specs = {&ParametersEngine::registerSpec, &ParametersEngine::getSpec};
const std::string base = "quovanta.spec:spec";
const std::string name = R"({"id":"name","value":"N"})";
const std::string typedName = R"({"id":"name","typeid":"String","value":"N"})";
const std::string inD = R"(,{"id":"discipline","typedValue":{"typeid":"d"}})";
const std::string inMetre = R"(,{"id":"storageUnit","typedValue":{"typeid":"metre"}})";

// Documents of a spec "x"; `form` is its base behind what all have in common.
std::string older(const std::string& form, const std::string& constants, const std::string& value = "") {
    return shortForm("x", base + form, constants, value.empty() ? "" : R"({"id":"value",)" + value + "}");
}
std::string newer(const std::string& form, const std::string& constants, const std::string& value = "") {
    return fullForm("x", base + form, constants, value.empty() ? "" : R"({"id":"value",)" + value + "}");
}
std::string measurable(const std::string& constants) { return older(".measurable-2.0.0", constants); }

TEST(SpecSchemaTest, TakesTheShapeFromAPrefixAndTheValueTypeFromTheWholeBase) {
    const Cases cases = {{older(".int64-1.0.0", "", R"("typeid":0)"), ""},
                         {older("-" + base + ".string-" + base + ".measurable-", ""), ""},
                         {older("-" + base + ".measurable-", name + inMetre, R"("typeid":0)"), ""},
                         {older(".measurable-3.0.0", name + inMetre), "Float64"},
                         {older("-2.0.0", name), ""}};
    for (const auto& [text, type] : cases) {
        EXPECT_EQ(std::get<std::string>(workshop({text}).getSpec("x").getValueTypeId()), type) << text;
    }
    const Taxon discipline = workshop({newer(".bool-1.0.0", "")}).getSpec("x").getDiscipline();
    EXPECT_EQ(discipline.getTypeId() + " " + discipline.getName(), "quovanta.spec:discipline-2.0.0 Common");
    EXPECT_EQ(discipline.getSchemaFormat(), Format::PropertySets);
}

// Here and below each text has the faults of later ones as well, so that the messages show which comes first.
TEST(SpecSchemaTest, ReportsTheFirstFaultOfItsConstants) {
    const std::string bad = R"({"id":"discipline","value":0},{"id":"applicableUnits","value":0})";
    const std::string units = R"(,{"id":"applicableUnits","value":[{"typeid":"inch"},{"typeid":"z"},{"typeid":"y"}]})";
    const std::string inLength = "," + reference("storageUnit", "length");
    const std::string strange = name + "," + reference("discipline", "o") + inLength + units;
    const std::string noUnit = " constant in measurable spec schema x does not belong to a unit.";
    expectRefused(
        {{measurable(bad), "Schema x has an undefined name constant."},
         {measurable(name + "," + bad), "A typedValue must be an object."},
         {measurable(name + R"(,{"id":"applicableUnits","value":0})"), "Expected an array of typedValue objects."},
         {measurable(name + units), "Schema x has an undefined storageUnit constant."},
         {measurable(strange),
          "Dependency o in schema x is missing or does not represent an object of the expected type."},
         {measurable(name + inLength + units), "Typeid length for storageUnit" + noUnit},
         {measurable(name + inMetre + units), "Typeid z in applicableUnits" + noUnit},
         {older(".bool-", R"({"id":"name","value":""},)" + bad), "Expected a non-empty string."},
         {older("-", bad, R"("typeid":0)"), "Schema x has an undefined name constant."},
         {newer("-", name), "Complex spec schema must declare a value property."}});
    const std::pair<std::set<std::string>, std::set<std::string>> missing = {{}, {"y", "z"}};
    EXPECT_EQ(workshop().registerSchema(measurable(strange)), missing);
}

TEST(SpecSchemaTest, ReportsTheFirstFaultOfItsValueType) {
    const auto refuse = [](const std::string& message, const Texts& types) {
        for (const std::string& type : types) {
            expectRefused({{newer("-", name, type + R"(,"context":0)"), message}});
        }
    };
    refuse("Expected a string.", {R"("typeid":0,"anyOf":0)", R"("anyOf":[{"typeid":0}],"oneOf":0)",
                                  R"("oneOf":[{"typeid":0},0])", R"("typeid":"a")"});
    refuse("Expected a non-empty string.", {R"("typeid":"","anyOf":0)", R"("anyOf":[{"typeid":""}],"oneOf":0)",
                                            R"("oneOf":[{"typeid":""},0])", R"("typeid":"a","context":"")"});
    refuse(R"(Spec schema with "value" property must specify its type using exactly one of the "typeid", "anyOf", or )"
           R"("oneOf" attributes.)",
           {R"("typeid":"a","anyOf":0,"oneOf":0)", R"("typeid":"a","oneOf":0)", R"("anyOf":[{"typeid":"a"}],"oneOf":0)",
            R"("anyof":0)"});
    refuse(R"(Attribute "anyOf" in "value" property of schema x expects an array containing exactly one object with a )"
           R"("typeid" string attribute.)",
           {R"("anyOf":{"typeid":"a"},"oneOf":0)", R"("anyOf":[])", R"("anyOf":[{"typeid":"a"},{"typeid":"b"}])",
            R"("anyOf":["a"])", R"("anyOf":[{}])"});
    refuse(R"(Attribute "oneOf" in "value" property of schema x expects a non-empty array of objects containing a )"
           R"("typeid" string attribute.)",
           {R"("oneOf":{"typeid":"a"})", R"("oneOf":[])", R"("oneOf":[{"typeid":"a"},"b",{"typeid":0}])",
            R"("oneOf":[{"typeid":"a"},{},0])"});
    refuse("Expected an array/map/single context.", {R"("typeid":"a","context":"Array")"});
}

TEST(SpecSchemaTest, IsWrittenAsItsValueTypeSays) {
    for (const auto& [form, plain] : Cases{{".bool-1.0.0", R"({"id":"name","value":"Yes/No"})"},
                                           {".int64-2.0.0", R"({"id":"name","value":"Integer"})"},
                                           {".reference-1.0.0", R"({"id":"name","value":"Reference"})"},
                                           {".string-2.0.0", R"({"id":"name","value":"Text"})"}}) {
        const std::string bare = R"({"typeid":"x","inherits":[")" + base + form + R"("]})";
        specs.expectTexts(older(form, plain), {bare, "", ""});
        specs.expectTexts(older(form, plain + inD), {older(form, inD.substr(1)), "", ""});
    }
    specs.expectTexts(older("-1.0.0", name + inD), {older("-1.0.0", name + inD), "", ""});

    const std::string oldest = older(".bool-1.0.0", name);
    const std::string current = older("-1.0.0", name, R"("typeid":"Bool")");
    const std::string full = newer("-2.0.0", typedName, R"("typeid":"Bool")");
    specs.expectTexts(current, {downgraded(oldest, "2.0.0"), current, ""});
    specs.expectTexts(full, {downgraded(oldest), downgraded(current), full});
    for (const std::string type : {R"("anyOf":[{"typeid":"a"}])", R"("context":"map","typeid":"Bool")",
                                   R"("context":"array","oneOf":[{"typeid":"b"},{"typeid":"a"},{"typeid":"b"}])"}) {
        specs.expectTexts(newer("-2.0.0", typedName + inD, type), {"", "", newer("-2.0.0", typedName + inD, type)});
    }
}

TEST(SpecSchemaTest, IsWrittenWithItsUnits) {
    const std::string units =
        inD + R"(,{"id":"applicableUnits","typedValue":[{"typeid":"metre"},{"typeid":"inch"}]})" + inMetre;
    const std::string current = older(".measurable-2.1.0", name + units);
    const std::string full = newer(".measurable-3.0.0", typedName + units);
    specs.expectTexts(measurable(name + inMetre), {measurable(name + inMetre), "", ""});
    specs.expectTexts(current, {downgraded(measurable(name + units), "2.0.0"), current, ""});
    specs.expectTexts(full, {downgraded(measurable(name + units)), downgraded(current), full});
}

TEST(SpecSchemaTest, GoesBackAsFarAsItsNamesAllow) {
    const Taxon common = ParametersEngine().getDiscipline("quovanta.spec:discipline-1.0.0");
    ParametersEngine engine;
    const auto expectLowest = [&](Version lowest, const std::string& typeId, const Texts& types) {
        for (const std::string& type : types) {
            engine.registerSpec({typeId + type, "N", type, {}, Format::LumarDataSchema, common});
            EXPECT_EQ(engine.getCompatibleDataModelRange(typeId + type), std::pair(lowest, Version::V3))
                << typeId << type;
        }
    };
    expectLowest(Version::V1, "x", {"Bool", "Int64", "Float64", "Reference", "String", "quovanta.data:reference-9"});
    expectLowest(Version::V2, "x",
                 {"acme.quovanta.data:reference-1.0.0", "BinaryProperty", "Enum", "Float32", "Int8", "Int16", "Int32",
                  "NamedProperty", "NodeProperty", "RelationshipProperty", "Uint8", "Uint16", "Uint32", "Uint64",
                  "Reference<"});
    expectLowest(Version::V3, "x", {"", "bool", "General", "Float", "Reference ", "xReference<a>"});
    for (const std::string form : {".bool-1.", ".int64-2.", ".reference-1.", ".string-2."}) {
        expectLowest(Version::V2, base + form, {"Bool"});
        expectLowest(Version::V1, "acme." + base + form, {"Bool"});
    }
}

TEST(SpecSchemaTest, IsRefusedWhereThereIsNothingToWrite) {
    ParametersEngine engine = workshop({older("-1.0.0", name, R"("typeid":"Bool","context":"array")")});
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V3, "x"),
              older("-1.0.0", name, R"("context":"array","typeid":"Bool")"));
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V2, "x"), ValidationException, cannotRepresent);
    engine.registerParameter(
        {"p", "P", engine.getSpec("x"), engine.getGroup("quovanta.parameter:group-1.0.0"), {}, "", "", false});
    EXPECT_THROWS(engine.getSchema("p"), ValidationException, cannotRepresent);
    engine.registerSpec({"unitless", "N", "Float64", {}, {}, engine.getDiscipline("d")});
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, "unitless"), ValidationException, cannotRepresent);
}

} // namespace
} // namespace Parameters
