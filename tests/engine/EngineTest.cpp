#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

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
    EXPECT_EQ(engine.getSchema(length), Documents::dimension(length, "Length"));
    EXPECT_TRUE(engine.isRegistered(metre));
    EXPECT_TRUE(engine.getUnitsEngine().getAllUnits().empty());
}

void expectAllFinished(const ParametersEngine& engine) {
    EXPECT_EQ(engine.getAllDisciplines().size(), 2u);
    EXPECT_EQ(engine.getSchema("pending"), Documents::discipline("pending", "Pending"));
    EXPECT_EQ(engine.getUnitsEngine().getUnit(metre).getName(), "Metre");
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
    constexpr auto older = Format::PropertySets;
    constexpr auto newer = Format::LumarDataSchema;
    const ParametersEngine engine;
    for (const auto& [typeId, format] : {std::pair("quovanta.spec:discipline-1.0.0", older),
                                         {"quovanta.spec:discipline-2.0.0", newer},
                                         {"quovanta.spec:discipline-", older},
                                         {"prefix quovanta.spec:discipline-2.0.0", older}}) {
        EXPECT_EQ(engine.getDiscipline(typeId).getTypeId(), typeId);
        EXPECT_EQ(engine.getDiscipline(typeId).getName(), "Common");
        EXPECT_EQ(engine.getDiscipline(typeId).getSchemaFormat(), format) << typeId;
    }
    for (const auto& [typeId, format] : {std::pair("quovanta.parameter:group-1.0.0", older),
                                         {"quovanta.parameter:group-2.0.0", newer},
                                         {"a quovanta.parameter:group-2.0.0 b", older}}) {
        EXPECT_EQ(engine.getGroup(typeId).getTypeId(), typeId);
        EXPECT_EQ(engine.getGroup(typeId).getName(), "Other");
        EXPECT_EQ(engine.getGroup(typeId).getSchemaFormat(), format) << typeId;
    }
    EXPECT_TRUE(engine.getAllDisciplines().empty() && engine.getAllGroups().empty());
    EXPECT_THROWS(engine.getDomain("quovanta.talmo.category:domain-1.0.0"), UnrecognizedIdentifierException,
                  "Could not find domain with typeid quovanta.talmo.category:domain-1.0.0.");
}

TEST(EngineTest, FindsFinishedObjectsByKindAfterTheDefaults) {
    const std::string likeDefaults = "acme quovanta.spec:discipline-1 quovanta.parameter:group-1";
    ParametersEngine engine = engineInAllStates();
    engine.registerDiscipline(Taxon(likeDefaults, "Registered", Format::LumarDataSchema));
    EXPECT_EQ(engine.getDiscipline(likeDefaults).getName(), "Common");
    EXPECT_EQ(engine.getGroup(likeDefaults).getName(), "Other");
    EXPECT_EQ(engine.getAllDisciplines().at(likeDefaults).getName(), "Registered");

    for (const std::string typeId : {"", "pending", "Finished"}) {
        const std::string message = "Could not find discipline with typeid " + typeId + ".";
        EXPECT_THROWS(engine.getDiscipline(typeId), UnrecognizedIdentifierException, message);
    }
    EXPECT_THROWS(engine.getDomain("finished"), UnrecognizedIdentifierException,
                  "Could not find domain with typeid finished.");
    EXPECT_THROWS(engine.getGroup("finished"), UnrecognizedIdentifierException,
                  "Could not find group with typeid finished.");
}

TEST(EngineTest, CopiesAndMovesEverythingAndSharesNothing) {
    const ParametersEngine source = engineInAllStates();
    ParametersEngine target;
    target.registerGroup(Taxon("old", "Old", Format::PropertySets));
    target.registerSchema(Documents::dimension("old dimension", "Old"));
    const Units::UnitsEngine& units = target.getUnitsEngine();
    target = source;
    EXPECT_EQ(&units, &target.getUnitsEngine()) << "a copy assignment keeps references to the units engine";
    EXPECT_FALSE(target.isRegistered("old") || target.isRegistered("old dimension"));
    ParametersEngine& same = target;
    target = same;
    target = std::move(same);
    expectAllStates(target);

    ParametersEngine other = target;
    other.resolveSchemas();
    expectAllFinished(other);
    expectAllStates(target);

    ParametersEngine taken = std::move(target);
    EXPECT_EQ(&units, &taken.getUnitsEngine());
    expectAllStates(taken);
    target = taken; // usable again
    other = std::move(taken);
    expectAllStates(other);
    other.resolveSchemas();
    expectAllFinished(other);
    taken = std::move(target);
    expectAllStates(taken);
    expectAllStates(source);
}

} // namespace
} // namespace Parameters
