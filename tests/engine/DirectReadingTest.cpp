#include "support/ParameterDocuments.h"

namespace Parameters {
namespace {

using namespace Documents;

TEST(DirectReadingTest, ReadsAParameterAgainstWhatIsFinished) {
    ParametersEngine engine = parameterFixture();
    engine.registerSchema(group("pending", "Pending"));
    for (const auto& [text, message] :
         Cases{{"", "JSON parsing error at offset 0: The document is empty."},
               {group("Bool", ""), "Schema with typeid Bool is already registered."},
               {group("x", ""), "Inheritance from an incorrect base schema."},
               {older(".bool-2.0.0", "," + reference("group", "pending")),
                "Dependency pending in schema x is missing or does not represent an object of the expected type."}}) {
        EXPECT_THROWS(engine.readParameter(text), ValidationException, message);
    }
    EXPECT_EQ(engine.readParameter(newer("-3.0.0", "", "Bool")).getSpec(), engine.getSpec("Bool"));
    EXPECT_FALSE(engine.isRegistered("x"));
}

TEST(DirectReadingTest, TellsThePrimitiveTypeBehindADocument) {
    const std::string unknown = "," + reference("spec", "?");
    const std::vector<Texts> textsOfTypes = {
        {"", "{}", group("x", "X"), older(".measurable-3"), older("-2", "", "?"), older("-2", "", "Thing"),
         older("-2", "", "choice"), older("-2", "", "quovanta.spec:spec.bool-1.0.0")},
        {older(".bool-2", unknown), older("-2", "", "old")},
        {older(".int64-3", unknown), older(".ranged.float64-1", "", "Int64")},
        {older(".measurable-3", unknown), older(".ranged.string-1", "", "Float64")},
        {older(".reference-2", unknown), older("-2", "", "quovanta.data:reference-1.0.0")},
        {older(".string-3", unknown), older("-2", "", "String")}};
    const ParametersEngine engine = parameterFixture();
    for (std::size_t type = 0; type < textsOfTypes.size(); ++type) {
        for (const std::string& text : textsOfTypes[type]) {
            EXPECT_EQ(engine.readValueType(text), LegacyPrimitiveType(type)) << text;
        }
    }
}

} // namespace
} // namespace Parameters
