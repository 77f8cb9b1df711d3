#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/MemoryShortage.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;
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
        {"quovanta.spec:discipline-9.9.9", "discipline"},
        {"quovanta.spec:discipline-", "discipline"},
        {"acme.building:x quovanta.spec:discipline-y", "discipline"},
        {"quovanta.talmo.category:domain-2.0.0", "domain"},
        {"quovanta.talmo.category:domain-draft", "domain"},
        {"quovanta.parameter:group-2.0.0", "group"},
        {"acme.quovanta.parameter:group-1", "group"},
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

TEST(IntakeTest, ReadsOfATaxonTheNameAndTheFormat) {
    ParametersEngine engine;
    engine.registerSchema(R"(
        {
            "inherits": ["quovanta.spec:discipline-2.0.0"], "author": {"name": "not this one"}, "sealed": "no",
            "constants": [
                {"id": "order", "value": 7}, {"id": "", "value": null},
                {"id": "name", "typedValue": {"typeid": "not this one"}, "typeid": 5, "value": "L\u00fcftung \"1\""}
            ],
            "properties": [{"id": "name"}, {"id": "more", "typeid": "String"}],
            "typeid": "short", "downgradedFrom": "3.0.0", "schemaType": "enum"
        })");
    engine.registerSchema(R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"anything","typeid":"full",
        "inherits":["quovanta.spec:discipline-1.0.0"],"constants":[{"id":"name","typedValue":"by typedValue"}]})");
    engine.resolveSchemas();
    EXPECT_EQ(engine.getDiscipline("short").getName(), "L\xC3\xBC"
                                                       "ftung \"1\"");
    EXPECT_EQ(engine.getDiscipline("short").getSchemaFormat(), Format::PropertySets);
    EXPECT_EQ(engine.getDiscipline("full").getName(), "by typedValue");
    EXPECT_EQ(engine.getDiscipline("full").getSchemaFormat(), Format::LumarDataSchema);
}

TEST(IntakeTest, RefusesFaultyDocumentsAndStaysAsItWas) {
    struct Refusal {
        std::string text;
        std::string message;
    };
    const std::string disciplineBase = "quovanta.spec:discipline-1.0.0";
    const std::vector<Refusal> refusals = {
        {"", "JSON parsing error at offset 0: The document is empty."},
        {"{} x", "JSON parsing error at offset 3: The document root must not be followed by other values."},
        {"{}", "Schema must specify a typeid string."},
        {"[]", "Schema must specify a typeid string."},
        {R"({"typeid":""})", "The typeid string may not be empty."},
        {R"({"typeid":"x"})", "Schema must specify an inheritance array."},
        {R"({"typeid":"x","schemaSpecification":"lumar-data-schema-3.0.0"})",
         "Unsupported schema specification version."},
        {Documents::shortForm("x", disciplineBase, ""), "Schema x has an undefined name constant."},
        {Documents::fullForm("x", "quovanta.talmo.category:domain-2.0.0", R"({"id":"Name","value":"X"})"),
         "Schema x has an undefined name constant."},
        {R"({"typeid":"x","inherits":["quovanta.parameter:group-1.0.0"],"properties":[{"id":"name","value":"X"}]})",
         "Schema x has an undefined name constant."},
        {Documents::group("x", ""), "Expected a non-empty string."},
        {Documents::domain("x", "\\u0000X"), "Expected a non-empty string."},
        {Documents::shortForm("x", disciplineBase, R"({"id":"name","value":7})"), "Expected a string."},
        {Documents::shortForm("x", disciplineBase, R"({"id":"name","value":null,"typedValue":"X"})"),
         "Expected a string."},
        {Documents::shortForm("x", disciplineBase, R"({"id":"name"})"),
         "A property definition must contain either a value or a typedValue."},
        // What is of none of the kinds goes to the units engine.
        {Documents::shortForm("x", "quovanta.spec:discipline", Documents::nameConstant("X")),
         "Schema x does not represent a unit or a dimension."},
        {Documents::fullForm("x", "quovanta.parameter:Group-2.0.0", Documents::nameConstant("X")),
         "Schema x does not represent a unit or a dimension."},
        {Documents::shortForm("x", "quovanta.unit:unit-1.0.0", ""), "Schema x has an undefined name constant."},
        {Documents::unit("x", "X", ""), "A typeid attribute in a typedValue object may not be empty."},
    };
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.text);
        EXPECT_THROWS(engine.registerSchema(refusal.text), ValidationException, refusal.message);
        EXPECT_FALSE(engine.isRegistered("x"));
    }
    EXPECT_EQ(engine.registerSchema(Documents::discipline("x", "X")), nothingMissing);
    engine.resolveSchemas();
    EXPECT_EQ(kindsOf(engine, "x"), "discipline");
    EXPECT_EQ(kindsOf(engine, "pending"), "group");
}

TEST(IntakeTest, IsUnchangedByADocumentForWhichMemoryDoesNotSuffice) {
    for (const std::string& text : {Documents::group("x", "X"), Documents::unit("x", "X", "length")}) {
        failEachAllocation(
            [] { return ParametersEngine(); }, [&](ParametersEngine& engine) { engine.registerSchema(text); },
            [&](ParametersEngine& engine) {
                EXPECT_FALSE(engine.isRegistered("x"));
                engine.resolveSchemas();
                engine.registerSchemas({{"length", Documents::dimension("length", "Length")}, {"x", text}});
                EXPECT_EQ(engine.getSchema("x"), text);
            });
    }
}

