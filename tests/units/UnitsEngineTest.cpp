#include "support/Documents.h"
#include "support/Expectations.h"
#include "support/MemoryShortage.h"

#include <Units/Exceptions.h>
#include <Units/UnitsEngine.h>

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace Units {
namespace {

using Documents::fullForm;
using Documents::shortForm;
using Names = std::set<std::string>;
using Range = std::pair<SchemaFormat, SchemaFormat>;

const std::string length = "x:length-1.0.0";
const std::string metre = "x:metre-1.0.0";
const std::string piece = "x:piece-1.0.0";
const std::string lengthBase = "quovanta.unit:dimension-1.0.0";
const std::string unitBase = "quovanta.unit:unit-1.0.0";
const std::string name = Documents::nameConstant("N");

const std::string lengthText = Documents::dimension(length, "Length");
const std::string metreText = Documents::unit(metre, "Metre", length);
/// A unit without a dimension.
const std::string pieceText = Documents::shortForm(piece, unitBase, Documents::nameConstant("Piece"));

UnitsEngine engineWith(std::initializer_list<std::string> pending, std::initializer_list<std::string> finished = {}) {
    UnitsEngine engine;
    for (const std::string& text : finished) {
        engine.registerSchema(text);
    }
    engine.resolveSchemas();
    for (const std::string& text : pending) {
        engine.registerSchema(text);
    }
    return engine;
}

/// "unknown", "pending", or the text of a finished item.
std::string stateOf(const UnitsEngine& engine, const std::string& typeId) {
    try {
        return engine.getSchema(typeId);
    } catch (const UnrecognizedIdentifierException&) {
        return engine.isRegistered(typeId) ? "pending" : "unknown";
    }
}

TEST(UnitsEngine, AnswersForFinishedItemsOnly) {
    UnitsEngine engine;
    EXPECT_EQ(engine.registerSchema(metreText), Names{length});
    for (const std::string& typeId : {metre, std::string("x:nothing-1.0.0")}) {
        const std::string message = "Could not find any object with typeid " + typeId + ".";
        EXPECT_THROWS(engine.getUnit(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getDependencies(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getSchema(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getCompatibleSchemaFormatRange(typeId), UnrecognizedIdentifierException, message);
        EXPECT_THROWS(engine.getSchemaInFormat(typeId, SchemaFormat::PropertySets), UnrecognizedIdentifierException,
                      message);
    }
    EXPECT_EQ(engine.registerSchema(lengthText + "\n"), Names());
    EXPECT_EQ(engine.registerSchema(pieceText), Names());
    EXPECT_TRUE(engine.getAllUnits().empty());
    engine.resolveSchemas();

    EXPECT_EQ(engine.getAllUnits().size(), 2U);
    EXPECT_EQ(engine.getAllUnits().at(piece).getDimension(), std::nullopt);
    EXPECT_EQ(engine.getUnit(metre).getTypeId() + engine.getUnit(metre).getName(), metre + "Metre");
    EXPECT_EQ(engine.getUnit(metre).getDimension(), length);
    EXPECT_EQ(engine.getDependencies(metre), Names{length});
    EXPECT_EQ(engine.getDependencies(length), Names());
    EXPECT_EQ(engine.getSchema(length), lengthText + "\n");
    EXPECT_THROWS(engine.getUnit(length), UnrecognizedIdentifierException,
                  "Could not find any object with typeid x:length-1.0.0.");
}

TEST(UnitsEngine, RefusesFaultyDocuments) {
    const std::pair<std::string, std::string> cases[] = {
        {R"({"typeid":"t","schemaSpecification":"lumar-data-schema-2.0.0","schemaType":"enum"})",
         "Schema t does not represent a unit or a dimension."},
        {shortForm(length, "quovanta.spec:spec.bool-1.0.0", name),
         "Schema with typeid x:length-1.0.0 is already registered."},
        {shortForm("t", unitBase, name + R"(,{"id":"dimension","value":"x"})"), "A typedValue must be an object."},
    };
    for (const auto& [text, message] : cases) {
        UnitsEngine engine = engineWith({metreText}, {lengthText});
        EXPECT_THROWS(engine.registerSchema(text), ValidationException, message) << text;
        EXPECT_FALSE(engine.isRegistered("t")) << text;
        EXPECT_NO_THROW(engine.resolveSchemas()) << text;
        EXPECT_EQ(stateOf(engine, metre), metreText) << text;
    }
}

TEST(UnitsEngine, DropsEverythingPendingWhenADependencyIsMissing) {
    for (const std::string& dimension : {std::string("x:nothing-1.0.0"), metre, std::string("bad")}) {
        UnitsEngine engine = engineWith({pieceText, Documents::unit("worse", "W", "w")}, {lengthText, metreText});
        const bool isKnown = engine.isRegistered(dimension) || dimension == "bad";
        EXPECT_EQ(engine.registerSchema(Documents::unit("bad", "B", dimension)), isKnown ? Names() : Names{dimension});
        EXPECT_THROWS(engine.resolveSchemas(), ValidationException,
                      "Dependency " + dimension +
                          " in schema bad is missing or does not represent an object of the expected type.");
        EXPECT_FALSE(engine.isRegistered("bad") || engine.isRegistered("worse") || engine.isRegistered(piece));
        EXPECT_EQ(stateOf(engine, metre), metreText);
        EXPECT_EQ(engine.registerSchema(pieceText), Names());
        engine.resolveSchemas();
        EXPECT_EQ(engine.getAllUnits().size(), 2U);
    }
}

TEST(UnitsEngine, ConvertsWhatOlderReadersKnow) {
    constexpr auto oldForm = SchemaFormat::PropertySets;
    constexpr auto newForm = SchemaFormat::LumarDataSchema;
    const std::string refusal = "Cannot represent schema in requested format.";
    const std::string dimension = R"({"id":"dimension","typedValue":{"typeid":"x:length-1.0.0"}})";
    // Constants in another order than written, and some that are not read: a dimension has no dimension.
    for (const auto& [base, first, constants] :
         {std::tuple("my." + unitBase, dimension, name + "," + dimension),
          std::tuple("my." + lengthBase, std::string(R"({"id":"dimension","value":0})"), name)}) {
        const std::string text = fullForm("t", base, first + R"(,{"id":"other","value":1},)" + name);
        const UnitsEngine engine = engineWith({}, {lengthText, text});
        EXPECT_EQ(engine.getCompatibleSchemaFormatRange("t"), Range(oldForm, newForm));
        EXPECT_EQ(engine.getSchemaInFormat("t", newForm), text);
        EXPECT_EQ(engine.getSchemaInFormat("t", oldForm),
                  R"({"downgradedFrom":"3.0.0",)" + shortForm("t", base, constants).substr(1));
        EXPECT_THROWS(engine.getSchemaInFormat("t", static_cast<SchemaFormat>(2)), ValidationException, refusal);
    }

    for (const char* base : {"quovanta.unit:unit-2.0.0", "quovanta.unit:dimension-10.0.0"}) {
        const std::string text = fullForm("later", base, name);
        const UnitsEngine later = engineWith({}, {text});
        EXPECT_EQ(later.getCompatibleSchemaFormatRange("later"), Range(newForm, newForm));
        EXPECT_EQ(later.getSchemaInFormat("later", newForm), text);
        EXPECT_THROWS(later.getSchemaInFormat("later", oldForm), ValidationException, refusal);
    }
}

TEST(UnitsEngine, CopiesAnItemAsItStandsWithItsDimension) {
    UnitsEngine target;
    EXPECT_THROWS(target.copyItem(metre, target), UnrecognizedIdentifierException,
                  "Could not find any object with typeid x:metre-1.0.0.");
    const UnitsEngine source = engineWith({Documents::unit("waiting", "P", "unheard")}, {lengthText, metreText});
    target.copyItem(metre, source);
    EXPECT_EQ(stateOf(target, metre), metreText);
    EXPECT_EQ(stateOf(target, length), lengthText);
    EXPECT_EQ(stateOf(target, "waiting"), "unknown");
    // Known already, so that the source isn't asked.
    EXPECT_NO_THROW(target.copyItem(metre, UnitsEngine()));

    UnitsEngine pending;
    pending.copyItem(metre, engineWith({lengthText, metreText}));
    EXPECT_EQ(stateOf(pending, metre) + stateOf(pending, length), "pendingpending");
    pending.resolveSchemas();
    EXPECT_EQ(stateOf(pending, metre), metreText);

    UnitsEngine pendingDimension = engineWith({lengthText});
    pendingDimension.copyItem(metre, source);
    EXPECT_EQ(stateOf(pendingDimension, metre), metreText);
    EXPECT_EQ(stateOf(pendingDimension, length), "pending");

    target.copyItem("waiting", source);
    EXPECT_EQ(stateOf(target, "waiting"), "pending");
    EXPECT_FALSE(target.isRegistered("unheard"));
}

TEST(UnitsEngine, KeepsItsStateWhenMemoryIsShort) {
    const UnitsEngine source = engineWith({}, {lengthText, metreText});
    const UnitsEngine pending = engineWith({metreText, pieceText}, {lengthText});
    const std::pair<UnitsEngine, std::function<void(UnitsEngine&)>> changes[] = {
        {UnitsEngine(), [](UnitsEngine& engine) { engine.registerSchema(metreText); }},
        {UnitsEngine(), [&](UnitsEngine& engine) { engine.copyItem(metre, source); }},
        {pending, [&](UnitsEngine& engine) { engine = source; }},
        {pending, [](UnitsEngine& engine) { engine.resolveSchemas(); }},
    };
    const auto stateOfUnits = [](const UnitsEngine& engine) { return stateOf(engine, metre) + stateOf(engine, piece); };
    for (const auto& change : changes) {
        UnitsEngine changed = change.first;
        change.second(changed);
        failEachAllocation([&] { return change.first; }, change.second,
                           [&](UnitsEngine& engine) {
                               EXPECT_EQ(stateOfUnits(engine), stateOfUnits(change.first));
                               change.second(engine);
                               EXPECT_EQ(stateOfUnits(engine), stateOfUnits(changed));
                               EXPECT_EQ(stateOf(engine, length), stateOf(changed, length));
                           });
    }
}

} // namespace
} // namespace Units
