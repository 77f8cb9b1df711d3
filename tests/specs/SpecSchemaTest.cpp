#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

const Kind<Spec> specs = {&ParametersEngine::registerSpec, &ParametersEngine::getSpec};
const std::string name = nameConstant("N");
const std::string ownDiscipline = reference("discipline", "d");
const std::string inMetre = reference("storageUnit", "metre");

std::string measurable(const Texts& constants) {
    return shortForm("x", "quovanta.spec:spec.measurable-2.0.0", listed(constants));
}

/// The property of a spec's type; the attributes are what stands behind its id.
std::string valueProperty(const std::string& attributes) { return R"({"id":"value",)" + attributes + "}"; }

TEST(SpecSchemaTest, TakesTheShapeFromAPrefixAndTheValueTypeFromTheWholeBase) {
    const std::string strange = valueProperty(R"("typeid":0)"); // which only a spec of general shape reads
    const Cases cases = {
        {shortForm("x", "quovanta.spec:spec.int64-1.0.0", "", strange), ""},
        {shortForm("x", "quovanta.spec:spec-quovanta.spec:spec.string-quovanta.spec:spec.measurable-", ""), ""},
        {shortForm("x", "quovanta.spec:spec-quovanta.spec:spec.measurable-", listed({name, inMetre}), strange), ""},
        {shortForm("x", "quovanta.spec:spec.measurable-3.0.0", listed({name, inMetre})), "Float64"},
        {shortForm("x", "quovanta.spec:spec-2.0.0", name), ""}};
    for (const auto& [text, type] : cases) {
        EXPECT_EQ(std::get<std::string>(fixture({text}).getSpec("x").getValueTypeId()), type) << text;
    }
}

// Here and below each text has the faults of later ones as well, so that the messages show which comes first.
TEST(SpecSchemaTest, ReportsTheFirstFaultOfItsConstants) {
    const std::string noDiscipline = constant("discipline", "0"), noUnits = constant("applicableUnits", "0");
    const std::string domainAsDiscipline = reference("discipline", "o");
    const std::string inLength = reference("storageUnit", "length");
    const std::string unknownUnits =
        constant("applicableUnits", R"([{"typeid":"inch"},{"typeid":"unknown 2"},{"typeid":"unknown 1"}])");
    const std::string general = "quovanta.spec:spec-";
    expectRefused(
        {{measurable({noDiscipline, noUnits}), "Schema x has an undefined name constant."},
         {measurable({name, noDiscipline, noUnits}), "A typedValue must be an object."},
         {measurable({name, noUnits}), "Expected an array of typedValue objects."},
         {measurable({name, unknownUnits}), "Schema x has an undefined storageUnit constant."},
         {measurable({name, domainAsDiscipline, inLength, unknownUnits}),
          "Dependency o in schema x is missing or does not represent an object of the expected type."},
         {measurable({name, inLength, unknownUnits}),
          "Typeid length for storageUnit constant in measurable spec schema x does not belong to a unit."},
         {measurable({name, inMetre, unknownUnits}),
          "Typeid unknown 2 in applicableUnits constant in measurable spec schema x does not belong to a unit."},
         {shortForm("x", "quovanta.spec:spec.bool-", listed({nameConstant(""), noDiscipline})),
          "Expected a non-empty string."},
         {shortForm("x", general, noDiscipline, valueProperty(R"("typeid":0)")),
          "Schema x has an undefined name constant."},
         {fullForm("x", general, name), "Complex spec schema must declare a value property."}});
    const std::pair<std::set<std::string>, std::set<std::string>> missing = {{}, {"unknown 1", "unknown 2"}};
    EXPECT_EQ(fixture().registerSchema(measurable({name, domainAsDiscipline, inLength, unknownUnits})), missing);
}

