#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

/// The kinds of the finished objects of a typeid, one after the other.
std::string kindsOf(const ParametersEngine& engine, const std::string& typeId) {
    std::string kinds;
    kinds += engine.getAllDisciplines().count(typeId) != 0 ? "discipline" : "";
    kinds += engine.getAllDomains().count(typeId) != 0 ? "domain" : "";
    kinds += engine.getAllGroups().count(typeId) != 0 ? "group" : "";
    kinds += engine.getUnitsEngine().getAllUnits().count(typeId) != 0 ? "unit" : "";
    return kinds;
}

TEST(IntakeTest, TakesADocumentForTheKindWhosePrefixItsBaseContains) {
    const std::map<std::string, std::string> kindByBase = {
        {"quovanta.spec:discipline-1.0.0", "discipline"},
        {"quovanta.spec:discipline-", "discipline"},
        {"acme.building:x quovanta.spec:discipline-y", "discipline"},
        {"quovanta.talmo.category:domain-draft", "domain"},
        {"quovanta.parameter:group-2.0.0", "group"},
        // Of several the first in the order of the kinds.
        {"quovanta.parameter:group-1 quovanta.spec:discipline-1", "discipline"},
        {"quovanta.talmo.category:domain-1 quovanta.parameter:group-1", "group"},
        {"quovanta.unit:unit-1 quovanta.talmo.category:domain-1", "domain"},
        {"quovanta.unit:unit-1.0.0", "unit"},
    };
    for (const auto& [base, kind] : kindByBase) {
        for (const std::string& text :
             {shortForm("x", base, nameConstant("X")), fullForm("x", base, nameConstant("X"))}) {
            ParametersEngine engine;
            engine.registerSchema(text);
            engine.resolveSchemas();
            EXPECT_EQ(kindsOf(engine, "x"), kind) << text;
        }
    }
}

TEST(IntakeTest, RefusesWhatOnlyResemblesAKindOrAName) {
    expectRefused({{shortForm("x", "quovanta.parameter:group-1.0.0", "", nameConstant("X")),
                    "Schema x has an undefined name constant."},
                   {shortForm("x", "quovanta.spec:discipline", nameConstant("X")),
                    "Schema x does not represent a unit or a dimension."}});
}

TEST(IntakeTest, BatchSkipsKnownKeysAndRegistersUnderTheTypeIdOfTheText) {
    ParametersEngine engine;
    engine.registerSchema(group("pending", "Pending"));
    engine.getUnitsEngine().registerSchema(dimension("dimension", "Dimension"));
    engine.registerSchemas({{"pending", "no JSON, and never read"},
                            {"dimension", "no JSON, and never read"},
                            {"quovanta.parameter:group-1.0.0", "no JSON, and never read"},
                            {"a unit", unit("a unit", "A", "z dimension")},
                            {"key", group("typeid", "Name")},
                            {"z dimension", dimension("z dimension", "Z")}});
    EXPECT_EQ(engine.getGroup("typeid").getName(), "Name");
    EXPECT_EQ(kindsOf(engine, "a unit"), "unit");
    EXPECT_FALSE(engine.isRegistered("key"));
}

TEST(IntakeTest, BatchStopsAtTheFirstFaultAndLeavesWhatCameBeforePending) {
    ParametersEngine engine;
    const std::map<std::string, std::string> batch = {
        {"a", group("a", "A")}, {"b", group("b", "")}, {"c", group("c", "C")}};
    EXPECT_THROWS(engine.registerSchemas(batch), ValidationException, "Expected a non-empty string.");
    EXPECT_TRUE(engine.isRegistered("a") && engine.getAllGroups().empty());
    EXPECT_FALSE(engine.isRegistered("b") || engine.isRegistered("c"));
    engine.registerSchemas({});
    EXPECT_EQ(kindsOf(engine, "a"), "group") << "an empty batch resolves what is pending";
}

} // namespace
} // namespace Parameters
