// Hosts may declare the classes that they name, without including all of them.
namespace Parameters {
class Category;
class Enumeration;
class FloatRange;
class IntRange;
class Parameter;
class ParametersEngine;
class Spec;
class StringRange;
class Taxon;
} // namespace Parameters

#include <Parameters/Defaults.h>
#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

TEST(SignaturesTest, ValuesAreMadeOfWhatTheyHold) {
    const Category category("t", "n", std::string("parent"), Format::PropertySets);
    EXPECT_EQ(category.getSubCategoryComponent()->getParentCategory(), "parent");
    const std::vector<std::string> values = {"b", "a"};
    const StringRange set("t", values, Format::PropertySets);
    EXPECT_EQ(set.getSetStringRangeComponent()->getAllowedValues(), values);
    const StringRange regex(std::string("a+"), Format::LumarDataSchema);
    EXPECT_EQ(regex.getRegexStringRangeComponent()->getRegex(), "a+");
    EXPECT_TRUE(SetStringRangeComponent().getAllowedValues().empty());
    const AnyOf anyOf = std::string("base");
    EXPECT_EQ(anyOf.getBaseTypeId(), "base");
    const OneOf oneOf = values;
    EXPECT_EQ(oneOf.getTypeIds(), values);
}

template <class Range> void expectDefaults() {
    const Range none, bottom = true, both = {true, 1, true}, full = {false, 0, true, 2, Format::LumarDataSchema};
    EXPECT_FALSE(none.isBoundFromBottom() || none.isBoundFromTop());
    EXPECT_EQ(none.getBottomBoundary(), 0);
    EXPECT_EQ(none.getTopBoundary(), 0);
    EXPECT_EQ(none.getSchemaFormat(), Format::PropertySets);
    EXPECT_TRUE(bottom.isBoundFromBottom() && !bottom.isBoundFromTop());
    EXPECT_EQ(bottom.getBottomBoundary(), 0);
    EXPECT_EQ(both.getBottomBoundary(), 1);
    EXPECT_TRUE(both.isBoundFromTop());
    EXPECT_EQ(both.getTopBoundary(), 0);
    EXPECT_EQ(full.getTopBoundary(), 2);
    EXPECT_EQ(full.getSchemaFormat(), Format::LumarDataSchema);
}

TEST(SignaturesTest, RangesHaveFiveDefaults) {
    expectDefaults<FloatRange>();
    expectDefaults<IntRange>();
}

TEST(SignaturesTest, DefaultTaxaKeepTheFormatTheyAreGiven) {
    for (const int number : {0, 1, 2, -1}) {
        const auto format = static_cast<Format>(number);
        const std::string version = number == 1 ? "2.0.0" : "1.0.0";
        const Taxon discipline = Defaults::CreateDefaultDiscipline(format),
                    group = Defaults::CreateDefaultGroup(format);
        EXPECT_EQ(discipline.getTypeId(), "quovanta.spec:discipline-" + version);
        EXPECT_EQ(discipline.getName(), "Common");
        EXPECT_EQ(discipline.getSchemaFormat(), format);
        EXPECT_EQ(group.getTypeId(), "quovanta.parameter:group-" + version);
        EXPECT_EQ(group.getName(), "Other");
        EXPECT_EQ(group.getSchemaFormat(), format);
    }
}

} // namespace
} // namespace Parameters
