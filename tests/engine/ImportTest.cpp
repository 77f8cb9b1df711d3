#include "support/ParameterDocuments.h"

#include <algorithm>
#include <functional>
#include <set>

namespace Parameters {
namespace {

using namespace Documents;
using TypeIds = std::set<std::string>;

TEST(ImportTest, BringsAlongWhatIsNeededAndNotYetThere) {
    const ParametersEngine context = parameterFixture();
    ParametersEngine engine;
    engine.registerSchema(group("group", "Own"));
    EXPECT_EQ(engine.registerSchemaWithContext(ranged("group", "distance"), context), TypeIds());
    EXPECT_TRUE(objectsIn(engine).empty());
    engine.resolveSchemas();
    EXPECT_EQ(objectsIn(engine).size(), 4u) << "distance, group, ints, x";
    for (const std::string typeId : {"distance", "ints", "metre"}) {
        EXPECT_EQ(engine.getSchema(typeId), context.getSchema(typeId));
    }
    EXPECT_EQ(engine.getParameter("x").getGroup().getName(), "Own");
}

TEST(ImportTest, LeavesWhatItHasDoneUntilItFails) {
    ParametersEngine context = parameterFixture();
    context.registerSchema(group("pending", "Pending"));
    ParametersEngine engine;
    EXPECT_THROWS(engine.registerSchemaWithContext(ranged("pending", "distance"), context),
                  UnrecognizedIdentifierException, "Could not find any object with typeid pending.");
    EXPECT_TRUE(engine.isRegistered("x") && engine.isRegistered("length") && engine.isRegistered("metre"));
    EXPECT_FALSE(engine.isRegistered("distance") || engine.isRegistered("ints"));

    engine = ParametersEngine();
    engine.registerSchema(unit("metre", "Metre", "length"));
    EXPECT_THROWS(engine.registerSchemaWithContext(ranged("group", "distance"), context), ValidationException,
                  "Could not find unit with typeid metre.");
    EXPECT_THROWS(engine.resolveSchemas(), ValidationException,
                  "Dependency group in schema x is missing or does not represent an object of the expected type.");
    EXPECT_FALSE(engine.isRegistered("x") || engine.isRegistered("ints"));
    EXPECT_EQ(engine.registerSchemaWithContext(ranged("group", "?"), engine), (TypeIds{"?", "group", "ints"}));
}

TEST(ImportTest, KeepsWhatItHasCopiedBeforeACopyThatIsRefused) {
    ParametersEngine context = parameterFixture();
    context.registerStringRange({"strings", RegexStringRangeComponent("a"), {}});
    context.registerParameter({"p", "P", context.getSpec("Bool"), context.getGroup("group"), {}, "", "", false});
    const Texts order = {"choices", "floats", "ints",     "strings", "o",     "major", "s",
                         "d",       "Bool",   "distance", "old",     "group", "p"};
    std::string all;
    for (const std::string& typeId : order) {
        all += (all.empty() ? R"({"typeid":")" : R"(,{"typeid":")") + typeId + R"("})";
    }
    const std::string text = shortForm("x", "quovanta.talmo.category:majorCategory-1.0.0",
                                       nameConstant("X") + R"(,{"id":"disciplines","typedValue":[)" + all + "]}," +
                                           reference("domain", "o"));
    struct Obstacle {
        std::function<void(ParametersEngine&)> add;
        std::string refused, message;
    };
    const Obstacle obstacles[] = {
        {[](ParametersEngine& engine) {
             engine.registerDomain({"other", "O", {}});
             engine.registerCategory({"top", "T", MajorCategoryComponent(engine.getDomain("other"), {}), {}});
             engine.registerCategory({"m", "M", SubCategoryComponent("top"), {}});
         },
         "s", "Parent m of subcategory s is not a major category."},
        {[](ParametersEngine& engine) { engine.registerSchema(unit("metre", "Metre", "length")); }, "distance",
         "Could not find unit with typeid metre."}};
    for (const auto& [add, refused, message] : obstacles) {
        ParametersEngine engine;
        add(engine);
        EXPECT_THROWS(engine.registerSchemaWithContext(text, context), ValidationException, message);
        const auto end = std::find(order.begin(), order.end(), refused);
        for (auto typeId = order.begin(); typeId != order.end(); ++typeId) {
            EXPECT_EQ(engine.isRegistered(*typeId), typeId < end) << *typeId << " where " << refused << " is refused";
        }
    }
}

TEST(ImportTest, WalksAgainWhatIsNoLongerHere) {
    const auto sub = [](const std::string& typeId, const std::string& parent) {
        return shortForm(typeId, "quovanta.talmo.category:subCategory-1.0.0",
                         nameConstant("Sub") + "," + reference("parent", parent));
    };
    ParametersEngine context = parameterFixture();
    context.registerDiscipline({"taught", "Taught", {}});
    context.registerCategory(
        {"top", "Top", MajorCategoryComponent(context.getDomain("o"), {context.getDiscipline("taught")}), {}});
    for (const std::string typeId : {"first", "second"}) {
        context.registerCategory({typeId, "C", SubCategoryComponent("top"), {}});
    }
    ParametersEngine engine;
    // Hides the parent from the closure, but not what it lists.
    engine.registerSchema(group("top", "Own"));
    engine.registerSchemaWithContext(sub("x", "first"), context);
    EXPECT_TRUE(engine.isRegistered("first") && engine.isRegistered("taught"));

    ParametersEngine assigned = engine;
    assigned = ParametersEngine();
    assigned.registerSchema(group("top", "Own"));
    EXPECT_THROWS(engine.resolveSchemas(), ValidationException,
                  "Parent first of subcategory x is not a major category.");
    EXPECT_FALSE(engine.isRegistered("taught"));
    engine.registerSchema(group("top", "Own"));
    for (ParametersEngine* each : {&engine, &assigned}) {
        each->registerSchemaWithContext(sub("y", "second"), context);
        EXPECT_TRUE(each->isRegistered("second") && each->isRegistered("taught"));
    }
}

TEST(ImportTest, GivesWayToWhatIsRegisteredLaterWhateverItsKind) {
    ParametersEngine engine;
    engine.registerSchemaWithContext(ranged("group", "Bool"), parameterFixture());
    engine.registerSchema(domain("ints", "Later"));
    engine.registerGroup(Taxon("group", "Later", Format::PropertySets));
    engine.resolveSchemas();
    EXPECT_EQ(engine.getSchema("ints"), domain("ints", "Later"));
    EXPECT_TRUE(engine.getAllIntRanges().empty());
    EXPECT_EQ(engine.getParameter("x").getGroup().getName(), "Later");
}

} // namespace
} // namespace Parameters
