#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;
using Version = DataModelVersion;
using Range = std::pair<Version, Version>;

const std::string cannotRepresent = "Cannot represent schema in requested format.";

/// Demands that a finished object has these texts from V1 to V3, an empty one being refused.
void expectTexts(const ParametersEngine& engine, const std::string& typeId, const std::string (&texts)[3],
                 const Range& range) {
    SCOPED_TRACE(typeId);
    EXPECT_EQ(engine.getCompatibleDataModelRange(typeId), range);
    for (const Version version : {Version::V1, Version::V2, Version::V3}) {
        const std::string& text = texts[static_cast<unsigned>(version)];
        if (text.empty()) {
            EXPECT_THROWS(engine.getSchemaInCompatibleFormat(version, typeId), ValidationException, cannotRepresent);
        } else {
            EXPECT_EQ(engine.getSchemaInCompatibleFormat(version, typeId), text);
        }
    }
    EXPECT_EQ(engine.getSchema(typeId), texts[static_cast<unsigned>(range.second)]);
}

TEST(RetrievalTest, GivesARegisteredTextByteForByteAtItsNaturalVersions) {
    const auto oddText = [](const std::string& typeId) {
        return "\r\n{ \"later\" : [ 1.50e1 , { } ],\t\"constants\":[{\"value\":\"L\\u00fcftung\\/1\",\"id\":\"name\"},"
               "{\"id\":\"order\",\"value\":3}],\"properties\":[],\"sealed\":false,\n"
               "\"inherits\":[\"quovanta.spec:discipline-1.5.0\"],\"typeid\":\"" +
               typeId + "\"";
    };
    const std::string brief = oddText("brief") + "} ";
    const std::string full = oddText("full") + ",\"schemaSpecification\":\"lumar-data-schema-2.0.0\"} ";
    const std::string written = R"({"downgradedFrom":"3.0.0","typeid":"full",)"
                                R"("inherits":["quovanta.spec:discipline-1.0.0"],)"
                                "\"constants\":[{\"id\":\"name\",\"value\":\"L\xC3\xBC"
                                "ftung/1\"}]}";
    ParametersEngine engine;
    engine.registerSchemas({{"brief", brief}, {"full", full}});
    expectTexts(engine, "brief", {brief, brief, ""}, {Version::V1, Version::V2});
    expectTexts(engine, "full", {written, written, full}, {Version::V1, Version::V3});
    for (const Version version : {static_cast<Version>(-1), static_cast<Version>(3)}) {
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(version, "full"), ValidationException, cannotRepresent);
    }
}

TEST(RetrievalTest, WritesTextsOfObjects) {
    using Add = void (ParametersEngine::*)(const Taxon&);
    const std::pair<Add, std::string> kinds[] = {
        {&ParametersEngine::registerDiscipline, R"(","inherits":["quovanta.spec:discipline-)"},
        {&ParametersEngine::registerDomain, R"(","inherits":["quovanta.talmo.category:domain-)"},
        {&ParametersEngine::registerGroup, R"(","inherits":["quovanta.parameter:group-)"}};
    const std::string name = "El\"1\"\n\x1F\\";
    for (const auto& [add, base] : kinds) {
        ParametersEngine engine;
        (engine.*add)(Taxon("full", name, Format::LumarDataSchema));
        (engine.*add)(Taxon("brief", name, Format::PropertySets));
        const std::string constants = R"(1.0.0"],"constants":[{"id":"name","value":"El\"1\"\n\u001F\\"}]})";
        const std::string downgraded = R"({"downgradedFrom":"3.0.0","typeid":"full)" + base + constants;
        const std::string full =
            R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"full)" + base +
            R"(2.0.0"],"sealed":true,"constants":[{"id":"name","typeid":"String","value":"El\"1\"\n\u001F\\"}]})";
        expectTexts(engine, "full", {downgraded, downgraded, full}, {Version::V1, Version::V3});
        const std::string brief = R"({"typeid":"brief)" + base + constants;
        expectTexts(engine, "brief", {brief, brief, ""}, {Version::V1, Version::V2});
    }
}

TEST(RetrievalTest, PassesUnitsThroughToTheUnitsEngine) {
    const std::string name = Documents::nameConstant("Metre");
    const std::string brief = Documents::shortForm("brief", "quovanta.unit:unit-1.0.0", name);
    const std::string full = Documents::fullForm("full", "quovanta.unit:unit-1.0.0", name);
    const std::string newest = Documents::fullForm("new", "quovanta.unit:unit-2.0.0", name);
    const std::string downgraded = R"({"downgradedFrom":"3.0.0","typeid":"full",)"
                                   R"("inherits":["quovanta.unit:unit-1.0.0"],"constants":[)" +
                                   name + "]}";
    ParametersEngine engine;
    engine.registerSchemas({{"brief", brief}, {"full", full}, {"new", newest}});
    expectTexts(engine, "brief", {brief, brief, ""}, {Version::V1, Version::V2});
    expectTexts(engine, "full", {downgraded, downgraded, full}, {Version::V1, Version::V3});
    expectTexts(engine, "new", {"", "", newest}, {Version::V3, Version::V3});
}

TEST(RetrievalTest, DoesNotKnowWhatIsNotFinished) {
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.registerSchema(Documents::dimension("pending dimension", "Pending"));
    for (const std::string typeId : {"", "unknown", "pending", "pending dimension", "quovanta.spec:discipline-1.0.0"}) {
        const std::string message = "Could not find any object with typeid " + typeId + ".";
        EXPECT_THROWS(engine.getSchema(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V3, typeId), UnrecognizedIdentifierException,
                      message);
        EXPECT_THROWS(engine.getCompatibleDataModelRange(typeId), UnrecognizedIdentifierException, message);
    }
}

} // namespace
} // namespace Parameters
