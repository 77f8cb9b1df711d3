#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;

TEST(TaxonTest, ReadsAndWritesItsName) {
    using Engine = ParametersEngine;
    const std::pair<Kind<Taxon>, std::string> kinds[] = {
        {{&Engine::registerDiscipline, &Engine::getDiscipline}, "quovanta.spec:discipline-"},
        {{&Engine::registerDomain, &Engine::getDomain}, "quovanta.talmo.category:domain-"},
        {{&Engine::registerGroup, &Engine::getGroup}, "quovanta.parameter:group-"}};
    const std::string plain = R"({"id":"name","value":"El\"1\"\n\u001F\\"})";
    const std::string typed = R"({"id":"name","typeid":"String","value":"El\"1\"\n\u001F\\"})";
    for (const auto& [kind, base] : kinds) {
        const std::string older = shortForm("x", base + "1.0.0", plain);
        kind.expectTexts(shortForm("x", base, plain), older, "");
        kind.expectTexts(fullForm("x", base, plain), older, fullForm("x", base + "2.0.0", typed));
    }
}

TEST(TaxonTest, IsUnchangedWhenItIsMovedFrom) {
    Taxon taxon("no typeid at all", "x", Format::PropertySets);
    const Taxon taken = std::move(taxon);
    EXPECT_EQ(taken.getTypeId(), "no typeid at all");
    EXPECT_EQ(taxon.getName(), "x");
}

} // namespace
} // namespace Parameters
