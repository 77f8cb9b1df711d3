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

/// Registers a text and resolves it.
ParametersEngine engineWith(const std::string& text) {
    ParametersEngine engine;
    engine.registerSchema(text);
    engine.resolveSchemas();
    return engine;
}

const std::string oddText = "\r\n{ \"later\" : [ 1.50e1 , { } ],\t\"constants\":[{\"value\":\"L\\u00fcftung\\/1\","
                            "\"id\":\"name\"},{\"id\":\"order\",\"value\":3}],\"properties\":[],\"sealed\":false,\n"
                            "\"inherits\":[\"quovanta.spec:discipline-1.5.0\"],\"typeid\":\"x\"";
const std::string oddShortText = oddText + "} ";
const std::string oddFullText = oddText + ",\"schemaSpecification\":\"lumar-data-schema-2.0.0\"} ";

TEST(RetrievalTest, GivesARegisteredTextByteForByteAtItsNaturalVersions) {
    const ParametersEngine shortEngine = engineWith(oddShortText);
    EXPECT_EQ(shortEngine.getSchema("x"), oddShortText);
    EXPECT_EQ(shortEngine.getSchemaInCompatibleFormat(Version::V1, "x"), oddShortText);
    EXPECT_EQ(shortEngine.getSchemaInCompatibleFormat(Version::V2, "x"), oddShortText);
    EXPECT_THROWS(shortEngine.getSchemaInCompatibleFormat(Version::V3, "x"), ValidationException, cannotRepresent);
    EXPECT_EQ(shortEngine.getCompatibleDataModelRange("x"), Range(Version::V1, Version::V2));

    const ParametersEngine fullEngine = engineWith(oddFullText);
    EXPECT_EQ(fullEngine.getSchema("x"), oddFullText);
    EXPECT_EQ(fullEngine.getSchemaInCompatibleFormat(Version::V3, "x"), oddFullText);
    EXPECT_EQ(fullEngine.getCompatibleDataModelRange("x"), Range(Version::V1, Version::V3));
}

TEST(RetrievalTest, WritesADowngradedTextFromTheObject) {
    const ParametersEngine engine = engineWith(oddFullText);
    const std::string downgraded = R"({"downgradedFrom":"3.0.0","typeid":"x",)"
                                   R"("inherits":["quovanta.spec:discipline-1.0.0"],)"
                                   "\"constants\":[{\"id\":\"name\",\"value\":\"L\xC3\xBC"
                                   "ftung/1\"}]}";
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V2, "x"), downgraded);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V1, "x"), downgraded);

    const ParametersEngine older = engineWith(downgraded);
    EXPECT_EQ(older.getDiscipline("x").getName(), engine.getDiscipline("x").getName());
    EXPECT_EQ(older.getDiscipline("x").getSchemaFormat(), Format::PropertySets);
    EXPECT_EQ(older.getCompatibleDataModelRange("x"), Range(Version::V1, Version::V2));
}

TEST(RetrievalTest, RefusesAVersionThatDoesNotExist) {
    const ParametersEngine engine = engineWith(oddFullText);
    for (const Version version : {static_cast<Version>(-1), static_cast<Version>(3)}) {
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(version, "x"), ValidationException, cannotRepresent);
    }
}

