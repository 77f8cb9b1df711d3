#include "support/Objects.h"

#include <Parameters/Defaults.h>

namespace Parameters {
namespace {

using Type = LegacyPrimitiveType;

constexpr Format full = Format::LumarDataSchema;

// What a spec brings along counts only by its typeid.
const Taxon discipline("d", "stale", full);
const Taxon domainAsDiscipline("o", "stale", full);
const Units::Unit metre("metre", "stale", {});
const Units::Unit unknown("unknown", "stale", {}), unknownStorage("unknown storage", "stale", {});
const Measurable inUnknownUnits({unknown}, unknownStorage);

TEST(DefaultsTest, AreWhatTheOldestDataModelHad) {
    using namespace Defaults;
    EXPECT_EQ(CreateDefaultDiscipline(full).getTypeId(), "quovanta.spec:discipline-2.0.0");
    EXPECT_EQ(CreateDefaultGroup(full).getTypeId(), "quovanta.parameter:group-2.0.0");
    const std::tuple<Spec, std::string, Type> rows[] = {
        {CreateLegacyBooleanBaseSpec(), "Yes/No", Type::Boolean},
        {CreateLegacyIntegerBaseSpec(), "Integer", Type::Integer},
        {CreateLegacyStringBaseSpec(), "Text", Type::String},
        {CreateLegacyReferenceBaseSpec(), "Reference", Type::Reference},
        {CreateLegacyFamilyTypeBaseSpec(), "Family Type", Type::Reference}};
    for (const auto& [spec, name, type] : rows) {
        EXPECT_EQ(spec.getName(), name);
        EXPECT_EQ(std::get<Type>(spec.getValueTypeId()), type) << name;
    }
}

// Each spec has the faults of later rows as well, so that the rows show which comes first.
TEST(SpecTest, ReportsTheFirstFaultWhenItIsRegistered) {
    const std::string noFloat = "Spec with units of measurement must have floating-point value type.";
    const std::string polymorphic = "Spec with PropertySets schema format may not use polymorphic value type.";
    const Measurable withUnknownUnit({metre, unknown}, metre);
    const std::pair<Spec, std::string> rows[] = {
        {{"x", "", Type::Float, inUnknownUnits, full, domainAsDiscipline}, "Name must not be empty."},
        {{"x", "N", Type::Float, {}, full, domainAsDiscipline}, "Could not find discipline with typeid o."},
        {{"x", "N", Type::Float, {}, full, discipline}, "Legacy primitive specs must use PropertySets schema format."},
        {{"x", "N", OneOf({}), inUnknownUnits, full, discipline},
         "Spec with polymorphic value type using 'oneOf' must offer at least one type."},
        {{"x", "N", AnyOf(""), inUnknownUnits, full, discipline, Context::Map},
         "Could not find unit with typeid unknown storage."},
        {{"x", "N", AnyOf(""), {}, {}, discipline, Context::Map},
         "Spec with PropertySets schema format may use only single context."},
        {{"x", "anyOf", AnyOf("a"), inUnknownUnits, {}, discipline}, polymorphic},
        {{"x", "oneOf", OneOf({"a"}), inUnknownUnits, {}, discipline}, polymorphic},
        {{"x", "N", Type::Float, {}, {}, discipline},
         "Spec of measurable value type must include units of measurement."},
        {{"x", "N", Type::Boolean, withUnknownUnit, {}, discipline}, "Could not find unit with typeid unknown."},
        {{"x", "Boolean", Type::Boolean, Measurable({metre}, metre), {}, discipline}, noFloat},
        {{"x", "Float32", "Float32", Measurable({}, metre), full, discipline}, noFloat}};
    ParametersEngine engine = fixture();
    for (const auto& [spec, message] : rows) {
        EXPECT_THROWS(engine.registerSpec(spec), ValidationException, message) << spec.getName();
    }
}

TEST(SpecTest, IsCompletedWhenItIsRegistered) {
    ParametersEngine engine = fixture();
    engine.registerDiscipline(Taxon("quovanta.spec:discipline-9", "Own", {}));
    for (const auto& [typeId, name] :
         Cases{{"d", "D"}, {"quovanta.spec:discipline-9", "Own"}, {"quovanta.spec:discipline-2.0.0", "Common"}}) {
        const Taxon stale(typeId, "stale", full);
        engine.registerSpec({name, "N", "Float64", Measurable({metre}, metre), full, stale, Context::Map});
        const Spec spec = engine.getSpec(name);
        EXPECT_EQ(spec.getDiscipline().getName(), name);
        EXPECT_EQ(spec.getMeasurable()->getStorageUnit().getName(), "Metre") << typeId;
    }
    EXPECT_EQ(engine.getSpec("Common").getDiscipline().getTypeId(), "quovanta.spec:discipline-1.0.0");
}

} // namespace
} // namespace Parameters
