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

TEST(SignaturesTest, ValuesTellWhatTheyDoNotHold) {
    const StringRange none, set(SetStringRangeComponent(), {}), regex(RegexStringRangeComponent(""), {});
    EXPECT_EQ(none.getTypeId(), "quovanta.range:range.string-1.0.0");
    EXPECT_EQ(none.getSchemaFormat(), Format::PropertySets);
    EXPECT_FALSE(none.getSetStringRangeComponent() || none.getRegexStringRangeComponent());
    EXPECT_TRUE(set.getSetStringRangeComponent() && !set.getRegexStringRangeComponent());
    EXPECT_TRUE(regex.getRegexStringRangeComponent() && !regex.getSetStringRangeComponent());
    const Category major("t", "n", MajorCategoryComponent({"d", "", {}}, {}), {}), sub("t", "n", std::string(), {});
    EXPECT_TRUE(major.getMajorCategoryComponent() && !major.getSubCategoryComponent());
    EXPECT_TRUE(sub.getSubCategoryComponent() && !sub.getMajorCategoryComponent());
    const Taxon group = ParameterCore("t", "n", "", "", false).getGroup();
    EXPECT_EQ(group.getTypeId() + group.getName(), "quovanta.parameter:group-1.0.0Other");
    EXPECT_EQ(group.getSchemaFormat(), Format::PropertySets);
}

/// Makes two values of each typeid, which differ in all else.
template <class Make> void expectTypeIdsCompared(const std::string& className, Make make) {
    const std::string ascending[] = {"", "A", std::string("A\0", 2), "A-1.0.0", "a", "\x7F", "\x80", "\xFF"};
    for (const std::string& one : ascending) {
        for (const std::string& other : ascending) {
            for (const bool isFirst : {true, false}) {
                const auto left = make(one, isFirst), right = make(other, !isFirst);
                const std::string operands = className + " \"" + one + "\" and \"" + other + "\"";
                EXPECT_EQ(left < right, &one < &other) << operands;
                EXPECT_EQ(left > right, &one > &other) << operands;
                EXPECT_EQ(left == right, &one == &other) << operands;
                EXPECT_EQ(left != right, &one != &other) << operands;
            }
        }
    }
}

TEST(SignaturesTest, ValuesCompareTheUnsignedBytesOfTheirTypeIdsAlone) {
    using Text = const std::string&;
    const auto name = [](bool isFirst) { return std::string(isFirst ? "x" : "y"); };
    const auto format = [](bool isFirst) { return isFirst ? Format::PropertySets : Format::LumarDataSchema; };
    const auto taxon = [=](Text t, bool isFirst) { return Taxon(t, name(isFirst), format(isFirst)); };
    const auto enumeration = [=](Text t, bool isFirst) {
        return Enumeration(t, {{name(isFirst), isFirst}}, format(isFirst));
    };
    const auto spec = [=](Text t, bool isFirst) {
        return Spec(t, name(isFirst), name(isFirst), {}, format(isFirst), taxon(name(isFirst), isFirst));
    };
    expectTypeIdsCompared("Taxon", taxon);
    expectTypeIdsCompared("Enumeration", enumeration);
    expectTypeIdsCompared("Spec", spec);
    expectTypeIdsCompared(
        "Category", [=](Text t, bool isFirst) { return Category(t, name(isFirst), name(isFirst), format(isFirst)); });
    expectTypeIdsCompared("FloatRange", [=](Text t, bool isFirst) {
        return FloatRange(t, isFirst, isFirst, !isFirst, isFirst, format(isFirst));
    });
    expectTypeIdsCompared("IntRange", [=](Text t, bool isFirst) {
        return IntRange(t, isFirst, isFirst, !isFirst, isFirst, format(isFirst));
    });
    expectTypeIdsCompared("StringRange", [=](Text t, bool isFirst) {
        return StringRange(t, RegexStringRangeComponent(name(isFirst)), format(isFirst));
    });
    expectTypeIdsCompared("Parameter", [=](Text t, bool isFirst) {
        return Parameter(t, name(isFirst), spec(name(isFirst), isFirst), taxon(name(isFirst), isFirst),
                         enumeration(name(isFirst), isFirst), name(isFirst), name(isFirst), isFirst);
    });
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
