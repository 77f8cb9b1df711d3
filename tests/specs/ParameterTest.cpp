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

TEST(ParameterTest, HoldsWhatIsRegisteredUnderTheTypeIdsThatItBringsAlong) {
    const auto stored = [](const Parameter& given) {
        ParametersEngine engine = parameterWorkshop();
        engine.registerParameter(given);
        return engine.getParameter("x");
    };
    const Parameter whole = stored(parameter("Bool", category("major")));
    EXPECT_EQ(whole.getName() + whole.getDescription() + whole.getSampleText(), "NDS");
    EXPECT_EQ(whole.getGroup().getName() + std::get<Category>(whole.getRange()).getName(), "GroupMajor");
    EXPECT_TRUE(whole.isReadOnly() && whole.getSchemaFormat() == Format::LumarDataSchema);
    std::string names;
    for (const std::string spec :
         {"spec:spec.bool-1.0.0", "spec:spec.int64-2.0.0", "spec:spec.reference-1.0.0", "spec:spec.string-2.0.0",
          "talmo.spec:familyType-1.0.0", "talmo.spec:familyType-2.0.0"}) {
        const Parameter based = stored(parameter("quovanta." + spec, category("s"), "", "quovanta.parameter:group-2"));
        names += based.getSpec().getName() + " in " + based.getGroup().getName() + ", ";
    }
    EXPECT_EQ(names, "Yes/No in Other, Integer in Other, Reference in Other, Text in Other, Family Type in Other, "
                     "Spec in Other, ");
}

TEST(ParameterTest, IsRefusedForItsFirstFault) {
    const auto strings = [](const std::string& base, const auto& component) {
        return StringRange("acme.quovanta.range:range.string" + base, component, old);
    };
    const SetStringRangeComponent set({"a"});
    const RegexStringRangeComponent regex("a");
    const Enumeration choices("choices", {}, old);
    const auto general = LegacyPrimitiveType::General;
    const std::string familyType = "quovanta.talmo.spec:familyType-";
    const std::string ofBase = "String range using base schema typeid acme.quovanta.range:range.string";
    ParametersEngine engine = parameterWorkshop();
    for (const auto& [refused, message] : std::vector<std::pair<Parameter, std::string>>{
             {parameter("?", category("?"), "", "?", ""), "Name must not be empty."},
             {parameter("?", category("?"), "", "?"), "Could not find group with typeid ?."},
             {parameter("?", category("?")), "Could not find category with typeid ?."},
             {parameter("?", Enumeration("?", {}, old)), "Could not find enumeration with typeid ?."},
             {parameter("?", FloatRange("?", 0, 0, 0, 0, old)), "Could not find floating-point range with typeid ?."},
             {parameter("?", IntRange("?", 0, 0, 0, 0, old)), "Could not find integer range with typeid ?."},
             {parameter("?", StringRange("?", set, old)), "Could not find string range with typeid ?."},
             {parameter("?", strings("-1", SetStringRangeComponent({"a", "a"}))), "Value a must appear only once."},
             {parameter("?", strings("-1", regex)), ofBase + "-1 may not specify a limited range of values."},
             {parameter("?", strings(".set.static-1", regex)),
              ofBase + ".set.static-1 must specify an explicit set of allowed values."},
             {parameter("?", strings(".regex-1", set)),
              ofBase + ".regex-1 must specify a regular expression matching permitted values."},
             {parameter(familyType + "1.0.0", {}, general), "Family Type parameter must specify a category."},
             {parameter(familyType + "2.0.0", category("s"), LegacyPrimitiveType::Reference),
              "Primitive reference parameter may use only major version 1 of the family type base spec."},
             {parameter("spec.bool-1.0.1", {}, general), "Could not find spec with typeid spec.bool-1.0.1."},
             {parameter("choice", choices), "Parameter with an enumeration range must use a legacy general spec."},
             {parameter("Bool", {}, general), "Parameter with a legacy general spec must use an enumeration range."}}) {
        EXPECT_THROWS(engine.registerParameter(refused), ValidationException, message);
        EXPECT_THROWS(engine.getDependencies(refused), ValidationException, message);
        EXPECT_THROWS(engine.getSchema(refused), ValidationException, message);
    }
}

} // namespace
} // namespace Parameters
