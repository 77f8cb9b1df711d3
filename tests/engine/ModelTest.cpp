#include "support/ParameterDocuments.h"

#include <array>
#include <random>

namespace Parameters {
namespace {

/// A set of items, one bit for each.
using Mask = unsigned long long;

struct Item {
    std::string typeId;
    std::string text;
    Mask references, dependencies;
};

/// What an engine should know, and what resolution needs.
struct Model {
    Mask finished = 0, pending = 0, imported = 0, needed = 0;
};

TEST(ModelTest, KnowsWhatAModelKnowsWhateverIsDone) {
    ParametersEngine source = parameterWorkshop();
    source.registerParameter({"x", "X", source.getSpec("quovanta.data:reference-1.0.0"), source.getGroup("group"),
                              source.getCategory("s"), "", "", false});
    auto objects = objectsIn(source);
    objects.erase("distance"); // for the sake of its unit
    const auto maskOf = [&](const auto& typeIds) {
        Mask mask = 0;
        for (const std::string& typeId : typeIds) {
            mask |= Mask(1) << std::distance(objects.begin(), objects.find(typeId));
        }
        return mask;
    };
    std::vector<Item> items;
    for (const auto& [typeId, add] : objects) {
        const std::string text = source.getSchema(typeId);
        const auto references = ParametersEngine().registerSchema(text).first;
        items.push_back({typeId, text, maskOf(references), maskOf(source.getDependencies(typeId))});
    }

    std::array<ParametersEngine, 3> engines;
    std::array<Model, 3> models;
    std::mt19937 random(1);
    for (std::size_t step = 0; step < 4000 && !HasFailure(); ++step) {
        const std::size_t operation = random() % 12, index = random() % items.size(), other = random() % 3;
        SCOPED_TRACE("step " + std::to_string(step) + ", operation " + std::to_string(operation));
        const Item& item = items[index];
        const Mask bit = Mask(1) << index;
        ParametersEngine& engine = engines[step % 3];
        Model& model = models[step % 3];
        const Model context = models[other];
        const Mask known = model.finished | model.pending | model.imported;
        const bool isNew = ((model.finished | model.pending) & bit) == 0;
        bool expected = false, succeeds = true;
        try {
            if (operation < 7) {
                const bool imports = operation < 3;
                const Mask lacking = item.references & ~known;
                const Mask wanted = imports ? lacking & (context.finished | context.pending | context.imported) : 0;
                expected = isNew && (wanted & ~context.finished) == 0;
                model.pending |= isNew ? bit : 0;
                model.needed |= isNew ? item.references : 0;
                for (std::size_t next = 0; expected && next < items.size(); ++next) {
                    const bool isWanted = (wanted >> next & 1) != 0;
                    model.imported |= isWanted ? (Mask(1) << next | items[next].dependencies) & ~(known | bit) : 0;
                }
                EXPECT_EQ(maskOf(imports ? engine.registerSchemaWithContext(item.text, engines[other])
                                         : engine.registerSchema(item.text).first),
                          lacking & ~wanted);
            } else if (operation < 9) {
                expected = isNew && (item.references & ~model.finished) == 0;
                model.finished |= expected ? bit : 0;
                objects.at(item.typeId)(engine);
            } else if (operation == 9) {
                expected = (model.needed & ~known) == 0;
                model = {expected ? known : model.finished};
                engine.resolveSchemas();
            } else if (operation == 10) {
                engine.registerSchema(item.text.substr(1));
            } else {
                expected = true;
                const bool isReset = random() % 3 == 0;
                engine = isReset ? ParametersEngine() : engines[other];
                model = isReset ? Model() : context;
            }
        } catch (const std::logic_error&) {
            succeeds = false;
        }
        EXPECT_EQ(succeeds, expected) << item.typeId;
        const auto finished = objectsIn(engine);
        for (std::size_t next = 0; next < items.size(); ++next) {
            const std::string& typeId = items[next].typeId;
            const Mask all = model.finished | model.pending | model.imported;
            EXPECT_EQ(engine.isRegistered(typeId), (all >> next & 1) != 0) << typeId;
            EXPECT_EQ(finished.count(typeId), model.finished >> next & 1) << typeId;
        }
        if (finished.count(item.typeId) != 0) {
            EXPECT_EQ(maskOf(engine.getDependencies(item.typeId)), item.dependencies);
        }
    }
}

} // namespace
} // namespace Parameters
