#include "schema/Text.h"
#include "schema/UnitsErrors.h"
#include "schema/Vocabulary.h"
#include "specs/ContextWords.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/SpecData.h"
#include "specs/SpecSchema.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Defaults.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Parameters {

namespace {

constexpr std::string_view valueAttributes =
    "Spec schema with \"value\" property must specify its type using exactly one of the \"typeid\", \"anyOf\", or "
    "\"oneOf\" attributes.";

/// The "typeid" attribute of each object in an array. An array, or an element, that is of another form gets the
/// message.
std::vector<std::string> readTypeIdObjects(const JSON& json, bool (*sizeIsRight)(std::uint32_t),
                                           const std::string& message) {
    if (!json.isArray() || !sizeIsRight(json.getSize())) {
        json.raise(message);
    }
    std::vector<std::string> typeIds;
    for (const JSON& element : json.getArray()) {
        const auto typeId = readTypeIdAttribute(element);
        if (!typeId) {
            json.raise(message);
        }
        typeIds.emplace_back(*typeId);
    }
    return typeIds;
}

AnyOf readAnyOf(const SchemaDocument& document, const JSON& json) {
    const auto typeIds = readTypeIdObjects(
        json, [](std::uint32_t size) { return size == 1; },
        joined({"Attribute \"anyOf\" in \"value\" property of schema ", document.typeId,
                " expects an array containing exactly one object with a \"typeid\" string attribute."}));
    return AnyOf(typeIds.front());
}

OneOf readOneOf(const SchemaDocument& document, const JSON& json) {
    return OneOf(readTypeIdObjects(
        json, [](std::uint32_t size) { return size > 0; },
        joined({"Attribute \"oneOf\" in \"value\" property of schema ", document.typeId,
                " expects a non-empty array of objects containing a \"typeid\" string attribute."})));
}

Context readContext(const JSON& property) {
    if (!property.hasMember("context")) {
        return Context::Single;
    }
    const std::string_view word = readString(property.getMember("context"));
    const auto* named = std::find_if(contextWords.begin(), contextWords.end(),
                                     [&](const ContextWord& candidate) { return candidate.word == word; });
    if (named == contextWords.end()) {
        property.raise("Expected an array/map/single context.");
    }
    return named->context;
}

ComplexSpecSchema readValueProperty(const SchemaDocument& document, const JSON& property) {
    ComplexSpecSchema schema;
    if (const auto typeId = readTypeIdAttribute(property)) {
        schema.value = std::string(*typeId);
    }
    const auto requireUnset = [&] {
        if (schema.value) {
            property.raise(std::string(valueAttributes));
        }
    };
    if (property.hasMember("anyOf")) {
        requireUnset();
        schema.value = readAnyOf(document, property.getMember("anyOf"));
    }
    if (property.hasMember("oneOf")) {
        requireUnset();
        schema.value = readOneOf(document, property.getMember("oneOf"));
    }
    if (!schema.value) {
        property.raise(std::string(valueAttributes));
    }
    schema.context = readContext(property);
    return schema;
}

/// The shape that a base schema gives a spec, and the name if the document gives none.
struct SpecShape {
    std::string_view prefix;
    std::optional<std::string_view> defaultName;
    void (*readBody)(const SchemaDocument& document, SpecSchema& schema);
};

void readSimpleBody(const SchemaDocument& /*document*/, SpecSchema& /*schema*/) {}

void readMeasurableBody(const SchemaDocument& document, SpecSchema& schema) {
    const auto units = readTypedValueArrayConstant(document, "applicableUnits", std::vector<std::string_view>());
    schema.shape = MeasurableSpecSchema{{units.begin(), units.end()}, readTypedValueConstant(document, "storageUnit")};
}

void readComplexBody(const SchemaDocument& document, SpecSchema& schema) {
    auto& body = schema.shape.emplace<ComplexSpecSchema>();
    readMembers(document.properties, MemberHandler{Frame::value, [&](const JSON& property) {
                                                       body = readValueProperty(document, property);
                                                   }});
}

constexpr SpecShape simpleShape(const PrimitiveSpec& spec) {
    return {spec.base.prefix, spec.defaultName, readSimpleBody};
}

/// In the order in which a base schema is compared with them.
constexpr std::array<SpecShape, 6> shapes = {{
    simpleShape(primitiveSpecs[0]),
    simpleShape(primitiveSpecs[1]),
    simpleShape(primitiveSpecs[2]),
    simpleShape(primitiveSpecs[3]),
    {Vocabulary::measurableSpec.prefix, std::nullopt, readMeasurableBody},
    {Vocabulary::generalSpec.prefix, std::nullopt, readComplexBody},
}};

/// The discipline under its typeid. Those of the base discipline need none registered and are of the legacy format,
/// whichever version they name.
Taxon resolveDiscipline(std::string_view typeId, const SpecSchema& schema, const StoreList<Taxon>& disciplineStores) {
    if (!containsPrefix(schema.discipline.typeId, Vocabulary::discipline.prefix)) {
        return findDependency(disciplineStores, typeId, schema.discipline);
    }
    return {std::string(schema.discipline.typeId), std::string(Vocabulary::defaultDisciplineName),
            Units::SchemaFormat::PropertySets};
}

const Units::Unit& resolveUnit(std::string_view typeId, std::string_view constant, const TypeIdKey& unit,
                               UnitFinder& units) {
    const Units::Unit* found = units.find(unit);
    if (found == nullptr) {
        throw ValidationException(joined({"Typeid ", unit.typeId, " ", constant, " constant in measurable spec schema ",
                                          typeId, " does not belong to a unit."}));
    }
    return *found;
}

Measurable resolveMeasurable(std::string_view typeId, const MeasurableSpecSchema& schema, UnitFinder& units) {
    const Units::Unit storage = resolveUnit(typeId, "for storageUnit", schema.storageUnit, units);
    std::vector<Units::Unit> applicable;
    applicable.reserve(schema.applicableUnits.size());
    for (const TypeIdKey& unit : schema.applicableUnits) {
        applicable.push_back(resolveUnit(typeId, "in applicableUnits", unit, units));
    }
    return {applicable, storage};
}

/// Only these exact versions stand for a value type; any other has the empty name.
ValueTypeId valueTypeOfBase(std::string_view baseSchema) {
    for (const PrimitiveSpec& primitive : primitiveSpecs) {
        if (isExactly(baseSchema, primitive.base.typeId)) {
            return primitive.type;
        }
    }
    if (isExactly(baseSchema, Vocabulary::legacyMeasurableSpec)) {
        return LegacyPrimitiveType::Float;
    }
    if (isExactly(baseSchema, Vocabulary::measurableSpec.shortFrame) ||
        isExactly(baseSchema, Vocabulary::measurableSpec.fullFrame)) {
        return Defaults::FloatPrimitiveType();
    }
    if (isExactly(baseSchema, Vocabulary::generalSpec.shortFrame)) {
        return LegacyPrimitiveType::General;
    }
    return std::string();
}

/// What a complex spec declares goes before what its base stands for.
ValueTypeId resolveValueType(SpecSchema& schema) {
    if (auto* complex = std::get_if<ComplexSpecSchema>(&schema.shape)) {
        if (complex->value) {
            return *std::move(complex->value);
        }
        if (schema.schemaFormat != Units::SchemaFormat::PropertySets) {
            throw ValidationException("Complex spec schema must declare a value property.");
        }
    }
    return valueTypeOfBase(schema.baseSchema);
}

} // namespace

