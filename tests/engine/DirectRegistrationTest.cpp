#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

TEST(DirectRegistrationTest, RefusesKnownTypeIdsAndMissingNamesLikeDocuments) {
    ParametersEngine engine;
    engine.registerSchema(discipline("finished", "Finished"));
    engine.registerSchema(dimension("finished dimension", "Finished"));
    engine.resolveSchemas();
    engine.registerDomain(Taxon("object", "Object", {}));
    engine.registerSchema(group("pending", "Pending"));
    engine.registerSchema(dimension("pending dimension", "Pending"));
    for (const std::string typeId :
         {"finished", "finished dimension", "object", "pending", "pending dimension", "quovanta.spec:discipline-2.0.0",
          "quovanta.range:range.string-1.0.0", "quovanta.spec:spec.bool-1.0.0"}) {
        const std::string message = "Schema with typeid " + typeId + " is already registered.";
        // The typeid is looked at before the rest.
        EXPECT_THROWS(engine.registerSchema(group(typeId, "")), ValidationException, message);
        EXPECT_THROWS(engine.registerSchema(dimension(typeId, "Again")), ValidationException, message);
        EXPECT_THROWS(engine.registerDomain(Taxon(typeId, "", {})), ValidationException, message);
    }
    EXPECT_THROWS(engine.registerDomain(Taxon("", "", {})), ValidationException, "Typeid must not be empty.");
    EXPECT_THROWS(engine.registerDomain(Taxon("new", "", {})), ValidationException, "Name must not be empty.");
    const std::string opaque("object\0", 7);
    engine.registerDomain(Taxon(opaque, "Opaque", {}));
    EXPECT_EQ(engine.getDomain(opaque).getName(), "Opaque");
    engine.resolveSchemas();
    EXPECT_EQ(engine.getAllGroups().size(), 1u) << "none of the refused documents";
    EXPECT_EQ(engine.getSchema("pending"), group("pending", "Pending"));
}

} // namespace
} // namespace Parameters
