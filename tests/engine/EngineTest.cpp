#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/MemoryShortage.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

static_assert(std::is_nothrow_move_constructible_v<ParametersEngine>);
static_assert(std::is_nothrow_move_assignable_v<ParametersEngine>);

const std::string metre = "acme.building:unit.metre-1.0.0";
const std::string length = "acme.building:dimension.length-1.0.0";

/// An engine with something in each state: a finished and a pending discipline, a finished and a pending item of units.
ParametersEngine engineInAllStates() {
    ParametersEngine engine;
    engine.registerSchema(Documents::discipline("finished", "Finished"));
    engine.registerSchema(Documents::dimension(length, "Length"));
    engine.resolveSchemas();
    engine.registerSchema(Documents::discipline("pending", "Pending"));
    engine.registerSchema(Documents::unit(metre, "Metre", length));
    return engine;
}

void expectAllStates(const ParametersEngine& engine) {
    EXPECT_EQ(engine.getAllDisciplines().size(), 1u);
    EXPECT_EQ(engine.getDiscipline("finished").getName(), "Finished");
    EXPECT_TRUE(engine.isRegistered("pending"));
    EXPECT_EQ(engine.getUnitsEngine().getSchema(length), Documents::dimension(length, "Length"));
    EXPECT_TRUE(engine.isRegistered(metre));
    EXPECT_TRUE(engine.getUnitsEngine().getAllUnits().empty());
}

void expectAllFinished(const ParametersEngine& engine) {
    EXPECT_EQ(engine.getAllDisciplines().size(), 2u);
    EXPECT_EQ(engine.getDiscipline("pending").getName(), "Pending");
    EXPECT_EQ(engine.getSchema("pending"), Documents::discipline("pending", "Pending"));
    EXPECT_EQ(engine.getUnitsEngine().getUnit(metre).getName(), "Metre");
}

TEST(EngineTest, StartsEmpty) {
    const ParametersEngine engine;
    EXPECT_TRUE(engine.getAllDisciplines().empty());
    EXPECT_TRUE(engine.getAllDomains().empty());
    EXPECT_TRUE(engine.getAllGroups().empty());
    EXPECT_TRUE(engine.getUnitsEngine().getAllUnits().empty());
}

TEST(EngineTest, KnowsTheBuiltInTypeIdsByThemselves) {
    const ParametersEngine engine;
    for (const char* typeId :
         {"quovanta.range:range.int64.bounded.static-1.0.0", "quovanta.range:range.int64.bounded.static-2.0.0",
          "quovanta.range:range.float64.bounded.static-1.0.0", "quovanta.range:range.float64.bounded.static-2.0.0",
          "quovanta.range:range.string-1.0.0", "quovanta.range:range.string-2.0.0",
          "quovanta.range:range.string.set.static-1.0.0", "quovanta.range:range.string.set.static-2.0.0",
          "quovanta.range:range.string.regex-1.0.0", "quovanta.range:range.string.regex-2.0.0",
          "quovanta.talmo.spec:familyType-1.0.0", "quovanta.spec:spec.bool-1.0.0", "quovanta.spec:spec.int64-2.0.0",
          "quovanta.spec:spec.reference-1.0.0", "quovanta.spec:spec.string-2.0.0", "quovanta.spec:discipline-1.0.0",
          "quovanta.spec:discipline-2.0.0", "quovanta.parameter:group-1.0.0", "quovanta.parameter:group-2.0.0"}) {
        EXPECT_TRUE(engine.isRegistered(typeId)) << typeId;
    }
    for (const char* typeId :
         {"", "quovanta.spec:discipline-", "quovanta.spec:discipline-3.0.0", "quovanta.spec:discipline-1.0.00",
          "x quovanta.spec:discipline-1.0.0", "quovanta.talmo.category:domain-1.0.0",
          "quovanta.talmo.category:majorCategory-2.0.0", "quovanta.talmo.spec:familyType-2.0.0",
          "quovanta.data:reference-1.0.0", "quovanta.spec:spec-1.0.0", "quovanta.spec:spec.bool-2.0.0",
          "quovanta.spec:spec.int64-1.0.0", "quovanta.spec:spec.float64-1.0.0", "quovanta.spec:spec.reference-2.0.0",
          "quovanta.spec:spec.string-1.0.0", "quovanta.range:range.string-3.0.0"}) {
        EXPECT_FALSE(engine.isRegistered(typeId)) << typeId;
    }
}

