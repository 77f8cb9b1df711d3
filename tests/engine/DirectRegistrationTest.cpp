#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/MemoryShortage.h"

#include <Parameters/ParametersEngine.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Parameters {
namespace {

using Format = Units::SchemaFormat;

struct TaxonOperation {
    const char* name;
    void (ParametersEngine::*add)(const Taxon&);
    Taxon (ParametersEngine::*get)(const std::string&) const;
    std::map<std::string, Taxon> (ParametersEngine::*getAll)() const;
};

class DirectTaxonRegistrationTest : public ::testing::TestWithParam<TaxonOperation> {
protected:
    void add(const Taxon& taxon) { (engine.*GetParam().add)(taxon); }
    [[nodiscard]] Taxon get(const std::string& typeId) const { return (engine.*GetParam().get)(typeId); }
    [[nodiscard]] std::map<std::string, Taxon> getAll() const { return (engine.*GetParam().getAll)(); }

    ParametersEngine engine;
};

TEST_P(DirectTaxonRegistrationTest, FinishesAtOnce) {
    const Taxon taxon("acme.building:x-1.0.0", "X", Format::LumarDataSchema);
    add(taxon);
    EXPECT_TRUE(engine.isRegistered("acme.building:x-1.0.0"));
    EXPECT_EQ(get("acme.building:x-1.0.0").getName(), "X");
    EXPECT_EQ(get("acme.building:x-1.0.0").getSchemaFormat(), Format::LumarDataSchema);
    EXPECT_EQ(getAll().size(), 1u);

    engine.registerSchema(Documents::discipline("pending", "Pending"));
    engine.resolveSchemas();
    EXPECT_EQ(get("acme.building:x-1.0.0").getName(), "X");
}

TEST_P(DirectTaxonRegistrationTest, TakesTypeIdsAsOpaque) {
    for (const std::string& typeId :
         {std::string(" "), std::string("a\0b", 3), std::string("a"), std::string("\"\\")}) {
        add(Taxon(typeId, "Name of " + typeId, Format::PropertySets));
    }
    EXPECT_EQ(getAll().size(), 4u);
    EXPECT_EQ(get(std::string("a\0b", 3)).getName(), std::string("Name of a\0b", 11));
    EXPECT_EQ(get("a").getName(), "Name of a");
}

TEST_P(DirectTaxonRegistrationTest, RefusesKnownTypeIdsAndMissingNamesAndStaysAsItWas) {
    engine.registerSchema(Documents::discipline("finished", "Finished"));
    engine.registerSchema(Documents::dimension("finished dimension", "Finished"));
    engine.resolveSchemas();
    engine.registerDomain(Taxon("object", "Object", Format::PropertySets));
    engine.registerSchema(Documents::group("pending", "Pending"));
    engine.registerSchema(Documents::dimension("pending dimension", "Pending"));
    const auto before = getAll();

    for (const std::string typeId :
         {"finished", "finished dimension", "object", "pending", "pending dimension", "quovanta.spec:discipline-2.0.0",
          "quovanta.parameter:group-1.0.0", "quovanta.range:range.string-1.0.0"}) {
        const std::string message = "Schema with typeid " + typeId + " is already registered.";
        EXPECT_THROWS(add(Taxon(typeId, "Again", Format::PropertySets)), ValidationException, message);
        // The typeid is looked at before the object.
        EXPECT_THROWS(add(Taxon(typeId, "", Format::PropertySets)), ValidationException, message);
    }
    EXPECT_THROWS(add(Taxon("", "", Format::PropertySets)), ValidationException, "Typeid must not be empty.");
    EXPECT_THROWS(add(Taxon("new", "", Format::PropertySets)), ValidationException, "Name must not be empty.");
    EXPECT_FALSE(engine.isRegistered("new"));
    EXPECT_EQ(getAll(), before);

    engine.resolveSchemas();
    EXPECT_EQ(engine.getSchema("pending"), Documents::group("pending", "Pending"));
    add(Taxon("new", "New", Format::PropertySets));
    EXPECT_EQ(get("new").getName(), "New");
}

TEST_P(DirectTaxonRegistrationTest, IsUndoneIfMemoryDoesNotSuffice) {
    const Taxon taxon("acme.building:x-1.0.0", "X", Format::PropertySets);
    failEachAllocation([] { return ParametersEngine(); },
                       [&](ParametersEngine& fresh) { (fresh.*GetParam().add)(taxon); },
                       [&](ParametersEngine& fresh) {
                           EXPECT_FALSE(fresh.isRegistered("acme.building:x-1.0.0"));
                           (fresh.*GetParam().add)(taxon);
                           EXPECT_EQ((fresh.*GetParam().getAll)().size(), 1u);
                       });
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, DirectTaxonRegistrationTest,
    ::testing::Values(TaxonOperation{"discipline", &ParametersEngine::registerDiscipline,
                                     &ParametersEngine::getDiscipline, &ParametersEngine::getAllDisciplines},
                      TaxonOperation{"domain", &ParametersEngine::registerDomain, &ParametersEngine::getDomain,
                                     &ParametersEngine::getAllDomains},
                      TaxonOperation{"group", &ParametersEngine::registerGroup, &ParametersEngine::getGroup,
                                     &ParametersEngine::getAllGroups}),
    [](const auto& operation) { return std::string(operation.param.name); });

TEST(DirectRegistrationTest, BlocksADocumentOfTheSameTypeId) {
    ParametersEngine engine;
    engine.registerDiscipline(Taxon("x", "X", Format::PropertySets));
    EXPECT_THROWS(engine.registerSchema(Documents::dimension("x", "X")), ValidationException,
                  "Schema with typeid x is already registered.");
}

} // namespace
} // namespace Parameters
