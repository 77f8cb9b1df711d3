#include "support/MemoryShortage.h"
#include "support/ParameterDocuments.h"

#include <Parameters/Defaults.h>

#include <functional>

namespace Parameters {
namespace {

using namespace Documents;
using Answers = std::map<std::string, std::string>;

/// What is pending in the engine under test, in the order of its registration.
const Answers pendingTexts = {{"pending group", group("pending group", "G")},
                              {"pending length", dimension("pending length", "L")},
                              {"pending metre", unit("pending metre", "M", "pending length")},
                              {"pending sub", shortForm("pending sub", "quovanta.talmo.category:subCategory-1.0.0",
                                                        nameConstant("S") + "," + reference("parent", "m"))}};

/// Finished objects of all kinds, units and pending schemas; none of them imported.
ParametersEngine loadedEngine() {
    ParametersEngine engine = parameterFixture();
    engine.registerStringRange({"strings", RegexStringRangeComponent("a+"), Format::PropertySets});
    engine.registerParameter({"parameter", "P", engine.getSpec("Int64"), engine.getGroup("group"),
                              engine.getIntRange("ints"), "", "", false});
    for (const auto& pending : pendingTexts) {
        engine.registerSchema(pending.second);
    }
    return engine;
}

/// All that can be asked of an engine, as it is.
Answers answersNow(const ParametersEngine& engine) {
    Answers answers;
    for (const auto& object : objectsIn(engine)) {
        answers[object.first] = engine.getSchema(object.first);
    }
    for (const auto& entry : engine.getUnitsEngine().getAllUnits()) {
        answers[entry.first] = engine.getSchema(entry.first);
    }
    for (const std::string typeId : {"x", "length", "pending group", "pending length", "pending metre", "pending sub",
                                     "new length", "new metre"}) {
        answers.emplace(typeId, engine.isRegistered(typeId) ? "registered" : "unknown");
    }
    return answers;
}

/// The same with what becomes of the engine when it is resolved.
std::pair<Answers, Answers> answersOf(const ParametersEngine& engine) {
    ParametersEngine later = engine;
    later.resolveSchemas();
    return {answersNow(engine), answersNow(later)};
}

std::string concat(const std::set<std::string>& typeIds) {
    std::string text;
    for (const std::string& typeId : typeIds) {
        text += typeId + ",";
    }
    return text;
}

template <class Map> std::string keysOf(const Map& map) {
    std::string text;
    for (const auto& entry : map) {
        text += entry.first + ",";
    }
    return text;
}

/// The text of an exception where an operation is to fail, memory or not. A shortage goes through.
template <class Call> std::string refusalOf(const Call& call) {
    try {
        call();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "no refusal";
}

TEST(MemoryExhaustionTest, LeavesQueriesRepeatableAndNothingBehind) {
    using Engine = const ParametersEngine;
    const Parameter unregistered = [] {
        ParametersEngine engine = parameterFixture();
        return engine.readParameter(ranged());
    }();
    const std::pair<std::string, std::function<std::string(Engine&)>> queries[] = {
        {"getAllX", [](Engine& engine) { return keysOf(objectsIn(engine)); }},
        {"getDiscipline", [](Engine& engine) { return engine.getDiscipline("quovanta.spec:discipline-").getName(); }},
        {"getParameter", [](Engine& engine) { return engine.getParameter("parameter").getName(); }},
        {"no getSpec", [](Engine& engine) { return refusalOf([&] { return engine.getSpec("nothing"); }); }},
        {"isRegistered", [](Engine& engine) { return std::to_string(int(engine.isRegistered("pending metre"))); }},
        {"getDependencies", [](Engine& engine) { return concat(engine.getDependencies("distance")); }},
        {"of a parameter", [&](Engine& engine) { return concat(engine.getDependencies(unregistered)); }},
        {"getSchema", [](Engine& engine) { return engine.getSchema("parameter"); }},
        {"of a parameter", [&](Engine& engine) { return engine.getSchema(unregistered); }},
        {"older", [](Engine& engine) { return engine.getSchemaInCompatibleFormat(Version::V1, "distance"); }},
        {"downgraded", [](Engine& engine) { return engine.getSchemaInCompatibleFormat(Version::V1, "ints"); }},
        {"refused",
         [](Engine& engine) {
             return refusalOf([&] { return engine.getSchemaInCompatibleFormat(Version::V1, "Thing"); });
         }},
        {"of a parameter",
         [&](Engine& engine) { return engine.getSchemaInCompatibleFormat(Version::V1, unregistered); }},
        {"range",
         [](Engine& engine) { return std::to_string(int(engine.getCompatibleDataModelRange("parameter").second)); }},
        {"readParameter", [](Engine& engine) { return engine.readParameter(ranged()).getName(); }},
        {"refused readParameter",
         [](Engine& engine) { return refusalOf([&] { return engine.readParameter(R"(["a\n",)"); }); }},
        {"readValueType",
         [](Engine& engine) { return std::to_string(int(engine.readValueType(older("-1", "", "Bool")))); }},
        {"copy", [](Engine& engine) { return keysOf(ParametersEngine(engine).getAllSpecs()); }},
        {"units", [](Engine& engine) { return keysOf(engine.getUnitsEngine().getAllUnits()); }},
        {"getUnit", [](Engine& engine) { return engine.getUnitsEngine().getUnit("metre").getName(); }},
        {"of a unit", [](Engine& engine) { return concat(engine.getUnitsEngine().getDependencies("metre")); }},
        {"of a unit",
         [](Engine& engine) { return engine.getUnitsEngine().getSchemaInFormat("metre", Format::PropertySets); }},
        {"copied units",
         [](Engine& engine) { return Units::UnitsEngine(engine.getUnitsEngine()).getUnit("inch").getName(); }},
    };
    Engine engine = loadedEngine();
    const auto before = answersOf(engine);
    for (const auto& query : queries) {
        SCOPED_TRACE(query.first);
        const auto run = [&] {
            return failEachAllocation([] { return std::string(); },
                                      [&](std::string& result) { result = query.second(engine); },
                                      [](const std::string& result) { EXPECT_EQ(result, ""); });
        };
        EXPECT_EQ(run(), query.second(engine));
        // The first time makes constants.
        const std::ptrdiff_t blocks = MemoryShortage::liveBlocks();
        run();
        EXPECT_EQ(MemoryShortage::liveBlocks(), blocks);
    }
    EXPECT_EQ(answersOf(engine), before);
}

/// An engine that is about to take over an import of that name, beside the texts that a failed resolution has left.
ParametersEngine importingEngine(const std::string& name) {
    ParametersEngine engine = fixture();
    engine.registerSchema(shortForm("pending sub", "quovanta.talmo.category:subCategory-1.0.0",
                                    nameConstant(repeated("lost", 5000)) + "," + reference("parent", "nobody")));
    refusalOf([&] { engine.resolveSchemas(); });
    // A unit brings the import along without adding a text to the others.
    engine.registerSchemaWithContext(unit("x", "X", "new length"), fixture({discipline("new length", name)}));
    engine.registerSchema(dimension("new length", "L"));
    return engine;
}

/// Something that changes an engine.
struct Change {
    using Step = std::function<void(ParametersEngine&)>;

    std::string name;
    Step run;
    /// What a host does after a failure that may have left traces; none may be left where this is empty.
    Step recover = {};
    ParametersEngine start = loadedEngine();
};

std::vector<Change> changes() {
    const auto context = std::make_shared<const ParametersEngine>(loadedEngine());
    const auto other = std::make_shared<const ParametersEngine>(fixture({group("x", "Other")}));
    Answers texts = pendingTexts;
    texts.insert({{"x", ranged()}, {"new metre", unit("new metre", "M", "pending length")}});
    const auto import = [context](ParametersEngine& engine) {
        engine.registerSchemaWithContext(ranged(), *context);
        engine.resolveSchemas();
    };
    std::vector<Change> all = {
        {"registerSchema", [](auto& engine) { engine.registerSchema(ranged()); }},
        {"of a unit", [](auto& engine) { engine.registerSchema(unit("x", "X", "length")); }},
        {"refused", [](auto& engine) { refusalOf([&] { engine.registerSchema(group("x", "")); }); }},
        {"copy assignment", [other](auto& engine) { engine = *other; }},
        {"resolveSchemas", [](auto& engine) { engine.resolveSchemas(); },
         [](auto& engine) { engine.registerSchemas(pendingTexts); }},
        {"registerSchemas", [=](auto& engine) { engine.registerSchemas(texts); },
         [=](auto& engine) { engine.registerSchemas(texts); }},
        {"registerSchemaWithContext", import,
         [=](auto& engine) {
             // Drops the schema if it was registered and not all was copied.
             refusalOf([&] { engine.resolveSchemas(); });
             if (!engine.isRegistered("x")) {
                 import(engine);
             }
         },
         fixture()},
    };
    // Large texts are kept apart from others.
    for (const std::size_t size : {std::size_t(1), std::size_t(20000)}) {
        const std::string name(size, 'D');
        all.push_back({"import of " + std::to_string(size), [](auto& engine) { engine.resolveSchemas(); },
                       [name](auto& engine) {
                           engine = importingEngine(name);
                           engine.resolveSchemas();
                       },
                       importingEngine(name)});
    }
    for (const auto& [typeId, add] : objectsIn(*context)) {
        all.push_back({"object " + typeId, add, {}, needsOf(typeId, *context)});
    }
    return all;
}

TEST(MemoryExhaustionTest, LeavesAnEngineThatCanThenDoTheSame) {
    for (const Change& change : changes()) {
        SCOPED_TRACE(change.name);
        const auto before = answersOf(change.start);
        ParametersEngine changed = change.start;
        change.run(changed);
        const auto after = answersOf(changed);
        const ParametersEngine last =
            failEachAllocation([&] { return change.start; }, change.run,
                               [&](ParametersEngine& engine) {
                                   if (change.recover) {
                                       const Answers now = answersNow(engine);
                                       for (const auto& answer : before.first) {
                                           EXPECT_TRUE(answer.second[0] != '{' || answer == *now.find(answer.first))
                                               << answer.first;
                                       }
                                   } else {
                                       EXPECT_EQ(answersOf(engine), before);
                                   }
                                   (change.recover ? change.recover : change.run)(engine);
                                   EXPECT_EQ(answersOf(engine), after);
                               });
        EXPECT_EQ(answersOf(last), after);
    }
}

TEST(MemoryExhaustionTest, LetsTheConstantsBeMadeLater) {
    const auto names = [](std::string& result) {
        ParametersEngine engine;
        engine.registerSchema(group("x", "X"));
        result = Defaults::CreateLegacyStringBaseSpec().getName() + Defaults::BooleanPrimitiveType() +
                 Defaults::IntegerPrimitiveType() + Defaults::FloatPrimitiveType() +
                 Defaults::ReferencePrimitiveType() + Defaults::StringPrimitiveType() +
                 Defaults::CreateDefaultGroup(Format::LumarDataSchema).getName();
    };
    EXPECT_EQ(failEachAllocation([] { return std::string(); }, names, [](const std::string&) {}),
              "TextBoolInt64Float64ReferenceStringOther");
}

} // namespace
} // namespace Parameters
