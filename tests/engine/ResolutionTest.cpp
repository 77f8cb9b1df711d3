#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

TEST(ResolutionTest, LeavesWhatIsPendingAloneIfTheUnitsAreAtFault) {
    const std::string noDimension = shortForm("length", "quovanta.unit:unit-1.0.0", nameConstant("L"));
    for (const std::string& other : {dimension("time", "Time"), noDimension}) {
        ParametersEngine engine;
        engine.registerSchemas({{"finished", discipline("finished", "Finished")}});
        engine.registerSchema(group("pending", "Pending"));
        EXPECT_EQ(engine.registerSchema(unit("metre", "Metre", "length")).second, std::set<std::string>{"length"});
        engine.registerSchema(other);
        EXPECT_THROWS(
            engine.resolveSchemas(), ValidationException,
            "Dependency length in schema metre is missing or does not represent an object of the expected type.");
        EXPECT_EQ(engine.getDiscipline("finished").getName(), "Finished");
        EXPECT_TRUE(engine.isRegistered("pending") && engine.getAllGroups().empty());
        EXPECT_FALSE(engine.isRegistered("metre") || engine.isRegistered("time") || engine.isRegistered("length"));

        engine.registerSchemas(
            {{"length", dimension("length", "Length")}, {"metre", unit("metre", "Metre", "length")}});
        EXPECT_EQ(engine.getSchema("pending"), group("pending", "Pending"));
        EXPECT_EQ(engine.getUnitsEngine().getUnit("metre").getName(), "Metre");
    }
}

} // namespace
} // namespace Parameters
