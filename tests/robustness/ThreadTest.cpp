#include "support/ParameterDocuments.h"

#include <Parameters/Defaults.h>

#include <gmock/gmock.h>

#include <array>
#include <atomic>
#include <thread>

// What these find is mostly seen by the thread sanitizer alone.

namespace Parameters {
namespace {

using namespace Documents;

constexpr std::size_t threadCount = 4;

/// Runs work, which makes a result, in several threads that start together, and returns the results.
template <class Work> auto inThreads(const Work& work) {
    std::array<decltype(work()), threadCount> results;
    std::array<std::thread, threadCount> threads;
    std::atomic<std::size_t> waiting = threadCount;
    for (std::size_t i = 0; i < threadCount; ++i) {
        threads[i] = std::thread([&, i] {
            for (--waiting; waiting != 0;) {
                std::this_thread::yield();
            }
            results[i] = work();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return results;
}

/// What queries of all sorts say.
std::string answersOf(const ParametersEngine& engine) {
    std::string answers;
    for (const auto& object : objectsIn(engine)) {
        const std::string& typeId = object.first;
        const auto range = engine.getCompatibleDataModelRange(typeId);
        answers += engine.getSchema(typeId) + engine.getSchemaInCompatibleFormat(range.second, typeId);
        for (const std::string& dependency : engine.getDependencies(typeId)) {
            answers += dependency + std::to_string(int(engine.isRegistered(dependency)));
        }
    }
    const Parameter parameter = engine.readParameter(ranged());
    return answers + Defaults::CreateLegacyIntegerBaseSpec().getName() + Defaults::BooleanPrimitiveType() +
           Defaults::IntegerPrimitiveType() + Defaults::FloatPrimitiveType() + Defaults::ReferencePrimitiveType() +
           Defaults::StringPrimitiveType() + engine.getSchema(parameter) + parameter.getSpec().getName() +
           std::to_string(static_cast<int>(engine.readValueType(older("-1", "", "Bool")))) +
           engine.getDiscipline("quovanta.spec:discipline-3").getName() +
           ParametersEngine(engine).getUnitsEngine().getUnit("metre").getName();
}

TEST(ThreadTest, QueriesOfOneEngineRunSideBySide) {
    const ParametersEngine engine = parameterFixture();
    const auto answers = inThreads([&] { return answersOf(engine); });
    EXPECT_THAT(answers, testing::Each(answersOf(engine)));
}

TEST(ThreadTest, DistinctEnginesRunSideBySide) {
    // The engines come first, so that what is made on first use is made by all of them at once.
    const auto answers = inThreads([] { return answersOf(parameterFixture()); });
    EXPECT_THAT(answers, testing::Each(answersOf(parameterFixture())));
}

TEST(ThreadTest, OneEngineIsTheContextOfSeveral) {
    const ParametersEngine context = parameterFixture();
    const auto schemas = inThreads([&] {
        ParametersEngine engine;
        engine.registerSchemaWithContext(ranged(), context);
        engine.resolveSchemas();
        return engine.getSchema("distance") + engine.getUnitsEngine().getSchema("metre") + engine.getSchema("x");
    });
    EXPECT_THAT(schemas, testing::Each(context.getSchema("distance") + context.getSchema("metre") + ranged()));
}

} // namespace
} // namespace Parameters
