#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/MemoryShortage.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

const std::string missingLength = "Dependency length in schema metre is missing or does not represent an object of "
                                  "the expected type.";

TEST(ResolutionTest, FinishesDocumentsInWhateverOrderTheyCame) {
    const std::map<std::string, std::string> texts = {
        {"discipline", Documents::discipline("discipline", "A")},
        {"domain", Documents::domain("domain", "B")},
        {"group", Documents::fullForm("group", "quovanta.parameter:group-2.0.0", Documents::nameConstant("C"))},
        {"length", Documents::dimension("length", "Length")},
        {"metre", Documents::unit("metre", "Metre", "length")},
    };
    std::vector<std::string> order;
    for (const auto& [typeId, text] : texts) {
        order.push_back(typeId);
    }
    do {
        ParametersEngine engine;
        for (const std::string& typeId : order) {
            engine.registerSchema(texts.at(typeId));
        }
        engine.resolveSchemas();
        ASSERT_EQ(engine.getDiscipline("discipline").getName(), "A");
        ASSERT_EQ(engine.getDomain("domain").getName(), "B");
        ASSERT_EQ(engine.getGroup("group").getName(), "C");
        ASSERT_EQ(engine.getGroup("group").getSchemaFormat(), Format::LumarDataSchema);
        ASSERT_EQ(engine.getUnitsEngine().getUnit("metre").getDimension(), "length");
        for (const auto& [typeId, text] : texts) {
            ASSERT_EQ(engine.getSchema(typeId), text);
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(ResolutionTest, KeepsLargeBatchesApartFromEachOther) {
    ParametersEngine engine;
    const auto typeIdOf = [](int number) { return "acme.building:group." + std::to_string(number) + "-1.0.0"; };
    for (int batch = 0; batch < 3; ++batch) {
        for (int number = 1000 * (batch + 1) - 1; number >= 1000 * batch; --number) {
            engine.registerSchema(Documents::group(typeIdOf(number), std::to_string(number)));
        }
        EXPECT_EQ(engine.getAllGroups().size(), 1000u * static_cast<unsigned>(batch));
        engine.resolveSchemas();
    }
    const auto groups = engine.getAllGroups();
    ASSERT_EQ(groups.size(), 3000u);
    for (int number = 0; number < 3000; ++number) {
        const std::string typeId = typeIdOf(number);
        ASSERT_EQ(groups.at(typeId).getName(), std::to_string(number));
        ASSERT_EQ(engine.getGroup(typeId).getName(), std::to_string(number));
        ASSERT_EQ(engine.getSchema(typeId), Documents::group(typeId, std::to_string(number)));
    }
}

TEST(ResolutionTest, HasNothingToDoTheSecondTime) {
    ParametersEngine engine;
    engine.resolveSchemas();
    engine.registerSchema(Documents::group("a", "A"));
    engine.resolveSchemas();
    engine.resolveSchemas();
    EXPECT_EQ(engine.getAllGroups().size(), 1u);
    EXPECT_EQ(engine.getSchema("a"), Documents::group("a", "A"));
}

TEST(ResolutionTest, LeavesWhatIsPendingAloneIfTheUnitsAreAtFault) {
    ParametersEngine engine;
    engine.registerSchema(Documents::discipline("finished", "Finished"));
    engine.resolveSchemas();
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.registerSchema(Documents::unit("metre", "Metre", "length"));
    engine.registerSchema(Documents::dimension("time", "Time"));

    EXPECT_THROWS(engine.resolveSchemas(), ValidationException, missingLength);
    EXPECT_EQ(engine.getDiscipline("finished").getName(), "Finished");
    EXPECT_TRUE(engine.isRegistered("pending"));
    EXPECT_TRUE(engine.getAllGroups().empty());
    EXPECT_FALSE(engine.isRegistered("metre"));
    EXPECT_FALSE(engine.isRegistered("time"));

    engine.registerSchema(Documents::unit("metre", "Metre", "length"));
    engine.registerSchema(Documents::dimension("length", "Length"));
    engine.resolveSchemas();
    EXPECT_EQ(engine.getGroup("pending").getName(), "Pending");
    EXPECT_EQ(engine.getSchema("pending"), Documents::group("pending", "Pending"));
    EXPECT_EQ(engine.getUnitsEngine().getUnit("metre").getName(), "Metre");
}

TEST(ResolutionTest, KeepsFinishedItemsIfMemoryDoesNotSuffice) {
    const std::map<std::string, std::string> texts = {{"domain", Documents::domain("domain", "Domain")},
                                                      {"group", Documents::group("group", "Group")},
                                                      {"length", Documents::dimension("length", "Length")},
                                                      {"metre", Documents::unit("metre", "Metre", "length")}};
    const auto makeEngine = [&] {
        ParametersEngine engine;
        engine.registerSchemas({{"finished", Documents::discipline("finished", "Finished")}});
        for (const auto& [typeId, text] : texts) {
            engine.registerSchema(text);
        }
        return engine;
    };
    failEachAllocation(
        makeEngine, [](ParametersEngine& engine) { engine.resolveSchemas(); },
        [&](ParametersEngine& engine) {
            EXPECT_EQ(engine.getSchema("finished"), Documents::discipline("finished", "Finished"));
            EXPECT_TRUE(engine.getAllDomains().empty());
            EXPECT_TRUE(engine.getAllGroups().empty());
            engine.registerSchemas(texts);
            for (const auto& [typeId, text] : texts) {
                EXPECT_EQ(engine.getSchema(typeId), text);
            }
        });
}

TEST(ResolutionTest, DoesNotTakeAnObjectOfAnotherKindForADependency) {
    for (const std::string& other :
         {Documents::group("length", "Length"),
          Documents::shortForm("length", "quovanta.unit:unit-1.0.0", Documents::nameConstant("Length"))}) {
        ParametersEngine engine;
        engine.registerSchema(other);
        engine.registerSchema(Documents::unit("metre", "Metre", "length"));
        EXPECT_THROWS(engine.resolveSchemas(), ValidationException, missingLength);
    }
}

} // namespace
} // namespace Parameters
