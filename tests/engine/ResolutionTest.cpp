#include "support/Objects.h"

#include <malloc.h>

#include <vector>

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

TEST(ResolutionTest, ReportsTheSmallestTypeIdOfTheFirstKindAtFault) {
    struct Fault {
        std::string typeId, base, before, after;
    };
    const std::string dependency = "Dependency ? in schema ";
    const std::string missing = " is missing or does not represent an object of the expected type.";
    const std::string parent = "Parent ? of subcategory ", notMajor = " is not a major category.";
    // Each goes before those below it, in whatever order they are registered.
    const std::vector<Fault> faults = {
        {"y", "quovanta.talmo.category:majorCategory-", dependency, missing},
        {"z", "quovanta.talmo.category:majorCategory-", dependency, missing},
        {"u", "quovanta.spec:spec.bool-1", dependency, missing},
        {"v", "quovanta.spec:spec.int64-2", dependency, missing},
        {"r", "quovanta.parameter:parameter.bool-2", dependency, missing},
        {"s", "quovanta.parameter:parameter.string-3", dependency, missing},
        // Parents are looked at when all objects stand.
        {"a", "quovanta.talmo.category:subCategory-", parent, notMajor},
        {"b", "quovanta.talmo.category:subCategory-", parent, notMajor},
    };
    std::string constants = nameConstant("N");
    for (const std::string id : {"domain", "discipline", "group", "parent"}) {
        constants += "," + reference(id, "?");
    }
    for (auto first = faults.begin(); first != faults.end(); ++first) {
        ParametersEngine engine, backwards;
        for (auto fault = first; fault != faults.end(); ++fault) {
            engine.registerSchema(shortForm(fault->typeId, fault->base, constants));
        }
        for (auto fault = faults.end(); fault-- != first;) {
            backwards.registerSchema(shortForm(fault->typeId, fault->base, constants));
        }
        const std::string message = first->before + first->typeId + first->after;
        EXPECT_THROWS(engine.resolveSchemas(), ValidationException, message);
        EXPECT_THROWS(backwards.resolveSchemas(), ValidationException, message);
    }
}

std::size_t liveHeap() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

TEST(ResolutionTest, LosesNoTextAndGathersNoneWhereBatchesFailAgainAndAgain) {
    const auto kept = [](std::size_t round) { return group("kept" + std::to_string(round), "Kept"); };
    const std::string lost = repeated("lost", 500);
    ParametersEngine engine;
    std::vector<ParametersEngine> copies;
    const std::size_t before = liveHeap();
    for (std::size_t round = 0; round < 1000; ++round) {
        engine.registerSchema(round % 100 == 0 ? kept(round) : group("again", "Again"));
        if (round % 100 == 0) {
            copies.push_back(engine);
        }
        engine.registerSchema(shortForm(lost, "quovanta.talmo.category:subCategory-1.0.0",
                                        nameConstant("Lost") + "," + reference("parent", "nobody")));
        EXPECT_THROW(engine.resolveSchemas(), ValidationException);
        if (round % 100 == 0) {
            engine.registerSchema(kept(round));
            engine.resolveSchemas();
        }
    }
    EXPECT_LT(liveHeap(), before + lost.size() * 200);
    for (std::size_t i = 0; i < copies.size(); ++i) {
        copies[i].resolveSchemas();
        EXPECT_EQ(copies[i].getAllGroups().size(), i + 1);
        EXPECT_FALSE(copies[i].isRegistered(lost));
        for (std::size_t known = 0; known <= i; ++known) {
            const std::string typeId = "kept" + std::to_string(100 * known);
            EXPECT_EQ(engine.getSchema(typeId), kept(100 * known));
            EXPECT_EQ(copies[i].getSchema(typeId), kept(100 * known));
        }
    }
}

} // namespace
} // namespace Parameters
