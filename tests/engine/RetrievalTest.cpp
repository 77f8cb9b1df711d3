#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

TEST(RetrievalTest, GivesARegisteredTextByteForByteAtItsNaturalVersions) {
    const auto oddText = [](const std::string& typeId) {
        return "\r\n{ \"typeid\\u0000\" : [ 1.50e1 , { } "
               "],\t\"constants\":[{\"value\":\"L\\u00fcftung\\/1\",\"id\":\"name\"},"
               "{\"id\":\"order\",\"value\":3}],\"properties\":[],\"sealed\":false,\n"
               "\"inherits\":[\"quovanta.spec:discipline-1.5.0\"],\"typeid\":\"" +
               typeId + "\"";
    };
    const std::string brief = oddText("brief") + ",\"schemaType\":1} ";
    const std::string full = oddText("full") + ",\"schemaSpecification\":\"lumar-data-schema-2.0.0\"} ";
    const std::string written = downgraded(discipline("full", "L\xC3\xBC"
                                                              "ftung/1"));
    ParametersEngine engine;
    engine.registerSchemas({{"brief", brief}, {"full", full}});
    expectTextsOf("brief", engine, {brief, brief, ""});
    expectTextsOf("full", engine, {written, written, full});
    for (const Version version : {static_cast<Version>(-1), static_cast<Version>(3)}) {
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat(version, "full"), ValidationException, cannotRepresent);
    }
}

TEST(RetrievalTest, PassesUnitsThroughToTheUnitsEngine) {
    const std::string base = "quovanta.unit:unit-", name = nameConstant("Metre");
    const std::string older = shortForm("older", base + "1.0.0", name);
    const std::string newer = fullForm("newer", base + "1.0.0", name);
    const std::string newest = fullForm("newest", base + "2.0.0", name);
    const std::string written = downgraded(shortForm("newer", base + "1.0.0", name));
    ParametersEngine engine;
    engine.registerSchemas({{"older", older}, {"newer", newer}, {"newest", newest}});
    expectTextsOf("older", engine, {older, older, ""});
    expectTextsOf("newer", engine, {written, written, newer});
    expectTextsOf("newest", engine, {"", "", newest});
}

TEST(RetrievalTest, DoesNotKnowWhatIsNotFinished) {
    ParametersEngine engine;
    engine.registerSchema(group("pending", "Pending"));
    engine.registerSchema(dimension("pending dimension", "Pending"));
    for (const std::string typeId : {"", "unknown", "pending", "pending dimension", "quovanta.spec:discipline-1.0.0"}) {
        const std::string message = "Could not find any object with typeid " + typeId + ".";
        EXPECT_THROWS(engine.getSchema(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getSchemaInCompatibleFormat({}, typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getCompatibleDataModelRange(typeId), UnrecognizedIdentifierException, message);
    }
}

} // namespace
} // namespace Parameters
