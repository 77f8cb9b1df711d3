#include "support/ParameterDocuments.h"

#include <set>

namespace Parameters {
namespace {

TEST(DependenciesTest, AreThoseOfAFinishedItemAndOfWhatItHolds) {
    ParametersEngine engine = parameterFixture();
    const Taxon group = engine.getGroup("group");
    const Taxon common = engine.getGroup("quovanta.parameter:group-2.0.0");
    const Parameter x("x", "X", engine.getSpec("distance"), group, engine.getFloatRange("floats"), "", "", false);
    const Parameter y("y", "Y", engine.getSpec("Bool"), common, engine.getCategory("s"), "", "", false);
    EXPECT_EQ(engine.getDependencies(y), (std::set<std::string>{"Bool", "d", "m", "o", "s"}));
    engine.registerParameter(x);
    for (const auto& [typeId, typeIds] :
         std::map<std::string, std::set<std::string>>{{"x", {"distance", "floats", "group", "length", "metre"}},
                                                      {"metre", {"length"}},
                                                      {"s", {"m", "o"}},
                                                      {"choices", {}},
                                                      {"quovanta.spec:discipline-2.0.0", {}}}) {
        EXPECT_EQ(engine.getDependencies(typeId), typeIds) << typeId;
    }
    engine.registerSchema(Documents::older(".bool-2.0.0").replace(11, 1, "y"));
    EXPECT_THROWS(engine.getDependencies("y"), UnrecognizedIdentifierException,
                  "Could not find any object with typeid y.");
}

} // namespace
} // namespace Parameters