TEST(EngineTest, MakesUpDefaultDisciplinesAndGroups) {
    const ParametersEngine engine;
    const std::map<std::string, Format> disciplines = {
        {"quovanta.spec:discipline-1.0.0", Format::PropertySets},
        {"quovanta.spec:discipline-2.0.0", Format::LumarDataSchema},
        {"quovanta.spec:discipline-7.7.7", Format::PropertySets},
        {"quovanta.spec:discipline-", Format::PropertySets},
        {"prefix quovanta.spec:discipline-x", Format::PropertySets},
        {"prefix quovanta.spec:discipline-2.0.0", Format::PropertySets},
    };
    for (const auto& [typeId, format] : disciplines) {
        const Taxon discipline = engine.getDiscipline(typeId);
        EXPECT_EQ(discipline.getTypeId(), typeId);
        EXPECT_EQ(discipline.getName(), "Common") << typeId;
        EXPECT_EQ(discipline.getSchemaFormat(), format) << typeId;
    }
    const std::map<std::string, Format> groups = {
        {"quovanta.parameter:group-1.0.0", Format::PropertySets},
        {"quovanta.parameter:group-2.0.0", Format::LumarDataSchema},
        {"a quovanta.parameter:group-2.0.0 b", Format::PropertySets},
    };
    for (const auto& [typeId, format] : groups) {
        const Taxon group = engine.getGroup(typeId);
        EXPECT_EQ(group.getTypeId(), typeId);
        EXPECT_EQ(group.getName(), "Other") << typeId;
        EXPECT_EQ(group.getSchemaFormat(), format) << typeId;
    }
    EXPECT_TRUE(engine.getAllDisciplines().empty());
    EXPECT_TRUE(engine.getAllGroups().empty());
    EXPECT_THROWS(engine.getDomain("quovanta.talmo.category:domain-1.0.0"), UnrecognizedIdentifierException,
                  "Could not find domain with typeid quovanta.talmo.category:domain-1.0.0.");
    EXPECT_THROWS(engine.getDiscipline("quovanta.parameter:group-1.0.0"), UnrecognizedIdentifierException,
                  "Could not find discipline with typeid quovanta.parameter:group-1.0.0.");
}

TEST(EngineTest, PrefersTheDefaultToARegisteredTaxonInGettersOfOne) {
    const std::string typeId = "acme quovanta.spec:discipline-1 quovanta.parameter:group-1";
    ParametersEngine engine;
    engine.registerDiscipline(Taxon(typeId, "Registered", Format::LumarDataSchema));
    EXPECT_EQ(engine.getDiscipline(typeId).getName(), "Common");
    EXPECT_EQ(engine.getGroup(typeId).getName(), "Other");
    EXPECT_EQ(engine.getAllDisciplines().at(typeId).getName(), "Registered");
    EXPECT_THROWS(engine.getDomain(typeId), UnrecognizedIdentifierException,
                  "Could not find domain with typeid acme quovanta.spec:discipline-1 quovanta.parameter:group-1.");
}

TEST(EngineTest, FindsFinishedObjectsByKind) {
    ParametersEngine engine;
    engine.registerDiscipline(Taxon("a", "A", Format::PropertySets));
    engine.registerDomain(Taxon("b", "B", Format::PropertySets));
    engine.registerGroup(Taxon("c", "C", Format::PropertySets));
    EXPECT_EQ(engine.getDiscipline("a").getName(), "A");
    EXPECT_EQ(engine.getDomain("b").getName(), "B");
    EXPECT_EQ(engine.getGroup("c").getName(), "C");
    EXPECT_EQ(engine.getAllDomains().at("b").getName(), "B");
    EXPECT_EQ(engine.getAllGroups().size(), 1u);

    EXPECT_THROWS(engine.getDiscipline("b"), UnrecognizedIdentifierException,
                  "Could not find discipline with typeid b.");
    EXPECT_THROWS(engine.getDomain("c"), UnrecognizedIdentifierException, "Could not find domain with typeid c.");
    EXPECT_THROWS(engine.getGroup("a"), UnrecognizedIdentifierException, "Could not find group with typeid a.");
    EXPECT_THROWS(engine.getGroup(""), UnrecognizedIdentifierException, "Could not find group with typeid .");
    EXPECT_THROWS(engine.getDiscipline("A"), UnrecognizedIdentifierException,
                  "Could not find discipline with typeid A.");
}

TEST(EngineTest, ListsInTheOrderOfBytes) {
    const std::vector<std::string> ascending = {"A", "A-1", "A-1.0.0", "A-10.0.0", "A-2.0.0", "a", "\xC3\xA9"};
    ParametersEngine engine;
    for (const std::size_t i : {4u, 6u, 0u, 3u, 5u, 1u, 2u}) {
        engine.registerGroup(Taxon(ascending[i], "Name of " + ascending[i], Format::PropertySets));
    }
    std::vector<std::string> listed;
    for (const auto& [typeId, group] : engine.getAllGroups()) {
        listed.push_back(typeId);
        EXPECT_EQ(group.getTypeId(), typeId);
        EXPECT_EQ(group.getName(), "Name of " + typeId);
    }
    EXPECT_EQ(listed, ascending);
}

TEST(EngineTest, HandsOutCopiesThatOutliveIt) {
    std::optional<ParametersEngine> engine(engineInAllStates());
    const Taxon one = engine->getDiscipline("finished");
    const std::map<std::string, Taxon> all = engine->getAllDisciplines();
    engine->resolveSchemas();
    EXPECT_EQ(all.size(), 1u);
    engine.reset();
    EXPECT_EQ(one.getName(), "Finished");
    EXPECT_EQ(all.at("finished").getTypeId(), "finished");
}

