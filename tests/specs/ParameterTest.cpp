#include "support/ParameterDocuments.h"

namespace Parameters {
namespace {

using Legacy = LegacyPrimitiveType;

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
    const Parameter whole = stored(parameter("quovanta.data:reference-1.0.0", category("major")));
    EXPECT_EQ(whole.getName() + whole.getDescription() + whole.getSampleText(), "NDS");
    EXPECT_EQ(whole.getGroup().getName() + std::get<Category>(whole.getRange()).getName(), "GroupMajor");
    EXPECT_TRUE(whole.isReadOnly() && whole.getSchemaFormat() == Format::LumarDataSchema);
    std::string names;
    for (const std::string spec :
         {"spec:spec.bool-1.0.0", "spec:spec.int64-2.0.0", "spec:spec.reference-1.0.0", "spec:spec.string-2.0.0",
          "talmo.spec:familyType-1.0.0", "talmo.spec:familyType-2.0.0"}) {
        const Parameter based = stored(parameter("quovanta." + spec, category("s"), "", "quovanta.parameter:group-2"));
        EXPECT_EQ(based.getGroup().getTypeId(), "quovanta.parameter:group-1.0.0");
        names += based.getSpec().getName() + " ";
    }
    EXPECT_EQ(names, "Yes/No Integer Reference Text Family Type Spec ");
    const Parameter limited = stored(parameter("Float64", FloatRange(true, 2, false, 0, Format::LumarDataSchema)));
    EXPECT_EQ(std::get<FloatRange>(limited.getRange()).getBottomBoundary(), 2) << "stands for itself";
}

TEST(ParameterTest, IsRefusedForItsFirstFault) {
    const auto strings = [](const std::string& base, const auto& component) {
        return StringRange("acme.quovanta.range:range.string" + base, component, old);
    };
    const SetStringRangeComponent set({"a"});
    const RegexStringRangeComponent regex("a");
    const std::string familyType = "quovanta.talmo.spec:familyType-";
    const std::string ofBase = "String range using base schema typeid acme.quovanta.range:range.string";
    ParametersEngine engine = parameterWorkshop();
    for (const auto& [refused, message] : std::vector<std::pair<Parameter, std::string>>{
             {parameter("?", category("?"), "", "?", ""), "Name must not be empty."},
             {parameter("?", category("?"), "", "?"), "Could not find group with typeid ?."},
             {parameter("?", category("?")), "Could not find category with typeid ?."},
             {parameter("?", Enumeration("?", {}, old)), "Could not find enumeration with typeid ?."},
             {parameter("?", FloatRange("?", true, 0, true, 0, old)),
              "Could not find floating-point range with typeid ?."},
             {parameter("?", IntRange("?", true, 0, true, 0, old)), "Could not find integer range with typeid ?."},
             {parameter("?", StringRange("?", set, old)), "Could not find string range with typeid ?."},
             {parameter("?", strings("-1", SetStringRangeComponent({"a", "a"}))), "Value a must appear only once."},
             {parameter("?", strings("-1", regex)), ofBase + "-1 may not specify a limited range of values."},
             {parameter("?", strings(".set.static-1", regex)),
              ofBase + ".set.static-1 must specify an explicit set of allowed values."},
             {parameter("?", strings(".regex-1", set)),
              ofBase + ".regex-1 must specify a regular expression matching permitted values."},
             {parameter(familyType + "1.0.0", {}, Legacy::General), "Family Type parameter must specify a category."},
             {parameter(familyType + "2.0.0", category("s"), Legacy::Reference),
              "Primitive reference parameter may use only major version 1 of the family type base spec."},
             {parameter("spec.bool-1.0.1", {}, Legacy::General), "Could not find spec with typeid spec.bool-1.0.1."},
             {parameter("choice", Enumeration("choices", {}, old)),
              "Parameter with an enumeration range must use a legacy general spec."},
             {parameter("Bool", {}, Legacy::General),
              "Parameter with a legacy general spec must use an enumeration range."}}) {
        EXPECT_THROWS(engine.registerParameter(refused), ValidationException, message);
        EXPECT_THROWS(engine.getDependencies(refused), ValidationException, message);
        EXPECT_THROWS(engine.getSchema(refused), ValidationException, message);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, refused), ValidationException, message);
    }
}

} // namespace
} // namespace Parameters
