#include "support/ParameterDocuments.h"

namespace Parameters {
namespace {

constexpr auto old = Format::PropertySets;

// What a parameter brings along counts only by its typeid, so the rest of it is nonsense here.

Taxon taxon(const std::string& typeId) { return {typeId, "", old}; }
Category category(const std::string& typeId) { return {typeId, "", SubCategoryComponent(""), old}; }
Parameter parameter(const std::string& spec, const ParameterRange& range = {}, const ValueTypeId& valueType = "",
                    const std::string& group = "group", const std::string& name = "N") {
    return {"x", name, Spec(spec, "", valueType, {}, old, taxon("")), taxon(group), range, "D", "S", true};
}

Parameter registered(const Parameter& given) {
    ParametersEngine engine = parameterFixture();
    engine.registerParameter(given);
    return engine.getParameter("x");
}

TEST(ParameterTest, HoldsWhatIsRegisteredUnderTheTypeIdsThatItBringsAlong) {
    const Parameter whole = registered(parameter("Bool", category("major")));
    EXPECT_EQ(whole.getName(), "N");
    EXPECT_EQ(whole.getDescription(), "D");
    EXPECT_EQ(whole.getSampleText(), "S");
    EXPECT_EQ(whole.getGroup().getName(), "Group");
    EXPECT_EQ(std::get<Category>(whole.getRange()).getName(), "Major");
    EXPECT_EQ(whole.getSchemaFormat(), Format::LumarDataSchema);
    EXPECT_TRUE(whole.isReadOnly());
}

TEST(ParameterTest, TakesBaseSpecsAndTheDefaultGroupWithoutRegistration) {
    for (const auto& [spec, nameOfSpec] : Cases{{"quovanta.spec:spec.bool-1.0.0", "Yes/No"},
                                                {"quovanta.spec:spec.int64-2.0.0", "Integer"},
                                                {"quovanta.spec:spec.reference-1.0.0", "Reference"},
                                                {"quovanta.spec:spec.string-2.0.0", "Text"},
                                                {"quovanta.talmo.spec:familyType-1.0.0", "Family Type"},
                                                {"quovanta.talmo.spec:familyType-2.0.0", "Spec"}}) {
        const Parameter based = registered(parameter(spec, category("s"), "", "acme.quovanta.parameter:group-2"));
        EXPECT_EQ(based.getSpec().getName(), nameOfSpec) << spec;
        EXPECT_EQ(based.getGroup().getName(), "Other") << spec;
        EXPECT_EQ(based.getGroup().getTypeId(), "quovanta.parameter:group-1.0.0") << spec;
    }
}

TEST(ParameterTest, CannotBeWrittenIfItsRegisteredSpecAsksForAnEnumerationThatItLacks) {
    // What the parameter brings along obeys the rule; only what is registered as its spec does not.
    const Parameter stale = parameter("choice", {}, "Bool");
    ParametersEngine engine = parameterFixture();
    EXPECT_THROWS(engine.getSchema(stale), ValidationException, cannotRepresent);
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, stale), ValidationException, cannotRepresent);
    engine.registerParameter(stale);
    EXPECT_THROWS(engine.getSchema("x"), ValidationException, cannotRepresent);
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, "x"), ValidationException, cannotRepresent);
}

// Each parameter has the faults of later rows as well, so that the rows show which comes first.
TEST(ParameterTest, IsRefusedForItsFirstFault) {
    const auto stringRange = [](const std::string& base, const auto& component) {
        return StringRange("acme.quovanta.range:range.string" + base, component, old);
    };
    const SetStringRangeComponent set({"a"}), twice({"a", "a"});
    const RegexStringRangeComponent pattern("a");
    const Enumeration choices("choices", {}, old);
    const auto general = LegacyPrimitiveType::General;
    const std::pair<Parameter, std::string> rows[] = {
        {parameter("unknown", category("lost"), "", "missing", ""), "Name must not be empty."},
        {parameter("unknown", category("lost"), "", "missing"), "Could not find group with typeid missing."},
        {parameter("unknown", category("lost")), "Could not find category with typeid lost."},
        {parameter("unknown", Enumeration("lost", {}, old)), "Could not find enumeration with typeid lost."},
        {parameter("unknown", FloatRange("lost", 0, 0, 0, 0, old)),
         "Could not find floating-point range with typeid lost."},
        {parameter("unknown", IntRange("lost", 0, 0, 0, 0, old)), "Could not find integer range with typeid lost."},
        {parameter("unknown", StringRange("lost", set, old)), "Could not find string range with typeid lost."},
        {parameter("unknown", stringRange("-1", twice)), "Value a must appear only once."},
        {parameter("unknown", stringRange("-1", pattern)),
         "String range using base schema typeid acme.quovanta.range:range.string-1 may not specify a limited range of "
         "values."},
        {parameter("unknown", stringRange(".set.static-1", pattern)),
         "String range using base schema typeid acme.quovanta.range:range.string.set.static-1 must specify an "
         "explicit set of allowed values."},
        {parameter("unknown", stringRange(".regex-1", set)),
         "String range using base schema typeid acme.quovanta.range:range.string.regex-1 must specify a regular "
         "expression matching permitted values."},
        {parameter("quovanta.talmo.spec:familyType-1.0.0", {}, general),
         "Family Type parameter must specify a category."},
        {parameter("quovanta.talmo.spec:familyType-2.0.0", category("s"), LegacyPrimitiveType::Reference),
         "Primitive reference parameter may use only major version 1 of the family type base spec."},
        {parameter("spec.bool-1.0.1", {}, general), "Could not find spec with typeid spec.bool-1.0.1."},
        {parameter("choice", choices), "Parameter with an enumeration range must use a legacy general spec."},
        {parameter("Bool", {}, general), "Parameter with a legacy general spec must use an enumeration range."}};
    ParametersEngine engine = parameterFixture();
    for (const auto& [refused, message] : rows) {
        EXPECT_THROWS(engine.registerParameter(refused), ValidationException, message);
        EXPECT_THROWS(engine.getDependencies(refused), ValidationException, message);
        EXPECT_THROWS(engine.getSchema(refused), ValidationException, message);
    }
}

} // namespace
} // namespace Parameters
