#include <Parameters/Taxon.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

TEST(TaxonTest, KeepsWhatItIsGivenUnchecked) {
    const Taxon taxon("no typeid at all", "", Format::LumarDataSchema);
    EXPECT_EQ(taxon.getTypeId(), "no typeid at all");
    EXPECT_EQ(taxon.getName(), "");
    EXPECT_EQ(taxon.getSchemaFormat(), Format::LumarDataSchema);

    const std::string withNul("a\0b", 3);
    EXPECT_EQ(Taxon(withNul, withNul, Format::PropertySets).getTypeId(), withNul);
    EXPECT_EQ(Taxon("", withNul, Format::PropertySets).getName(), withNul);
}

TEST(TaxonTest, IsEqualByTypeIdAlone) {
    const Taxon taxon("a", "x", Format::PropertySets);
    const Taxon renamed("a", "y", Format::LumarDataSchema);
    EXPECT_TRUE(taxon == renamed);
    EXPECT_FALSE(taxon != renamed);
    EXPECT_FALSE(taxon < renamed);
    EXPECT_FALSE(taxon > renamed);

    const Taxon other("b", "x", Format::PropertySets);
    EXPECT_FALSE(taxon == other);
    EXPECT_TRUE(taxon != other);
}

TEST(TaxonTest, IsOrderedByTheUnsignedBytesOfItsTypeId) {
    const std::vector<std::string> ascending = {
        "", "A", std::string("A\0", 2), "A-1.0.0", "A-10.0.0", "A-2.0.0", "a", "\x7F", "\x80", "\xC3\xA9", "\xFF",
    };
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            const Taxon left(ascending[i], "", Format::PropertySets);
            const Taxon right(ascending[j], "", Format::PropertySets);
            EXPECT_EQ(left < right, i < j) << '"' << ascending[i] << "\" < \"" << ascending[j] << '"';
            EXPECT_EQ(left > right, i > j) << '"' << ascending[i] << "\" > \"" << ascending[j] << '"';
            EXPECT_EQ(left == right, i == j) << '"' << ascending[i] << "\" == \"" << ascending[j] << '"';
        }
    }
}

TEST(TaxonTest, IsAValue) {
    Taxon taxon("a", "x", Format::PropertySets);
    const Taxon copy = taxon;
    taxon = Taxon("b", "y", Format::LumarDataSchema);
    EXPECT_EQ(copy.getTypeId(), "a");
    EXPECT_EQ(copy.getName(), "x");
    EXPECT_EQ(copy.getSchemaFormat(), Format::PropertySets);

    const Taxon taken = std::move(taxon);
    EXPECT_EQ(taken.getName(), "y");
    EXPECT_EQ(taxon.getName(), "y") << "a moved-from taxon is unchanged";

    std::vector<Taxon> taxa = {taken, copy};
    std::sort(taxa.begin(), taxa.end());
    EXPECT_EQ(taxa.front().getName(), "x");
}

} // namespace
} // namespace Parameters