TEST(RetrievalTest, WritesTextsOfObjects) {
    struct Kind {
        void (ParametersEngine::*add)(const Taxon&);
        std::string base;
    };
    const std::string name = "El\"1\"\n\x1F\\";
    for (const auto& [add, base] : {Kind{&ParametersEngine::registerDiscipline, "quovanta.spec:discipline-"},
                                    Kind{&ParametersEngine::registerDomain, "quovanta.talmo.category:domain-"},
                                    Kind{&ParametersEngine::registerGroup, "quovanta.parameter:group-"}}) {
        ParametersEngine current;
        (current.*add)(Taxon("x-1.0.0", name, Format::LumarDataSchema));
        const std::string full =
            R"({"schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"component","typeid":"x-1.0.0",)"
            R"("inherits":[")" +
            base +
            R"(2.0.0"],"sealed":true,)"
            R"("constants":[{"id":"name","typeid":"String","value":"El\"1\"\n\u001F\\"}]})";
        EXPECT_EQ(current.getSchema("x-1.0.0"), full);
        EXPECT_EQ(current.getSchemaInCompatibleFormat(Version::V3, "x-1.0.0"), full);
        const std::string downgraded = R"({"downgradedFrom":"3.0.0","typeid":"x-1.0.0","inherits":[")" + base +
                                       R"(1.0.0"],)"
                                       R"("constants":[{"id":"name","value":"El\"1\"\n\u001F\\"}]})";
        EXPECT_EQ(current.getSchemaInCompatibleFormat(Version::V2, "x-1.0.0"), downgraded);
        EXPECT_EQ(current.getSchemaInCompatibleFormat(Version::V1, "x-1.0.0"), downgraded);
        EXPECT_EQ(current.getCompatibleDataModelRange("x-1.0.0"), Range(Version::V1, Version::V3));

        ParametersEngine older;
        (older.*add)(Taxon("x-1.0.0", name, Format::PropertySets));
        const std::string shortText = R"({"typeid":"x-1.0.0","inherits":[")" + base +
                                      R"(1.0.0"],)"
                                      R"("constants":[{"id":"name","value":"El\"1\"\n\u001F\\"}]})";
        EXPECT_EQ(older.getSchema("x-1.0.0"), shortText);
        EXPECT_EQ(older.getSchemaInCompatibleFormat(Version::V2, "x-1.0.0"), shortText);
        EXPECT_EQ(older.getSchemaInCompatibleFormat(Version::V1, "x-1.0.0"), shortText);
        EXPECT_THROWS(older.getSchemaInCompatibleFormat(Version::V3, "x-1.0.0"), ValidationException, cannotRepresent);
        EXPECT_EQ(older.getCompatibleDataModelRange("x-1.0.0"), Range(Version::V1, Version::V2));
    }
}

TEST(RetrievalTest, PassesUnitsThroughToTheUnitsEngine) {
    const std::string shortText = Documents::unit("short", "Metre", "length");
    const std::string fullText = Documents::fullForm("full", "quovanta.unit:unit-1.0.0",
                                                     Documents::nameConstant("Metre") +
                                                         R"(,{"id":"dimension","typedValue":{"typeid":"length"}})");
    const std::string newText =
        Documents::fullForm("new", "quovanta.unit:unit-2.0.0", Documents::nameConstant("Metre"));
    ParametersEngine engine;
    for (const std::string& text : {shortText, fullText, newText, Documents::dimension("length", "Length")}) {
        engine.registerSchema(text);
    }
    engine.resolveSchemas();

    EXPECT_EQ(engine.getSchema("short"), shortText);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V1, "short"), shortText);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V2, "short"), shortText);
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V3, "short"), ValidationException, cannotRepresent);
    EXPECT_EQ(engine.getCompatibleDataModelRange("short"), Range(Version::V1, Version::V2));

    const std::string downgraded =
        R"({"downgradedFrom":"3.0.0","typeid":"full","inherits":["quovanta.unit:unit-1.0.0"],)"
        R"("constants":[{"id":"name","value":"Metre"},)"
        R"({"id":"dimension","typedValue":{"typeid":"length"}}]})";
    EXPECT_EQ(engine.getSchema("full"), fullText);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V3, "full"), fullText);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V2, "full"), downgraded);
    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V1, "full"), downgraded);
    EXPECT_EQ(engine.getCompatibleDataModelRange("full"), Range(Version::V1, Version::V3));

    EXPECT_EQ(engine.getSchemaInCompatibleFormat(Version::V3, "new"), newText);
    EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V2, "new"), ValidationException, cannotRepresent);
    EXPECT_EQ(engine.getCompatibleDataModelRange("new"), Range(Version::V3, Version::V3));
}

TEST(RetrievalTest, DoesNotKnowWhatIsNotFinished) {
    ParametersEngine engine;
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.registerSchema(Documents::dimension("pending dimension", "Pending"));
    for (const std::string typeId : {"", "unknown", "pending", "pending dimension", "quovanta.spec:discipline-1.0.0"}) {
        const std::string message = "Could not find any object with typeid " + typeId + ".";
        EXPECT_THROWS(engine.getSchema(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V1, typeId), UnrecognizedIdentifierException,
                      message);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(Version::V3, typeId), UnrecognizedIdentifierException,
                      message);
        EXPECT_THROWS(engine.getCompatibleDataModelRange(typeId), UnrecognizedIdentifierException, message);
    }
}

} // namespace
} // namespace Parameters