TEST(SpecSchemaTest, ReportsTheFirstFaultOfItsValueType) {
    const auto refuse = [](const std::string& message, const Texts& types) {
        for (const std::string& type : types) {
            expectRefused(
                {{fullForm("x", "quovanta.spec:spec-", name, valueProperty(type + R"(,"context":0)")), message}});
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

TEST(SpecSchemaTest, IsWrittenInItsPrimitiveFamilyWithoutWhatThatStandsFor) {
    for (const auto& [base, nameOfFamily] : Cases{{"quovanta.spec:spec.bool-1.0.0", "Yes/No"},
                                                  {"quovanta.spec:spec.int64-2.0.0", "Integer"},
                                                  {"quovanta.spec:spec.reference-1.0.0", "Reference"},
                                                  {"quovanta.spec:spec.string-2.0.0", "Text"}}) {
        const std::string start = R"({"typeid":"x","inherits":[")" + base + R"("])";
        const std::string given = nameConstant(nameOfFamily);
        specs.expectTexts(shortForm("x", base, given), {start + "}", "", ""});
        specs.expectTexts(shortForm("x", base, listed({given, ownDiscipline})),
                          {start + R"(,"constants":[{"id":"discipline","typedValue":{"typeid":"d"}}]})", "", ""});
    }
}

TEST(SpecSchemaTest, IsWrittenInEachVersionThatCanRepresentItsValueType) {
    const std::string primitive = R"({"typeid":"x","inherits":["quovanta.spec:spec.bool-1.0.0"],)"
                                  R"("constants":[{"id":"name","value":"N"}]})";
    const std::string current = R"({"typeid":"x","inherits":["quovanta.spec:spec-1.0.0"],)"
                                R"("constants":[{"id":"name","value":"N"}],)"
                                R"("properties":[{"id":"value","typeid":"Bool"}]})";
    const std::string full = R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component",)"
                             R"("typeid":"x","inherits":["quovanta.spec:spec-2.0.0"],"sealed":true,)"
                             R"("constants":[{"id":"name","typeid":"String","value":"N"}],)"
                             R"("properties":[{"id":"value","typeid":"Bool"}]})";
    specs.expectTexts(current, {downgraded(primitive, "2.0.0"), current, ""});
    specs.expectTexts(full, {downgraded(primitive), downgraded(current), full});

    const std::string general = R"({"typeid":"x","inherits":["quovanta.spec:spec-1.0.0"],"constants":[)"
                                R"({"id":"name","value":"N"},{"id":"discipline","typedValue":{"typeid":"d"}}]})";
    specs.expectTexts(general, {general, "", ""});
    for (const std::string type : {R"("anyOf":[{"typeid":"a"}])", R"("context":"map","typeid":"Bool")",
                                   R"("context":"array","oneOf":[{"typeid":"b"},{"typeid":"a"},{"typeid":"b"}])"}) {
        const std::string newest =
            fullForm("x", "quovanta.spec:spec-2.0.0", R"({"id":"name","typeid":"String","value":"N"},)" + ownDiscipline,
                     valueProperty(type));
        specs.expectTexts(newest, {"", "", newest});
    }
}

TEST(SpecSchemaTest, IsWrittenWithItsUnits) {
    const std::string plain = R"({"typeid":"x","inherits":["quovanta.spec:spec.measurable-2.0.0"],"constants":[)"
                              R"({"id":"name","value":"N"},{"id":"storageUnit","typedValue":{"typeid":"metre"}}]})";
    const std::string behindName = R"(,{"id":"discipline","typedValue":{"typeid":"d"}},)"
                                   R"({"id":"applicableUnits","typedValue":[{"typeid":"metre"},{"typeid":"inch"}]},)"
                                   R"({"id":"storageUnit","typedValue":{"typeid":"metre"}})";
    const std::string oldest = shortForm("x", "quovanta.spec:spec.measurable-2.0.0", name + behindName);
    const std::string current = shortForm("x", "quovanta.spec:spec.measurable-2.1.0", name + behindName);
    const std::string full = fullForm("x", "quovanta.spec:spec.measurable-3.0.0",
                                      R"({"id":"name","typeid":"String","value":"N"})" + behindName);
    specs.expectTexts(plain, {plain, "", ""});
    specs.expectTexts(current, {downgraded(oldest, "2.0.0"), current, ""});
    specs.expectTexts(full, {downgraded(oldest), downgraded(current), full});
}

TEST(SpecSchemaTest, HasTheDefaultDisciplineOfItsFormatIfItNamesNone) {
    const std::string any = "acme.quovanta.spec:discipline-9";
    const Cases cases = {
        {shortForm("x", "quovanta.spec:spec.bool-1.0.0", ""), "quovanta.spec:discipline-1.0.0"},
        {fullForm("x", "quovanta.spec:spec.bool-1.0.0", ""), "quovanta.spec:discipline-2.0.0"},
        {shortForm("x", "quovanta.spec:spec.bool-1.0.0", reference("discipline", any)), any},
        {fullForm("x", "quovanta.spec:spec.bool-1.0.0", reference("discipline", "quovanta.spec:discipline-1.0.0")),
         "quovanta.spec:discipline-1.0.0"},
    };
    ParametersEngine registered = fixture();
    registered.registerDiscipline(Taxon(any, "Own", Format::LumarDataSchema));
    for (const auto& [text, typeId] : cases) {
        SCOPED_TRACE(text);
        ParametersEngine engine = registered;
        engine.registerSchema(text);
        engine.resolveSchemas();
        const Taxon discipline = engine.getSpec("x").getDiscipline();
        EXPECT_EQ(discipline.getTypeId(), typeId);
        EXPECT_EQ(discipline.getName(), "Common");
        EXPECT_EQ(discipline.getSchemaFormat(), Format::PropertySets);
    }
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
    for (const std::string family : {"quovanta.spec:spec.bool-1.", "quovanta.spec:spec.int64-2.",
                                     "quovanta.spec:spec.reference-1.", "quovanta.spec:spec.string-2."}) {
        expectLowest(Version::V2, family, {"Bool"});
        expectLowest(Version::V1, "acme." + family, {"Bool"});
        // One of the oldest data model alone has no later version to begin at.
        engine.registerSpec({family + "1", "N", LegacyPrimitiveType::Boolean, {}, Format::PropertySets, common});
        EXPECT_EQ(engine.getCompatibleDataModelRange(family + "1"), std::pair(Version::V1, Version::V1)) << family;
    }
}

TEST(SpecSchemaTest, IsRefusedWhereThereIsNothingToWrite) {
    ParametersEngine engine = fixture({R"({"typeid":"x","inherits":["quovanta.spec:spec-1.0.0"],)"
                                       R"("constants":[{"id":"name","value":"N"}],)"
                                       R"("properties":[{"id":"value","typeid":"Bool","context":"array"}]})"});
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V3, "x"),
              R"({"typeid":"x","inherits":["quovanta.spec:spec-1.0.0"],"constants":[{"id":"name","value":"N"}],)"
              R"("properties":[{"id":"value","context":"array","typeid":"Bool"}]})");
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V2, "x"), ValidationException, cannotRepresent);
    engine.registerParameter(
        {"p", "P", engine.getSpec("x"), engine.getGroup("quovanta.parameter:group-1.0.0"), {}, "", "", false});
    EXPECT_THROWS(engine.getSchema("p"), ValidationException, cannotRepresent);
    engine.registerSpec({"unitless", "N", "Float64", {}, {}, engine.getDiscipline("d")});
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, "unitless"), ValidationException, cannotRepresent);
}

} // namespace
} // namespace Parameters