std::optional<SpecSchema> readSpecSchema(const SchemaDocument& document) {
    const auto* shape = std::find_if(shapes.begin(), shapes.end(), [&](const SpecShape& candidate) {
        return containsPrefix(document.baseSchema, candidate.prefix);
    });
    if (shape == shapes.end()) {
        return std::nullopt;
    }
    SpecSchema schema;
    schema.name = readStringConstant(document, Frame::name, shape->defaultName);
    schema.discipline =
        readTypedValueConstant(document, "discipline", baseFor(Vocabulary::discipline, document.schemaFormat));
    schema.baseSchema = document.baseSchema;
    schema.schemaFormat = document.schemaFormat;
    shape->readBody(document, schema);
    return schema;
}

Spec resolveSpec(std::string_view typeId, SpecSchema schema, const StoreList<Taxon>& disciplineStores,
                 UnitFinder& units) {
    Taxon discipline = resolveDiscipline(typeId, schema, disciplineStores);
    std::optional<Measurable> measurable;
    if (const auto* body = std::get_if<MeasurableSpecSchema>(&schema.shape)) {
        measurable = resolveMeasurable(typeId, *body, units);
    }
    ValueTypeId valueType = resolveValueType(schema);
    const auto* complex = std::get_if<ComplexSpecSchema>(&schema.shape);
    return Internals::make<Spec>(std::string(typeId), std::string(schema.name), std::move(valueType),
                                 std::move(measurable), std::move(discipline), schema.schemaFormat,
                                 complex != nullptr ? complex->context : Context::Single);
}

void dependenciesOfSpec(const Spec& spec, std::set<std::string>& result, const Units::UnitsEngine& unitsEngine) {
    result.insert(typeIdOf(spec.getDiscipline()));
    const auto addUnit = [&](const Units::Unit& unit) {
        const std::string typeId = unit.getTypeId();
        result.insert(typeId);
        result.merge(askUnits(typeId, [&] { return unitsEngine.getDependencies(typeId); }));
    };
    if (const auto& measurable = spec.getMeasurable()) {
        addUnit(measurable->getStorageUnit());
        for (const Units::Unit& unit : measurable->getApplicableUnits()) {
            addUnit(unit);
        }
    }
}

} // namespace Parameters
