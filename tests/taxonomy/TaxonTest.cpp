#include <Parameters/Taxon.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

TEST(TaxonTest, ComparesTheUnsignedBytesOfItsTypeIdAlone) {
    const std::string ascending[] = {"", "A", std::string("A\0", 2), "A-1.0.0", "a", "\x7F", "\x80", "\xFF"};
    for (const std::string& one : ascending) {
        for (const std::string& other : ascending) {
            const Taxon left(one, "x", Format::PropertySets);
            const Taxon right(other, "y", Format::LumarDataSchema);
            EXPECT_EQ(left < right, &one < &other) << one << " < " << other;
            EXPECT_EQ(left > right, &one > &other) << one << " > " << other;
            EXPECT_EQ(left == right, &one == &other) << one << " == " << other;
        }
    }
}

TEST(TaxonTest, IsUnchangedWhenItIsMovedFrom) {
    Taxon taxon("no typeid at all", "x", Format::PropertySets);
    const Taxon taken = std::move(taxon);
    EXPECT_EQ(taken.getTypeId(), "no typeid at all");
    EXPECT_EQ(taxon.getName(), "x");
}

} // namespace
} // namespace Parameters
