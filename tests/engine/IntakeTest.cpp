#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

namespace Parameters {
namespace {

using Missing = std::pair<std::set<std::string>, std::set<std::string>>;

const Missing nothingMissing;

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
        for (const std::string& text : {Documents::shortForm("x", base, Documents::nameConstant("X")),
                                        Documents::fullForm("x", base, Documents::nameConstant("X"))}) {
            ParametersEngine engine;
            EXPECT_EQ(engine.registerSchema(text), nothingMissing) << text;
            engine.resolveSchemas();
            EXPECT_EQ(kindsOf(engine, "x"), kind) << text;
        }
    }
}

TEST(IntakeTest, RefusesFaultyDocumentsAndStaysAsItWas) {
    const std::string disciplineBase = "quovanta.spec:discipline-1.0.0";
    const std::pair<std::string, std::string> refusals[] = {
        {"", "JSON parsing error at offset 0: The document is empty."},
        {R"({"typeid":"x"})", "Schema must specify an inheritance array."},
        {Documents::shortForm("x", disciplineBase, ""), "Schema x has an undefined name constant."},
        {R"({"typeid":"x","inherits":["quovanta.parameter:group-1.0.0"],"properties":[{"id":"name","value":"X"}]})",
         "Schema x has an undefined name constant."},
        {Documents::group("x", ""), "Expected a non-empty string."},
        {Documents::shortForm("x", disciplineBase, R"({"id":"name","value":7})"), "Expected a string."},
        {Documents::shortForm("x", disciplineBase, R"({"id":"name"})"),
         "A property definition must contain either a value or a typedValue."},
        // What is of none of the kinds goes to the units engine.
        {Documents::shortForm("x", "quovanta.spec:discipline", Documents::nameConstant("X")),
         "Schema x does not represent a unit or a dimension."},
        {Documents::shortForm("x", "quovanta.unit:unit-1.0.0", ""), "Schema x has an undefined name constant."},
        {Documents::unit("x", "X", ""), "A typeid attribute in a typedValue object may not be empty."},
    };
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    for (const auto& [text, message] : refusals) {
        EXPECT_THROWS(engine.registerSchema(text), ValidationException, message) << text;
        EXPECT_FALSE(engine.isRegistered("x")) << text;
    }
    EXPECT_EQ(engine.registerSchema(Documents::discipline("x", "X")), nothingMissing);
    engine.resolveSchemas();
    EXPECT_EQ(kindsOf(engine, "x"), "discipline");
    EXPECT_EQ(kindsOf(engine, "pending"), "group");
}

TEST(IntakeTest, TellsWhichDimensionOfAUnitIsMissing) {
    ParametersEngine engine;
    EXPECT_EQ(engine.registerSchema(Documents::unit("metre", "Metre", "length")), Missing({}, {"length"}));
    EXPECT_EQ(engine.registerSchema(Documents::unit("foot", "Foot", "length")), Missing({}, {"length"}));
    EXPECT_EQ(engine.registerSchema(Documents::dimension("length", "Length")), nothingMissing);
    EXPECT_EQ(engine.registerSchema(Documents::unit("inch", "Inch", "length")), nothingMissing) << "it is pending";
    engine.resolveSchemas();
    EXPECT_EQ(engine.registerSchema(Documents::unit("mile", "Mile", "length")), nothingMissing);
}

TEST(IntakeTest, BatchSkipsKnownKeysAndRegistersUnderTheTypeIdOfTheText) {
    // A text is read up to its first NUL, and kept as a whole.
    const std::string text = Documents::group("typeid", "Name") + std::string("\0 trailing", 10);
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.getUnitsEngine().registerSchema(Documents::dimension("dimension", "Dimension"));
    engine.registerSchemas({{"pending", "no JSON, and never read"},
                            {"dimension", "no JSON, and never read"},
                            {"quovanta.parameter:group-1.0.0", "no JSON, and never read"},
                            {"a unit", Documents::unit("a unit", "A", "z dimension")},
                            {"key", text},
                            {"z dimension", Documents::dimension("z dimension", "Z")}});
    EXPECT_EQ(engine.getGroup("pending").getName(), "Pending");
    EXPECT_EQ(engine.getSchema("typeid"), text);
    EXPECT_EQ(kindsOf(engine, "a unit"), "unit");
    EXPECT_FALSE(engine.isRegistered("key"));
    EXPECT_THROWS(engine.registerSchemas({{"another key", text}}), ValidationException,
                  "Schema with typeid typeid is already registered.");
}

TEST(IntakeTest, BatchStopsAtTheFirstFaultAndLeavesWhatCameBeforePending) {
    ParametersEngine engine;
    const std::map<std::string, std::string> batch = {
        {"a", Documents::group("a", "A")}, {"b", Documents::group("b", "")}, {"c", Documents::group("c", "C")}};
    EXPECT_THROWS(engine.registerSchemas(batch), ValidationException, "Expected a non-empty string.");
    EXPECT_TRUE(engine.isRegistered("a") && engine.getAllGroups().empty());
    EXPECT_FALSE(engine.isRegistered("b") || engine.isRegistered("c"));
    engine.registerSchemas({});
    EXPECT_EQ(kindsOf(engine, "a"), "group") << "an empty batch resolves what is pending";
}

} // namespace
} // namespace Parameters
