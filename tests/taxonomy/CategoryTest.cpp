#include "support/Objects.h"

namespace Parameters {
namespace {

using namespace Documents;
using Major = MajorCategoryComponent;
using Sub = SubCategoryComponent;

const Kind<Category> categories = {&ParametersEngine::registerCategory, &ParametersEngine::getCategory};
const std::string majorBase = "quovanta.talmo.category:majorCategory-";
const std::string subBase = "quovanta.talmo.category:subCategory-";
const std::string name = R"({"id":"name","value":"N"},)";
const std::string inO = R"({"id":"domain","typedValue":{"typeid":"o"}})";
const std::string belowM = R"({"id":"parent","typedValue":{"typeid":"m"}})";

std::string major(const std::string& constants) { return shortForm("x", majorBase + "1.0.0", constants); }
std::string sub(const std::string& constants) { return shortForm("x", subBase + "1.0.0", constants); }

TEST(CategoryTest, ReadsAndWritesReferences) {
    const std::string typedName = R"({"id":"name","typeid":"String","value":"N"},)";
    const std::string two = inO + R"(,{"id":"disciplines","typedValue":[{"typeid":"e"},{"typeid":"d"}]})";
    categories.expectTexts(fullForm("x", subBase + majorBase, two + "," + name + belowM), major(name + two),
                           fullForm("x", majorBase + "2.0.0", typedName + two));
    // A typedValue counts as the map that it stands for, in which the later of two equal keys replaces the other.
    const std::string oddO = R"({"id":"domain","typedValue":{"typeid":"?","typeid\u0000id":"o"}})";
    categories.expectTexts(major(R"({"id":"disciplines","value":[]},)" + name + oddO), major(name + inO), "");
    categories.expectTexts(fullForm("x", "acme." + subBase, name + belowM), sub(name + belowM),
                           fullForm("x", subBase + "2.0.0", typedName + belowM));
}

// Each text has the faults of later rows as well, so that the rows show which comes first.
TEST(CategoryTest, ReportsTheFirstFaultOfADocument) {
    const std::string bad = R"({"id":"disciplines","value":0},{"id":"parent","value":0})";
    const std::string strange = R"({"id":"disciplines","value":[{"typeid":"d"},{"typeid":"z"},{"typeid":"y"}]},)";
    const std::string notFound = " in schema x is missing or does not represent an object of the expected type.";
    expectRefused({{major(bad), "Schema x has an undefined name constant."},
                   {major(name + bad), "Expected an array of typedValue objects."},
                   {major(name + belowM), "Schema x has an undefined domain constant."},
                   {major(name + R"({"id":"domain","value":{"typeid":"o","other":"o"}})"),
                    "A typedValue object may not be empty and must contain a typeid attribute only."},
                   {major(name + strange + reference("domain", "a")), "Dependency z" + notFound},
                   {sub(bad), "Schema x has an undefined name constant."},
                   {sub(name + bad), "A typedValue must be an object."},
                   {sub(name + reference("parent", "p")), "Parent p of subcategory x is not a major category."}});
    const auto missing = fixture().registerSchema(major(name + strange + reference("domain", "a"))).first;
    EXPECT_EQ(missing, (std::set<std::string>{"a", "y", "z"}));
}

TEST(CategoryTest, IsCheckedAndCompletedWhenItIsRegistered) {
    const Taxon o("o", "stale", {});
    const Taxon z("z", "stale", {});
    const std::pair<Category, std::string> cases[] = {
        {{"x", "", Major(z, {}), {}}, "Name must not be empty."},
        {{"x", "N", Major(z, {o}), {}}, "Could not find domain with typeid z"},
        {{"x", "N", Major(o, {o}), {}}, "Could not find discipline with typeid o"},
        {{"x", "N", Sub("z"), {}}, "Could not find category with typeid z"},
        {{"x", "N", Sub("s"), {}}, "Parent s of subcategory x is not a major category."}};
    ParametersEngine engine = fixture();
    for (const auto& [category, message] : cases) {
        EXPECT_THROWS(engine.registerCategory(category), ValidationException, message);
    }
    engine.registerCategory({"x", "N", Major(o, {Taxon("e", "stale", {})}), {}});
    const Major component = *engine.getCategory("x").getMajorCategoryComponent();
    EXPECT_EQ(component.getDomain().getName() + component.getDisciplines()[0].getName(), "OE");
}

} // namespace
} // namespace Parameters
