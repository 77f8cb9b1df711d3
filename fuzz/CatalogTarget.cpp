#include "Checks.h"
#include "Script.h"
#include "support/FinishedObjects.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <utility>

using namespace Parameters;

namespace {

/// Enough for what a script of the greatest length usually holds, and few enough to be quick.
constexpr std::size_t maximumLines = 60;

std::size_t engineOf(char digit) { return static_cast<unsigned char>(digit) % Fuzz::engineCount; }

class Run {
public:
    void perform(const std::string& line) {
        if (line.size() < 3) {
            return;
        }
        const char operation = line[0];
        const std::size_t index = engineOf(line[1]);
        const std::string argument = line.substr(3);
        const bool succeeded =
            Fuzz::succeeds([&] { perform(operation, engines_[index], engines_[engineOf(line[2])], argument); });

        const bool replaces = operation == Fuzz::Operation::copyEngine || operation == Fuzz::Operation::moveEngine;
        auto texts = textsIn(engines_[index]);
        if (!replaces) {
            Fuzz::require(succeeded || texts == texts_[index], "a failed call changes no finished object", line);
            Fuzz::require(std::includes(texts.begin(), texts.end(), texts_[index].begin(), texts_[index].end()),
                          "finished objects stay as they are", line);
        }
        texts_[index] = std::move(texts);
        for (std::size_t other = 0; replaces && other < Fuzz::engineCount; ++other) {
            texts_[other] = textsIn(engines_[other]);
        }
    }

    void checkAll() const {
        for (const ParametersEngine& engine : engines_) {
            Fuzz::checkQueries(engine);
        }
    }

private:
    static void perform(char operation, ParametersEngine& engine, ParametersEngine& other,
                        const std::string& argument) {
        using namespace Fuzz;
        if (operation == Operation::registerSchema) {
            engine.registerSchema(argument);
        } else if (operation == Operation::registerUnits) {
            engine.getUnitsEngine().registerSchema(argument);
        } else if (operation == Operation::import) {
            engine.registerSchemaWithContext(argument, other);
        } else if (operation == Operation::resolve) {
            engine.resolveSchemas();
        } else if (operation == Operation::readDirectly) {
            checkReading(engine, argument);
        } else if (operation == Operation::copyEngine) {
            const auto texts = textsIn(other);
            engine = other;
            require(textsIn(engine) == texts && textsIn(other) == texts, "a copy has what its source has");
        } else if (operation == Operation::moveEngine) {
            const auto texts = textsIn(other);
            ParametersEngine taken = std::move(other);
            other = ParametersEngine();
            engine = std::move(taken);
            require(textsIn(engine) == texts && (&engine == &other || textsIn(other).empty()), "a move takes all");
        } else if (const auto objects = objectsIn(other); objects.count(argument) == 0) {
            return;
        } else if (operation == Operation::registerObject) {
            objects.at(argument)(engine);
            require(objectsIn(engine).count(argument) == 1, "a registered object is found", argument);
        } else if (operation == Operation::writeTexts) {
            checkWrittenTexts(other, argument);
        }
    }

    std::array<ParametersEngine, Fuzz::engineCount> engines_;
    /// Of the finished objects.
    std::array<std::map<std::string, std::string>, Fuzz::engineCount> texts_;
};

} // namespace

/// A script of operations on a few engines.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto lines = Fuzz::linesOf(std::string(reinterpret_cast<const char*>(data), size));
    lines.resize(std::min(lines.size(), maximumLines));
    Run run;
    for (const std::string& line : lines) {
        run.perform(line);
    }
    run.checkAll();
    return 0;
}
