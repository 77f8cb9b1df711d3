#include <Parameters/DocumentForms.h>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Parameters;
using namespace testing;

namespace {

const MemberForm& named(const std::string& name, const std::vector<MemberForm>& members) {
    const auto found =
        std::find_if(members.begin(), members.end(), [&](const auto& each) { return each.name == name; });
    return found != members.end() ? *found : throw std::out_of_range(name);
}

} // namespace

TEST(DocumentForms, TellWhatReadersTake) {
    const std::vector<DocumentForm> forms = documentForms();
    const auto form = [&](const std::string& base, bool isCurrent) {
        return *std::find_if(forms.begin(), forms.end(), [&](const DocumentForm& each) {
            return each.base == base && each.isCurrent == isCurrent;
        });
    };
    const DocumentForm ranged = form("quovanta.parameter:parameter.ranged.float64-2.0.0", true);
    EXPECT_EQ(ranged.kind, "parameter");
    EXPECT_TRUE(named("typeid", ranged.frame).isRequired);
    EXPECT_TRUE(named("inherits", ranged.frame).isRequired);
    EXPECT_FALSE(named("sealed", ranged.frame).isRequired);
    const MemberForm& name = named("name", ranged.constants);
    EXPECT_TRUE(name.isRequired);
    EXPECT_THAT(named("value", name.value.members).value.types, ElementsAre("string"));
    EXPECT_FALSE(named("value", name.value.members).value.mayBeEmpty);
    EXPECT_FALSE(named("description", ranged.constants).isRequired);
    const ValueForm& range = named("typedValue", named("range", ranged.constants).value.members).value;
    EXPECT_THAT(named("typeid", range.members).value.kinds, ElementsAre("floating-point range"));
    const ValueForm& limits = named("value", range.members).value;
    EXPECT_THAT(named("topBoundary", limits.members).value.types, ElementsAre("integer", "number"));
    EXPECT_FALSE(named("topBoundary", limits.members).isRequired);
    EXPECT_TRUE(named("typeid", range.members).isRequired);
    EXPECT_THAT(named("typeid", named("data", ranged.properties).value.members).value.kinds, ElementsAre("spec"));

    const DocumentForm spec = form("quovanta.spec:spec-2.0.0", true);
    const auto& value = named("value", spec.properties).value.members;
    EXPECT_THAT(named("context", value).value.words, ElementsAre("array", "map", "single"));
    EXPECT_FALSE(named("oneOf", value).isRequired);
    EXPECT_THAT(named("typeid", named("oneOf", value).value.elements.front().members).value.types,
                ElementsAre("string"));
    const DocumentForm measurable = form("quovanta.spec:spec.measurable-2.1.0", false);
    const ValueForm& units = named("value", named("applicableUnits", measurable.constants).value.members).value;
    EXPECT_THAT(named("typeid", units.elements.front().members).value.kinds, ElementsAre("unit"));

    // Whichever of the two there is, it needs neither the other nor what goes with it.
    const DocumentForm choice = form("quovanta.parameter:parameter-2.0.0", false);
    EXPECT_FALSE(named("data", choice.properties).isRequired);
    EXPECT_FALSE(named("value", choice.properties).isRequired);
    EXPECT_FALSE(named("spec", choice.constants).isRequired);

    const DocumentForm enumeration = form("", true);
    EXPECT_EQ(enumeration.freeSection, "enum");
    EXPECT_THAT(named("value", enumeration.freeEntry.members).value.types, ElementsAre("integer"));
    EXPECT_EQ(form("Enum", false).freeSection, "properties");
}
