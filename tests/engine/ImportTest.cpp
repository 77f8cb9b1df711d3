#include "support/ParameterDocuments.h"

#include <set>

namespace Parameters {
namespace {

using namespace Documents;
using TypeIds = std::set<std::string>;

TEST(ImportTest, BringsAlongWhatIsNeededAndNotYetThere) {
    const ParametersEngine context = parameterWorkshop();
    ParametersEngine engine;
    engine.registerSchema(group("group", "Own"));
    EXPECT_EQ(engine.registerSchemaWithContext(ranged("group", "distance"), context), TypeIds());
    EXPECT_TRUE(objectsIn(engine).empty());
    engine.resolveSchemas();
    EXPECT_EQ(objectsIn(engine).size(), 4u) << "distance, group, ints, x";
    for (const std::string typeId : {"distance", "ints", "metre"}) {
        EXPECT_EQ(engine.getSchema(typeId), context.getSchema(typeId));
    }
    EXPECT_EQ(engine.getParameter("x").getGroup().getName(), "Own");
}

TEST(ImportTest, LeavesWhatItHasDoneUntilItFails) {
    ParametersEngine context = parameterWorkshop();
    context.registerSchema(group("pending", "Pending"));
    ParametersEngine engine;
    EXPECT_THROWS(engine.registerSchemaWithContext(ranged("pending", "distance"), context),
                  UnrecognizedIdentifierException, "Could not find any object with typeid pending.");
    EXPECT_TRUE(engine.isRegistered("x") && engine.isRegistered("length") && engine.isRegistered("metre"));
    EXPECT_FALSE(engine.isRegistered("distance") || engine.isRegistered("ints"));

    engine = ParametersEngine();
    engine.registerSchema(unit("metre", "Metre", "length"));
    EXPECT_THROWS(engine.registerSchemaWithContext(ranged("group", "distance"), context), ValidationException,
                  "Could not find unit with typeid metre.");
    EXPECT_TRUE(engine.isRegistered("x") && engine.isRegistered("ints"));
    EXPECT_FALSE(engine.isRegistered("distance") || engine.isRegistered("group"));
    EXPECT_THROWS(engine.resolveSchemas(), ValidationException,
                  "Dependency group in schema x is missing or does not represent an object of the expected type.");
    EXPECT_FALSE(engine.isRegistered("x") || engine.isRegistered("ints"));
    EXPECT_EQ(engine.registerSchemaWithContext(ranged("group", "?"), engine), (TypeIds{"?", "group", "ints"}));
}

TEST(ImportTest, GivesWayToWhatIsRegisteredLaterWhateverItsKind) {
    ParametersEngine engine;
    engine.registerSchemaWithContext(ranged("group", "Bool"), parameterWorkshop());
    engine.registerSchema(domain("ints", "Later"));
    engine.registerGroup(Taxon("group", "Later", Format::PropertySets));
    engine.resolveSchemas();
    EXPECT_EQ(engine.getSchema("ints"), domain("ints", "Later"));
    EXPECT_TRUE(engine.getAllIntRanges().empty());
    EXPECT_EQ(engine.getParameter("x").getGroup().getName(), "Later");
}

} // namespace
} // namespace Parameters
