#include "support/Documents.h"
#include "support/Expectations.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

struct Kind {
    void (ParametersEngine::*add)(const Taxon&);
    Taxon (ParametersEngine::*get)(const std::string&) const;
    std::map<std::string, Taxon> (ParametersEngine::*getAll)() const;
};

const Kind kinds[] = {
    {&ParametersEngine::registerDiscipline, &ParametersEngine::getDiscipline, &ParametersEngine::getAllDisciplines},
    {&ParametersEngine::registerDomain, &ParametersEngine::getDomain, &ParametersEngine::getAllDomains},
    {&ParametersEngine::registerGroup, &ParametersEngine::getGroup, &ParametersEngine::getAllGroups}};

TEST(DirectRegistrationTest, FinishesAtOnceOrIsUndone) {
    for (const auto& [add, get, getAll] : kinds) {
        ParametersEngine engine;
        const std::string opaque("a\0b", 3);
        (engine.*add)(Taxon("a", "A", Format::LumarDataSchema));
        (engine.*add)(Taxon(opaque, "B", Format::PropertySets));
        engine.resolveSchemas();
        EXPECT_EQ((engine.*get)("a").getName(), "A");
        EXPECT_EQ((engine.*get)("a").getSchemaFormat(), Format::LumarDataSchema);
        EXPECT_EQ((engine.*get)(opaque).getName(), "B");
        EXPECT_EQ((engine.*getAll)().size(), 2u);
    }
}

TEST(DirectRegistrationTest, RefusesKnownTypeIdsAndMissingNamesLikeDocuments) {
    ParametersEngine engine;
    engine.registerSchema(Documents::discipline("finished", "Finished"));
    engine.registerSchema(Documents::dimension("finished dimension", "Finished"));
    engine.resolveSchemas();
    engine.registerDomain(Taxon("object", "Object", Format::PropertySets));
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.registerSchema(Documents::dimension("pending dimension", "Pending"));
    for (const std::string typeId :
         {"finished", "finished dimension", "object", "pending", "pending dimension", "quovanta.spec:discipline-2.0.0",
          "quovanta.range:range.string-1.0.0", "quovanta.spec:spec.bool-1.0.0"}) {
        const std::string message = "Schema with typeid " + typeId + " is already registered.";
        // The typeid is looked at before the rest.
        EXPECT_THROWS(engine.registerSchema(Documents::group(typeId, "")), ValidationException, message);
        EXPECT_THROWS(engine.registerSchema(Documents::dimension(typeId, "Again")), ValidationException, message);
        for (const Kind& kind : kinds) {
            EXPECT_THROWS((engine.*kind.add)(Taxon(typeId, "", Format::PropertySets)), ValidationException, message);
        }
    }
    for (const auto& [add, get, getAll] : kinds) {
        const auto before = (engine.*getAll)();
        EXPECT_THROWS((engine.*add)(Taxon("", "", Format::PropertySets)), ValidationException,
                      "Typeid must not be empty.");
        EXPECT_THROWS((engine.*add)(Taxon("new", "", Format::PropertySets)), ValidationException,
                      "Name must not be empty.");
        EXPECT_FALSE(engine.isRegistered("new"));
        EXPECT_EQ((engine.*getAll)(), before);
    }
    engine.resolveSchemas();
    EXPECT_EQ(engine.getAllGroups().size(), 1u) << "none of the refused documents";
    EXPECT_EQ(engine.getSchema("pending"), Documents::group("pending", "Pending"));
}

} // namespace
} // namespace Parameters
