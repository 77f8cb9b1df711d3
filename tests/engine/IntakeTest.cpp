#include "support/FinishedObjects.h"
#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

/// The kinds of the finished objects of a typeid, one after the other.
std::string kindsOf(const ParametersEngine& engine, const std::string& typeId) {
    std::string kinds;
    forEachKind([&](const auto& row) { kinds += (engine.*row.getAll)().count(typeId) != 0 ? row.name : ""; });
    kinds += engine.getUnitsEngine().getAllUnits().count(typeId) != 0 ? "unit" : "";
    return kinds;
}

TEST(IntakeTest, TakesADocumentForTheFirstKindWhosePrefixItsBaseContains) {
    const Cases prefixes = {
        {"float range", "quovanta.range:range.float64.bounded.static-"},
        {"int range", "quovanta.range:range.int64.bounded.static-"},
        {"string range", "quovanta.range:range.string.regex-"},
        {"discipline", "quovanta.spec:discipline-"},
        {"group", "quovanta.parameter:group-"},
        {"domain", "quovanta.talmo.category:domain-"},
        {"spec", "quovanta.spec:spec.bool-"},
        {"parameter", "quovanta.parameter:parameter.bool-"},
        {"category", "quovanta.talmo.category:subCategory-"},
        {"unit", "quovanta.unit:unit-1.0.0"},
    };
    // What any of them needs.
    const std::string constants = nameConstant("X") + "," + constant("fromBottom", "false") + "," +
                                  constant("fromTop", "false") + "," + constant("regex", R"("a")") + "," +
                                  reference("parent", "m");
    for (auto kind = prefixes.begin(); kind != prefixes.end(); ++kind) {
        Texts bases = {kind->second};
        if (kind->first != "unit") {
            bases.insert(bases.end(), {kind->second + "draft", "acme.building:x " + kind->second + "9.0.0"});
        }
        for (auto later = kind + 1; later < prefixes.end(); ++later) {
            bases.push_back(later->second + "1.0.0 " + kind->second + "1.0.0");
        }
        for (const std::string& base : bases) {
            for (const std::string& text : {shortForm("x", base, constants), fullForm("x", base, constants)}) {
                EXPECT_EQ(kindsOf(fixture({text}), "x"), kind->first) << text;
            }
        }
    }
}

TEST(IntakeTest, RefusesWhatOnlyResemblesAKindOrAName) {
    expectRefused({{shortForm("x", "quovanta.parameter:group-1.0.0", "", nameConstant("X")),
                    "Schema x has an undefined name constant."},
                   {shortForm("x", "quovanta.spec:discipline", nameConstant("X")),
                    "Schema x does not represent a unit or a dimension."}});
}

TEST(IntakeTest, DoesNotMissTheDocumentItself) {
    for (const auto& [base, id] : Cases{{"quovanta.parameter:parameter.bool-2.0.0", "group"},
                                        {"quovanta.talmo.category:subCategory-1.0.0", "parent"},
                                        {"quovanta.spec:spec.measurable-2.1.0", "storageUnit"}}) {
        const std::string text = shortForm("x", base, nameConstant("X") + "," + reference(id, "x"));
        const auto missing = ParametersEngine().registerSchema(text);
        EXPECT_TRUE(missing.first.empty() && missing.second.empty()) << text;
    }
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