TEST(IntakeTest, RefusesATypeIdThatIsKnown) {
    ParametersEngine engine;
    engine.registerSchema(Documents::discipline("finished", "Finished"));
    engine.registerSchema(Documents::dimension("finished dimension", "Finished"));
    engine.resolveSchemas();
    engine.registerGroup(Taxon("object", "Object", Format::PropertySets));
    engine.registerSchema(Documents::domain("pending", "Pending"));
    engine.registerSchema(Documents::dimension("pending dimension", "Pending"));

    for (const std::string typeId : {"finished", "finished dimension", "object", "pending", "pending dimension",
                                     "quovanta.spec:discipline-2.0.0", "quovanta.spec:spec.bool-1.0.0"}) {
        const std::string message = "Schema with typeid " + typeId + " is already registered.";
        EXPECT_THROWS(engine.registerSchema(Documents::group(typeId, "Again")), ValidationException, message);
        EXPECT_THROWS(engine.registerSchema(Documents::dimension(typeId, "Again")), ValidationException, message);
        // The typeid is looked at before the rest of the document.
        EXPECT_THROWS(engine.registerSchema(Documents::group(typeId, "")), ValidationException, message);
    }
    engine.resolveSchemas();
    EXPECT_EQ(engine.getDomain("pending").getName(), "Pending");
    EXPECT_EQ(engine.getAllGroups().size(), 1u) << "the object, and none of the refused documents";
}

TEST(IntakeTest, TellsWhichDimensionOfAUnitIsMissing) {
    ParametersEngine engine;
    EXPECT_EQ(engine.registerSchema(Documents::unit("metre", "Metre", "length")), Missing({}, {"length"}));
    EXPECT_TRUE(engine.isRegistered("metre"));
    EXPECT_EQ(engine.registerSchema(Documents::unit("foot", "Foot", "length")), Missing({}, {"length"}));
    EXPECT_EQ(engine.registerSchema(Documents::dimension("length", "Length")), nothingMissing);
    EXPECT_EQ(engine.registerSchema(Documents::unit("inch", "Inch", "length")), nothingMissing)
        << "a pending dimension is known";
    engine.resolveSchemas();
    EXPECT_EQ(engine.registerSchema(Documents::unit("mile", "Mile", "length")), nothingMissing);
}

TEST(IntakeTest, ReadsATextUpToItsFirstNulAndKeepsAllOfIt) {
    const std::string text = Documents::group("x", "X") + std::string("\0 trailing", 10);
    ParametersEngine engine;
    engine.registerSchema(text);
    engine.resolveSchemas();
    EXPECT_EQ(engine.getGroup("x").getName(), "X");
    EXPECT_EQ(engine.getSchema("x"), text);
}

TEST(IntakeTest, BatchRegistersAndResolves) {
    ParametersEngine engine;
    engine.registerSchema(Documents::group("before", "Before"));
    engine.registerSchemas({});
    EXPECT_EQ(kindsOf(engine, "before"), "group") << "an empty batch resolves what is pending";

    engine.registerSchemas({{"a unit", Documents::unit("a unit", "A", "z dimension")},
                            {"m", Documents::domain("m", "M")},
                            {"z dimension", Documents::dimension("z dimension", "Z")}});
    EXPECT_EQ(kindsOf(engine, "a unit"), "unit");
    EXPECT_EQ(kindsOf(engine, "m"), "domain");
}

TEST(IntakeTest, BatchSkipsKnownKeysAndRegistersUnderTheTypeIdOfTheText) {
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.getUnitsEngine().registerSchema(Documents::dimension("dimension", "Dimension"));
    engine.registerSchemas({{"pending", "no JSON, and never read"},
                            {"dimension", "no JSON, and never read"},
                            {"quovanta.parameter:group-1.0.0", "no JSON, and never read"},
                            {"key", Documents::group("typeid", "Name")}});
    EXPECT_EQ(engine.getGroup("pending").getName(), "Pending");
    EXPECT_EQ(engine.getGroup("typeid").getName(), "Name");
    EXPECT_FALSE(engine.isRegistered("key"));

    EXPECT_THROWS(engine.registerSchemas({{"another key", Documents::group("typeid", "Name")}}), ValidationException,
                  "Schema with typeid typeid is already registered.");
}

TEST(IntakeTest, BatchStopsAtTheFirstFaultAndLeavesWhatCameBeforePending) {
    ParametersEngine engine;
    const std::map<std::string, std::string> batch = {
        {"a", Documents::group("a", "A")}, {"b", Documents::group("b", "")}, {"c", Documents::group("c", "C")}};
    EXPECT_THROWS(engine.registerSchemas(batch), ValidationException, "Expected a non-empty string.");
    EXPECT_TRUE(engine.isRegistered("a"));
    EXPECT_TRUE(engine.getAllGroups().empty());
    EXPECT_FALSE(engine.isRegistered("b"));
    EXPECT_FALSE(engine.isRegistered("c"));
    engine.resolveSchemas();
    EXPECT_EQ(kindsOf(engine, "a"), "group");
}

} // namespace
} // namespace Parameters
