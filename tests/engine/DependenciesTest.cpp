#include "support/ParameterDocuments.h"

#include <set>

namespace Parameters {
namespace {

using TypeIds = std::set<std::string>;

TEST(DependenciesTest, AreThoseOfAFinishedItemAndOfWhatItHolds) {
    ParametersEngine engine = parameterWorkshop();
    engine.registerSchema(Documents::group("pending", "Pending"));
    const Taxon common = engine.getGroup("quovanta.parameter:group-2.0.0");
    const Parameter x("x", "X", engine.getSpec("distance"), engine.getGroup("group"), engine.getFloatRange("floats"),
                      "", "", false);
    const Parameter y("y", "Y", engine.getSpec("Bool"), common, engine.getCategory("s"), "", "", false);
    EXPECT_EQ(engine.getDependencies(y), (TypeIds{"Bool", "d", "m", "o", "s"}));
    engine.registerParameter(x);
    for (const auto& [typeId, typeIds] :
         std::map<std::string, TypeIds>{{"x", {"distance", "floats", "group", "length", "metre"}},
                                        {"metre", {"length"}},
                                        {"s", {"m", "o"}},
                                        {"choices", {}},
                                        {"quovanta.spec:discipline-2.0.0", {}}}) {
        EXPECT_EQ(engine.getDependencies(typeId), typeIds) << typeId;
    }
    for (const std::string typeId : {"?", "pending"}) {
        EXPECT_THROWS(engine.getDependencies(typeId), UnrecognizedIdentifierException,
                      "Could not find any object with typeid " + typeId + ".");
    }
}

} // namespace
} // namespace Parameters
