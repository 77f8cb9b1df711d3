#include "Checks.h"

#include "engine/Kinds.h"
#include "schema/DataModels.h"
#include "support/FinishedObjects.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace Fuzz {

using namespace Parameters;

namespace {

static_assert(std::tuple_size_v<decltype(kindRows)> == AllKinds::size(), "a kind of the library has no row");

std::size_t countOfObjects(const ParametersEngine& engine) {
    std::size_t count = 0;
    forEachKind([&](const auto& row) { count += (engine.*row.getAll)().size(); });
    return count;
}

/// Whether the engine makes up a taxon, which need not be registered.
bool isDefaultTaxon(const ParametersEngine& engine, const std::string& typeId) {
    return succeeds([&] { static_cast<void>(engine.getDiscipline(typeId)); }) ||
           succeeds([&] { static_cast<void>(engine.getGroup(typeId)); });
}

/// Whether a range excludes nothing. No constant is written for it, so that its parameter reads back without a range.
struct LimitsNothing {
    template <class Range> bool operator()(const Range& /*range*/) const { return false; }
    bool operator()(const FloatRange& range) const { return !range.isBoundFromBottom() && !range.isBoundFromTop(); }
    bool operator()(const IntRange& range) const { return !range.isBoundFromBottom() && !range.isBoundFromTop(); }
    bool operator()(const StringRange& range) const {
        return !range.getRegexStringRangeComponent() && !range.getSetStringRangeComponent();
    }
};

/// Whether a boundary came out too big for a double when it was read. Its object keeps the text that said it, but no
/// number of JSON is written for it.
struct HasInfiniteBoundary {
    template <class Range> bool operator()(const Range& /*range*/) const { return false; }
    bool operator()(const FloatRange& range) const {
        return std::isinf(range.getBottomBoundary()) || std::isinf(range.getTopBoundary());
    }
};

/// Whether the object can be taken into an engine that has what it needs, and texts can say what it is.
bool hasWrittenForm(const ParametersEngine& engine, const std::string& typeId, ParametersEngine needs) {
    const auto specs = engine.getAllSpecs();
    const auto spec = specs.find(typeId);
    const bool isSpec = spec != specs.end();
    const auto parameters = engine.getAllParameters();
    const auto parameter = parameters.find(typeId);
    const bool isParameter = parameter != parameters.end();
    try {
        objectsIn(engine).at(typeId)(needs);
    } catch (const ValidationException& exception) {
        // Documents make specs and parameters that could not be registered directly; imported objects give way.
        const std::string_view message = exception.what();
        const bool isNothingFound = message.rfind("Could not find ", 0) == 0 || message.rfind("Parent ", 0) == 0;
        require(isSpec || isParameter || isNothingFound, "a finished object may be registered elsewhere", message);
        return false;
    }
    if (isParameter && (std::visit(LimitsNothing(), parameter->second.getRange()) ||
                        std::visit(HasInfiniteBoundary(), parameter->second.getRange()))) {
        return false;
    }
    const auto floatRanges = engine.getAllFloatRanges();
    const auto floatRange = floatRanges.find(typeId);
    if (floatRange != floatRanges.end() && HasInfiniteBoundary()(floatRange->second)) {
        return false;
    }
    // Old and unknown bases of specs give no value type, which no text can say.
    const auto* valueType = isSpec ? std::get_if<std::string>(&spec->second.getValueTypeId()) : nullptr;
    return valueType == nullptr || !valueType->empty();
}

/// Numbers with many digits or with an exponent are not read to the last bit, and so not written the same again.
bool hasInexactNumber(const std::string& text) {
    std::size_t digits = 0;
    for (const char character : text) {
        const bool isDigit = character == '.' || (character >= '0' && character <= '9');
        if (digits >= 16 || (digits != 0 && (character == 'e' || character == 'E'))) {
            return true;
        }
        digits = isDigit ? digits + 1 : 0;
    }
    return false;
}

/// Each unit is written in the formats that it is said to have, and read back from each of these texts.
void checkUnits(const Units::UnitsEngine& units) {
    using Units::SchemaFormat;
    for (const auto& [typeId, unit] : units.getAllUnits()) {
        const auto [lowest, highest] = units.getCompatibleSchemaFormatRange(typeId);
        for (const SchemaFormat format : {SchemaFormat::PropertySets, SchemaFormat::LumarDataSchema}) {
            std::string text;
            const bool isWritten = succeeds([&, &id = typeId] { text = units.getSchemaInFormat(id, format); });
            require(isWritten == (lowest <= format && format <= highest), "what is compatible is written", typeId);
            if (isWritten) {
                Units::UnitsEngine reader;
                reader.registerSchema(text);
                for (const std::string& dimension : units.getDependencies(typeId)) {
                    reader.copyItem(dimension, units);
                }
                reader.resolveSchemas();
                const Units::Unit read = reader.getUnit(typeId);
                require(read.getName() == unit.getName() && read.getDimension() == unit.getDimension(),
                        "a text of a unit reads back", text);
            }
        }
    }
}

} // namespace

