#include "support/ParameterDocuments.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <iterator>
#include <random>

namespace Parameters {
namespace {

/// A set of items, by their index.
using ItemSet = std::bitset<64>;

struct Item {
    std::string typeId;
    std::string text;
    ItemSet references, dependencies;
};

/// What an engine should know, and what resolution needs.
struct Model {
    ItemSet finished, pending, imported, needed;

    [[nodiscard]] ItemSet known() const { return finished | pending | imported; }
};

enum class Operation { RegisterWithContext, RegisterSchema, RegisterObject, Resolve, RegisterBrokenText, Replace };

/// How often an operation comes up: for the numbers from that of the row before to below its own, of twelve.
constexpr struct {
    Operation operation;
    const char* name;
    unsigned below;
} choices[] = {{Operation::RegisterWithContext, "registerSchemaWithContext()", 3},
               {Operation::RegisterSchema, "registerSchema()", 7},
               {Operation::RegisterObject, "registration of the object", 9},
               {Operation::Resolve, "resolveSchemas()", 10},
               {Operation::RegisterBrokenText, "registerSchema() with a broken text", 11},
               {Operation::Replace, "replacement by another engine or a new one", 12}};

TEST(ModelTest, KnowsWhatAModelKnowsWhateverIsDone) {
    ParametersEngine source = parameterFixture();
    source.registerParameter({"x", "X", source.getSpec("quovanta.data:reference-1.0.0"), source.getGroup("group"),
                              source.getCategory("s"), "", "", false});
    auto objects = objectsIn(source);
    objects.erase("distance"); // for the sake of its unit
    const auto itemsOf = [&](const auto& typeIds) {
        ItemSet items;
        for (const std::string& typeId : typeIds) {
            items.set(static_cast<std::size_t>(std::distance(objects.begin(), objects.find(typeId))));
        }
        return items;
    };
    std::vector<Item> items;
    for (const auto& [typeId, add] : objects) {
        const std::string text = source.getSchema(typeId);
        const auto references = ParametersEngine().registerSchema(text).first;
        items.push_back({typeId, text, itemsOf(references), itemsOf(source.getDependencies(typeId))});
    }

    std::array<ParametersEngine, 3> engines;
    std::array<Model, 3> models;
    std::mt19937 random(1);
    for (std::size_t step = 0; step < 4000 && !HasFailure(); ++step) {
        const std::size_t number = random() % 12, index = random() % items.size(), other = random() % 3;
        const auto& choice = *std::find_if(std::begin(choices), std::end(choices),
                                           [&](const auto& candidate) { return number < candidate.below; });
        SCOPED_TRACE("step " + std::to_string(step) + ", " + choice.name);
        const Item& item = items[index];
        ParametersEngine& engine = engines[step % 3];
        Model& model = models[step % 3];
        const Model context = models[other];
        const ItemSet known = model.known();
        const bool isNew = !model.finished.test(index) && !model.pending.test(index);
        const auto takeIn = [&](const ItemSet& imported) {
            model.imported |= imported;
            if (isNew) {
                model.pending.set(index);
                model.needed |= item.references;
            }
        };
        bool expected = false, succeeds = true;
        try {
            switch (choice.operation) {
            case Operation::RegisterWithContext: {
                const ItemSet lacking = item.references & ~known, wanted = lacking & context.known();
                expected = isNew && (wanted & ~context.finished).none();
                ItemSet imported = expected ? wanted : ItemSet();
                for (std::size_t next = 0; expected && next < items.size(); ++next) {
                    imported |= wanted.test(next) ? items[next].dependencies : ItemSet();
                }
                takeIn(imported.reset(index) & ~known);
                EXPECT_EQ(itemsOf(engine.registerSchemaWithContext(item.text, engines[other])), lacking & ~wanted);
                break;
            }
            case Operation::RegisterSchema:
                expected = isNew;
                takeIn({});
                EXPECT_EQ(itemsOf(engine.registerSchema(item.text).first), item.references & ~known);
                break;
            case Operation::RegisterObject:
                expected = isNew && (item.references & ~model.finished).none();
                model.finished.set(index, expected || model.finished.test(index));
                objects.at(item.typeId)(engine);
                break;
            case Operation::Resolve:
                expected = (model.needed & ~known).none();
                model = {expected ? known : model.finished, {}, {}, {}};
                engine.resolveSchemas();
                break;
            case Operation::RegisterBrokenText:
                engine.registerSchema(item.text.substr(1));
                break;
            case Operation::Replace:
                expected = true;
                const bool isReset = random() % 3 == 0;
                engine = isReset ? ParametersEngine() : engines[other];
                model = isReset ? Model() : context;
                break;
            }
        } catch (const std::logic_error&) {
            succeeds = false;
        }
        EXPECT_EQ(succeeds, expected) << item.typeId;
        const auto finished = objectsIn(engine);
        for (std::size_t next = 0; next < items.size(); ++next) {
            const std::string& typeId = items[next].typeId;
            EXPECT_EQ(engine.isRegistered(typeId), model.known().test(next)) << typeId;
            EXPECT_EQ(finished.count(typeId) != 0, model.finished.test(next)) << typeId;
        }
        if (finished.count(item.typeId) != 0) {
            EXPECT_EQ(itemsOf(engine.getDependencies(item.typeId)), item.dependencies);
        }
    }
}

} // namespace
} // namespace Parameters