TEST(EngineTest, SeesPendingItemsAsRegisteredOnly) {
    const ParametersEngine engine = engineInAllStates();
    EXPECT_TRUE(engine.isRegistered("pending"));
    EXPECT_EQ(engine.getAllDisciplines().count("pending"), 0u);
    EXPECT_THROWS(engine.getDiscipline("pending"), UnrecognizedIdentifierException,
                  "Could not find discipline with typeid pending.");
    EXPECT_THROWS(engine.getSchema("pending"), UnrecognizedIdentifierException,
                  "Could not find any object with typeid pending.");
}

TEST(EngineTest, SeesWhatIsDoneThroughTheUnitsEngine) {
    ParametersEngine engine;
    engine.getUnitsEngine().registerSchema(Documents::dimension(length, "Length"));
    EXPECT_TRUE(engine.isRegistered(length));
    EXPECT_THROWS(engine.registerGroup(Taxon(length, "Length", Format::PropertySets)), ValidationException,
                  "Schema with typeid acme.building:dimension.length-1.0.0 is already registered.");
    engine.getUnitsEngine().resolveSchemas();
    EXPECT_EQ(engine.getSchema(length), Documents::dimension(length, "Length"));
}

TEST(EngineTest, CopiesEverythingAndSharesNothing) {
    ParametersEngine original = engineInAllStates();
    ParametersEngine copy = original;
    expectAllStates(copy);
    copy.resolveSchemas();
    expectAllFinished(copy);
    expectAllStates(original);

    original.registerGroup(Taxon("later", "Later", Format::PropertySets));
    EXPECT_FALSE(copy.isRegistered("later"));
    original.resolveSchemas();
    expectAllFinished(original);
}

TEST(EngineTest, ReplacesEverythingWhenAssigned) {
    const ParametersEngine source = engineInAllStates();
    ParametersEngine target;
    target.registerGroup(Taxon("old", "Old", Format::PropertySets));
    target.registerSchema(Documents::domain("old pending", "Old"));
    target.registerSchema(Documents::dimension("old dimension", "Old"));
    const Units::UnitsEngine& units = target.getUnitsEngine();

    target = source;
    EXPECT_EQ(&units, &target.getUnitsEngine()) << "a copy assignment keeps references to the units engine";
    for (const char* typeId : {"old", "old pending", "old dimension"}) {
        EXPECT_FALSE(target.isRegistered(typeId)) << typeId;
    }
    expectAllStates(target);
    target.resolveSchemas();
    expectAllFinished(target);
    expectAllStates(source);
}

TEST(EngineTest, IsUnchangedByAnAssignmentForWhichMemoryDoesNotSuffice) {
    const ParametersEngine source = engineInAllStates();
    const auto makeTarget = [] {
        ParametersEngine target;
        target.registerGroup(Taxon("old", "Old", Format::PropertySets));
        target.registerSchema(Documents::dimension("old dimension", "Old"));
        return target;
    };
    failEachAllocation(
        makeTarget, [&](ParametersEngine& target) { target = source; },
        [](ParametersEngine& target) {
            EXPECT_FALSE(target.isRegistered("finished"));
            EXPECT_FALSE(target.isRegistered("pending"));
            EXPECT_FALSE(target.isRegistered(length));
            EXPECT_EQ(target.getGroup("old").getName(), "Old");
            EXPECT_TRUE(target.isRegistered("old dimension"));
        });
}

TEST(EngineTest, SurvivesAssignmentToItself) {
    ParametersEngine engine = engineInAllStates();
    ParametersEngine& same = engine;
    engine = same;
    expectAllStates(engine);
    engine = std::move(same);
    expectAllStates(engine);
    engine.resolveSchemas();
    expectAllFinished(engine);
}

TEST(EngineTest, MovesEverything) {
    ParametersEngine source = engineInAllStates();
    const Units::UnitsEngine& units = source.getUnitsEngine();
    ParametersEngine taken = std::move(source);
    EXPECT_EQ(&units, &taken.getUnitsEngine());
    expectAllStates(taken);

    ParametersEngine target;
    target.registerGroup(Taxon("old", "Old", Format::PropertySets));
    target = std::move(taken);
    EXPECT_FALSE(target.isRegistered("old"));
    target.resolveSchemas();
    expectAllFinished(target);
}

TEST(EngineTest, IsUsableAgainAfterAnAssignmentToAMovedFromOne) {
    ParametersEngine source;
    const ParametersEngine first = std::move(source);
    source = engineInAllStates();
    expectAllStates(source);

    const ParametersEngine second = std::move(source);
    source = second;
    source.resolveSchemas();
    expectAllFinished(source);
    expectAllStates(second);
}

} // namespace
} // namespace Parameters
