#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Parameters {
namespace {

const std::string missingLength = "Dependency length in schema metre is missing or does not represent an object of "
                                  "the expected type.";

TEST(ResolutionTest, KeepsLargeBatchesApartFromEachOther) {
    ParametersEngine engine;
    std::map<std::string, std::string> texts;
    for (int number = 2999; number >= 0; --number) {
        const std::string typeId = "acme.building:group." + std::to_string(number) + "-1.0.0";
        engine.registerSchema(texts[typeId] = Documents::group(typeId, std::to_string(number)));
        if (number % 1000 == 0) {
            EXPECT_EQ(engine.getAllGroups().size(), 2000u - static_cast<unsigned>(number));
            engine.resolveSchemas();
        }
    }
    for (const auto& [typeId, text] : texts) {
        ASSERT_EQ(engine.getSchema(typeId), text);
        ASSERT_NE(text.find("\"" + engine.getGroup(typeId).getName() + "\""), std::string::npos);
    }
}

TEST(ResolutionTest, LeavesWhatIsPendingAloneIfTheUnitsAreAtFault) {
    const std::string noDimension =
        Documents::shortForm("length", "quovanta.unit:unit-1.0.0", Documents::nameConstant("L"));
    for (const std::string& other : {Documents::dimension("time", "Time"), noDimension}) {
        ParametersEngine engine;
        engine.registerSchemas({{"finished", Documents::discipline("finished", "Finished")}});
        engine.registerSchema(Documents::group("pending", "Pending"));
        engine.registerSchema(Documents::unit("metre", "Metre", "length"));
        engine.registerSchema(other);
        EXPECT_THROWS(engine.resolveSchemas(), ValidationException, missingLength);
        EXPECT_EQ(engine.getDiscipline("finished").getName(), "Finished");
        EXPECT_TRUE(engine.isRegistered("pending") && engine.getAllGroups().empty());
        EXPECT_FALSE(engine.isRegistered("metre") || engine.isRegistered("time") || engine.isRegistered("length"));

        engine.registerSchemas({{"length", Documents::dimension("length", "Length")},
                                {"metre", Documents::unit("metre", "Metre", "length")}});
        EXPECT_EQ(engine.getSchema("pending"), Documents::group("pending", "Pending"));
        EXPECT_EQ(engine.getUnitsEngine().getUnit("metre").getName(), "Metre");
    }
    ParametersEngine engine;
    engine.registerSchema(Documents::group("length", "Length"));
    engine.registerSchema(Documents::unit("metre", "Metre", "length"));
    EXPECT_THROWS(engine.resolveSchemas(), ValidationException, missingLength) << "a group is no dimension";
}

} // namespace
} // namespace Parameters
