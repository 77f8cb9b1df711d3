#include "support/Objects.h"

#include <Parameters/Defaults.h>

namespace Parameters {
namespace {

using Type = LegacyPrimitiveType;

constexpr Format full = Format::LumarDataSchema;
const Taxon d("d", "stale", full);
const Taxon o("o", "stale", full);
const Units::Unit metre("metre", "stale", {});
const Units::Unit unknown("z", "stale", {});
const Measurable unknowns({unknown}, Units::Unit("y", "stale", {}));

TEST(DefaultsTest, AreWhatTheOldestDataModelHad) {
    using namespace Defaults;
    std::string all = CreateDefaultDiscipline(full).getTypeId() + " " + CreateDefaultGroup(full).getTypeId();
    for (const Spec& spec : {CreateLegacyBooleanBaseSpec(), CreateLegacyIntegerBaseSpec(), CreateLegacyStringBaseSpec(),
                             CreateLegacyReferenceBaseSpec(), CreateLegacyFamilyTypeBaseSpec()}) {
        all += ", " + spec.getName() + " " + std::to_string(static_cast<int>(std::get<Type>(spec.getValueTypeId())));
    }
    EXPECT_EQ(all, "quovanta.spec:discipline-2.0.0 quovanta.parameter:group-2.0.0, Yes/No 1, Integer 2, Text 5, "
                   "Reference 4, Family Type 4");
}

// Each spec has the faults of later rows as well, so that the rows show which comes first.
TEST(SpecTest, ReportsTheFirstFaultWhenItIsRegistered) {
    const std::string noFloat = "Spec with units of measurement must have floating-point value type.";
    const std::string polymorphic = "Spec with PropertySets schema format may not use polymorphic value type.";
    const std::pair<Spec, std::string> cases[] = {
        {{"x", "", Type::Float, unknowns, full, o}, "Name must not be empty."},
        {{"x", "N", Type::Float, {}, full, o}, "Could not find discipline with typeid o."},
        {{"x", "N", Type::Float, {}, full, d}, "Legacy primitive specs must use PropertySets schema format."},
        {{"x", "N", OneOf({}), unknowns, full, d},
         "Spec with polymorphic value type using 'oneOf' must offer at least one type."},
        {{"x", "N", AnyOf(""), unknowns, full, d, Context::Map}, "Could not find unit with typeid y."},
        {{"x", "N", AnyOf(""), {}, {}, d, Context::Map},
         "Spec with PropertySets schema format may use only single context."},
        {{"x", "N", AnyOf("a"), unknowns, {}, d}, polymorphic},
        {{"x", "N", OneOf({"a"}), unknowns, {}, d}, polymorphic},
        {{"x", "N", Type::Float, {}, {}, d}, "Spec of measurable value type must include units of measurement."},
        {{"x", "N", Type::Boolean, Measurable({metre, unknown}, metre), {}, d}, "Could not find unit with typeid z."},
        {{"x", "N", Type::Boolean, Measurable({metre}, metre), {}, d}, noFloat},
        {{"x", "N", "Float32", Measurable({}, metre), full, d}, noFloat}};
    ParametersEngine engine = workshop();
    for (const auto& [spec, message] : cases) {
        EXPECT_THROWS(engine.registerSpec(spec), ValidationException, message);
    }
}

TEST(SpecTest, IsCompletedWhenItIsRegistered) {
    ParametersEngine engine = workshop();
    engine.registerDiscipline(Taxon("quovanta.spec:discipline-9", "Own", {}));
    for (const auto& [typeId, name] :
         Cases{{"d", "D"}, {"quovanta.spec:discipline-9", "Own"}, {"quovanta.spec:discipline-2.0.0", "Common"}}) {
        const Taxon stale(typeId, "stale", full);
        engine.registerSpec({name, "N", "Float64", Measurable({metre}, metre), full, stale, Context::Map});
        const Spec spec = engine.getSpec(name);
        EXPECT_EQ(spec.getDiscipline().getName() + spec.getMeasurable()->getStorageUnit().getName(), name + "Metre");
    }
    EXPECT_EQ(engine.getSpec("Common").getDiscipline().getTypeId(), "quovanta.spec:discipline-1.0.0");
}

} // namespace
} // namespace Parameters