void require(bool holds, std::string_view rule, std::string_view about) {
    if (!holds) {
        std::fprintf(stderr, "FINDING: %.*s: %.*s\n", static_cast<int>(rule.size()), rule.data(),
                     static_cast<int>(about.size()), about.data());
        std::abort();
    }
}

void checkQueries(const ParametersEngine& engine) {
    checkUnits(engine.getUnitsEngine());
    const auto objects = objectsIn(engine);
    require(objects.size() == countOfObjects(engine), "a typeid is that of one object");
    for (const auto& object : objects) {
        const std::string& typeId = object.first;
        require(engine.isRegistered(typeId), "a finished object is registered", typeId);
        std::set<std::string> dependencies;
        succeeds([&] { dependencies = engine.getDependencies(typeId); });
        for (const std::string& other : dependencies) {
            require(engine.isRegistered(other) || isDefaultTaxon(engine, other), "a dependency is known", other);
        }
    }
}

void checkWrittenTexts(const ParametersEngine& engine, const std::string& typeId) {
    ParametersEngine copy = engine;
    require(!succeeds([&] { objectsIn(engine).at(typeId)(copy); }), "nothing is registered twice", typeId);
    ParametersEngine needs;
    if (!succeeds([&] { needs = needsOf(typeId, engine); }) || !hasWrittenForm(engine, typeId, needs)) {
        return;
    }
    const auto [lowest, highest] = engine.getCompatibleDataModelRange(typeId);
    for (std::size_t i = 0; i < Frame::dataModels.size(); ++i) {
        const auto version = static_cast<DataModelVersion>(i);
        std::string text, written, again;
        const bool isWritten = succeeds([&] { text = engine.getSchemaInCompatibleFormat(version, typeId); });
        require(isWritten == (lowest <= version && version <= highest), "what is compatible is written", typeId);
        if (!isWritten) {
            continue;
        }
        require(succeeds([&] { written = writtenAgain(typeId, text, version, needs); }), "a text reads back", text);
        require(succeeds([&] { again = writtenAgain(typeId, written, version, needs); }), "a text reads back", written);
        if (!hasInexactNumber(text + written)) {
            const bool isRegistered = text == engine.getSchema(typeId);
            require(isRegistered || written == unmarked(text), "a text holds all of an object", text);
            require(written == again, "a text is written the same again", written);
        }
    }
}

void checkReading(const ParametersEngine& engine, const std::string& text) {
    static_cast<void>(engine.readValueType(text));
    std::optional<Parameter> parameter;
    if (!succeeds([&] { parameter = engine.readParameter(text); })) {
        return;
    }
    ParametersEngine other = engine;
    const std::string& typeId = parameter->getTypeId();
    const bool isRegistered = succeeds([&] { other.registerParameter(*parameter); });
    std::set<std::string> dependencies;
    const bool hasDependencies = succeeds([&] { dependencies = engine.getDependencies(*parameter); });
    require(isRegistered || !hasDependencies, "dependencies are those of what can be registered", typeId);
    if (isRegistered) {
        // Both fail for an imported subcategory whose parent gave way.
        std::set<std::string> later;
        const bool hasLater = succeeds([&] { later = other.getDependencies(typeId); });
        require(hasDependencies == hasLater && dependencies == later, "dependencies are the same once registered",
                typeId);
        require(engine.getSchema(*parameter) == other.getSchema(typeId), "a text is the same once registered", typeId);
        checkWrittenTexts(other, typeId);
    }
}

} // namespace Fuzz
