#include "support/ParameterDocuments.h"

#include <type_traits>

namespace Parameters {
namespace {

using namespace Documents;

static_assert(std::is_nothrow_move_constructible_v<ParametersEngine>);
static_assert(std::is_nothrow_move_assignable_v<ParametersEngine>);

const std::string metre = "acme.building:unit.metre-1.0.0";
const std::string length = "acme.building:dimension.length-1.0.0";

/// An engine with something in each state: a finished and a pending discipline, a finished and a pending item of units.
ParametersEngine engineInAllStates() {
    ParametersEngine engine;
    engine.registerSchema(discipline("finished", "Finished"));
    engine.registerSchema(dimension(length, "Length"));
    engine.resolveSchemas();
    engine.registerSchema(discipline("pending", "Pending"));
    engine.registerSchema(unit(metre, "Metre", length));
    return engine;
}

/// What is finished, and what is known at all.
std::string stateOf(const ParametersEngine& engine) {
    std::string state;
    for (const auto& [typeId, text] : textsIn(engine)) {
        state += text + typeId + engine.getDiscipline(typeId).getName();
    }
    for (const auto& [typeId, item] : engine.getUnitsEngine().getAllUnits()) {
        state += item.getName() + engine.getSchema(typeId);
    }
    for (const std::string typeId : {"pending", length.c_str(), metre.c_str()}) {
        state += engine.isRegistered(typeId) ? "+" : "-";
    }
    return state;
}

TEST(EngineTest, KnowsTheBuiltInTypeIdsByThemselves) {
    const ParametersEngine engine;
    const std::map<std::string, Texts> namesByMajorVersions = {
        {"12",
         {"range:range.int64.bounded.static", "range:range.float64.bounded.static", "range:range.string",
          "range:range.string.set.static", "range:range.string.regex", "spec:discipline", "parameter:group"}},
        {"1", {"talmo.spec:familyType", "spec:spec.bool", "spec:spec.reference"}},
        {"2", {"spec:spec.int64", "spec:spec.string"}},
        {"",
         {"spec:spec.float64", "spec:spec", "data:reference", "talmo.category:domain",
          "talmo.category:majorCategory"}}};
    for (const auto& [majorVersions, names] : namesByMajorVersions) {
        for (const std::string& name : names) {
            for (const char version : {'0', '1', '2', '3'}) {
                const bool isBuiltIn = majorVersions.find(version) != std::string::npos;
                const std::string typeId = "quovanta." + name + "-" + version + ".0.0";
                EXPECT_EQ(engine.isRegistered(typeId), isBuiltIn) << typeId;
            }
        }
    }
    for (const char* typeId :
         {"", "quovanta.spec:discipline-", "quovanta.spec:discipline-1.0.00", "x quovanta.spec:discipline-1.0.0"}) {
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
    EXPECT_THROWS(engine.getGroup("finished"), UnrecognizedIdentifierException,
                  "Could not find group with typeid finished.");
}

TEST(EngineTest, CopiesAndMovesEverythingAndSharesNothing) {
    const ParametersEngine source = engineInAllStates();
    ParametersEngine target = engineInAllStates();
    const std::string pending = stateOf(target);
    target.resolveSchemas();
    const std::string finished = stateOf(target);
    target.registerGroup(Taxon("old", "Old", Format::PropertySets));
    target.registerSchema(dimension("old dimension", "Old"));
    const Units::UnitsEngine& units = target.getUnitsEngine();
    target = source;
    EXPECT_EQ(&units, &target.getUnitsEngine()) << "a copy assignment keeps references to the units engine";
    EXPECT_FALSE(target.isRegistered("old") || target.isRegistered("old dimension"));
    ParametersEngine& same = target;
    target = same;
    target = std::move(same);
    EXPECT_EQ(stateOf(target), pending);

    ParametersEngine other = target;
    other.resolveSchemas();
    EXPECT_EQ(stateOf(other), finished);
    EXPECT_EQ(stateOf(target), pending);

    ParametersEngine taken = std::move(target);
    EXPECT_EQ(&units, &taken.getUnitsEngine());
    EXPECT_EQ(stateOf(taken), pending);
    target = taken; // usable again
    other = std::move(taken);
    EXPECT_EQ(stateOf(other), pending);
    other.resolveSchemas();
    EXPECT_EQ(stateOf(other), finished);
    taken = std::move(target);
    EXPECT_EQ(stateOf(taken) + stateOf(source), pending + pending);
}

} // namespace
} // namespace Parameters
