#include "specs/SpecSchema.h"

#include "base/Internals.h"
#include "base/Text.h"
#include "base/UnitsErrors.h"
#include "schema/Frame.h"
#include "schema/VersionedWriting.h"
#include "schema/Vocabulary.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/SpecData.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Defaults.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Parameters {

namespace {

/// A context as documents name it.
struct ContextWord {
    Context context;
    std::string_view word;
};

constexpr std::array<ContextWord, 3> contextWords = {{
    {Context::Single, "single"},
    {Context::Array, "array"},
    {Context::Map, "map"},
}};

constexpr std::string_view valueAttributes =
    "Spec schema with \"value\" property must specify its type using exactly one of the \"typeid\", \"anyOf\", or "
    "\"oneOf\" attributes.";

/// The "typeid" attribute of each object in an array. An array, or an element, that is of another form gets the
/// message.
std::vector<std::string> readTypeIdObjects(const JSON& json, bool (*sizeIsRight)(std::uint32_t),
                                           const std::string& message) {
    if (!json.isArray() || !sizeIsRight(json.getSize())) {
        json.report(Rule::WrongForm, message);
        return {};
    }
    std::vector<std::string> typeIds;
    for (std::uint32_t i = 0; i < json.getSize(); ++i) {
        const JSON element = json.getElement(i);
        const auto typeId = readTypeIdAttribute(element);
        if (!typeId) {
            element.report(Rule::WrongForm, message);
            continue;
        }
        typeIds.emplace_back(*typeId);
    }
    return typeIds;
}

AnyOf readAnyOf(const SchemaDocument& document, const JSON& json) {
    const auto typeIds = readTypeIdObjects(
        json, [](std::uint32_t size) { return size == 1; },
        concat({"Attribute \"anyOf\" in \"value\" property of schema ", document.typeId,
                " expects an array containing exactly one object with a \"typeid\" string attribute."}));
    return AnyOf(typeIds.empty() ? std::string() : typeIds.front());
}

OneOf readOneOf(const SchemaDocument& document, const JSON& json) {
    return OneOf(readTypeIdObjects(
        json, [](std::uint32_t size) { return size > 0; },
        concat({"Attribute \"oneOf\" in \"value\" property of schema ", document.typeId,
                " expects a non-empty array of objects containing a \"typeid\" string attribute."})));
}

Context readContext(const JSON& property) {
    if (!property.hasMember("context")) {
        return Context::Single;
    }
    const JSON context = property.getMember("context");
    const std::string_view word = readString(context);
    const auto* named = std::find_if(contextWords.begin(), contextWords.end(),
                                     [&](const ContextWord& candidate) { return candidate.word == word; });
    if (named == contextWords.end()) {
        if (!word.empty()) {
            context.report(Rule::WrongForm, "Expected an array/map/single context.");
        }
        return Context::Single;
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
            property.report(Rule::WrongForm, std::string(valueAttributes));
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
        property.report(Rule::MissingMember, std::string(valueAttributes));
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
    if (!isDefaultDiscipline(schema.discipline.typeId)) {
        return findDependency(disciplineStores, typeId, schema.discipline);
    }
    return {std::string(schema.discipline.typeId), std::string(Vocabulary::defaultDisciplineName),
            Units::SchemaFormat::PropertySets};
}

const Units::Unit& resolveUnit(std::string_view typeId, std::string_view constant, const TypeIdKey& unit,
                               UnitFinder& units) {
    const Units::Unit* found = units.find(unit);
    if (found == nullptr) {
        throw ValidationException(concat({"Typeid ", unit.typeId, " ", constant, " constant in measurable spec schema ",
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
    if (const char* fault = faultOfValueType(schema)) {
        throw ValidationException(fault);
    }
    auto* complex = std::get_if<ComplexSpecSchema>(&schema.shape);
    return complex != nullptr && complex->value ? *std::move(complex->value) : valueTypeOfBase(schema.baseSchema);
}

} // namespace

std::optional<SpecSchema> readSpecSchema(const SchemaDocument& document) {
    const auto* shape = std::find_if(shapes.begin(), shapes.end(),
                                     [&](const SpecShape& candidate) { return document.isOfFamily(candidate.prefix); });
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

const char* faultOfValueType(const SpecSchema& schema) {
    const auto* complex = std::get_if<ComplexSpecSchema>(&schema.shape);
    return complex != nullptr && !complex->value && schema.schemaFormat != Units::SchemaFormat::PropertySets
               ? "Complex spec schema must declare a value property."
               : nullptr;
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

void dependenciesOfSpec(const Spec& spec, DependencyCollector& result, const Units::UnitsEngine& unitsEngine) {
    if (!result.beginList(spec)) {
        return;
    }
    result.add(typeIdOf(spec.getDiscipline()));
    const auto addUnit = [&](const Units::Unit& unit) {
        const std::string typeId = unit.getTypeId();
        result.add(typeId);
        for (const std::string& dependency : askUnits(typeId, [&] { return unitsEngine.getDependencies(typeId); })) {
            result.add(dependency);
        }
    };
    if (const auto& measurable = spec.getMeasurable()) {
        addUnit(measurable->getStorageUnit());
        for (const Units::Unit& unit : measurable->getApplicableUnits()) {
            addUnit(unit);
        }
    }
}

namespace {

using V = DataModelVersion;

bool isPolymorphic(const ValueTypeId& valueType) {
    return std::holds_alternative<AnyOf>(valueType) || std::holds_alternative<OneOf>(valueType);
}

DataModelVersion naturalVersionOfSpec(const Spec& spec) {
    const ValueTypeId& valueType = spec.getValueTypeId();
    if (std::holds_alternative<LegacyPrimitiveType>(valueType)) {
        return V::V1;
    }
    return versionsOf(isPolymorphic(valueType) ? Units::SchemaFormat::LumarDataSchema : spec.getSchemaFormat()).highest;
}

/// Whether the spec is one of those that the library brings along, in a version of its own time.
bool isBuiltInSpec(const Spec& spec) {
    return std::any_of(primitiveSpecs.begin(), primitiveSpecs.end(), [&](const PrimitiveSpec& primitive) {
        return beginsWithPrefix(spec.getTypeId(), primitive.base.majorPrefix);
    });
}

bool hasDefaultDiscipline(const Spec& spec) { return isDefaultDiscipline(typeIdOf(spec.getDiscipline())); }

void addCommonSpecConstants(JSON::Writer& target, const Spec& spec, bool typed,
                            std::optional<std::string_view> defaultName = std::nullopt) {
    if (spec.getName() != defaultName) {
        createNameMember(target, spec.getName(), typed);
    }
    if (!hasDefaultDiscipline(spec)) {
        createTypedValueMember(target, "discipline", typeIdOf(spec.getDiscipline()));
    }
}

void writeSimpleSpecSchema(JSON::Writer& target, const Spec& spec, const PrimitiveSpec& primitive) {
    addShortFrame(target, spec.getTypeId(), primitive.base.typeId);
    if (spec.getName() != primitive.defaultName || !hasDefaultDiscipline(spec)) {
        addConstants(target, [&] { addCommonSpecConstants(target, spec, false, primitive.defaultName); });
    }
}

void writeMeasurableSpecSchema(const Spec& spec, JSON::Writer& target, const BaseSchemas& bases,
                               DataModelVersion version) {
    if (!spec.getMeasurable()) {
        throw NotRepresentable{"Data model 1.0.0 has no floating-point values without units."};
    }
    const bool typed = addVersionedFrame(target, spec.getTypeId(), bases, spec.getSchemaFormat(), version);
    const Measurable& measurable = *spec.getMeasurable();
    const std::vector<Units::Unit>& units = measurable.getApplicableUnits();
    addConstants(target, [&] {
        addCommonSpecConstants(target, spec, typed);
        if (!units.empty()) {
            createTypedValueArrayMember(target, "applicableUnits", units, std::mem_fn(&Units::Unit::getTypeId));
        }
        createTypedValueMember(target, "storageUnit", measurable.getStorageUnit().getTypeId());
    });
}

/// The key and the value of a polymorphic or named type, in the "value" property.
void addValueType(JSON::Writer& target, const ValueTypeId& valueType) {
    if (const auto* name = std::get_if<std::string>(&valueType)) {
        addTypeId(target, *name);
    } else if (const auto* anyOf = std::get_if<AnyOf>(&valueType)) {
        target.addArray("anyOf", [&] { createTypeIdObject(target, anyOf->getBaseTypeId()); });
    } else if (const auto* oneOf = std::get_if<OneOf>(&valueType)) {
        target.addArray("oneOf", [&] {
            for (const std::string& typeId : oneOf->getTypeIds()) {
                createTypeIdObject(target, typeId);
            }
        });
    } else {
        throw NotRepresentable{"The value type is one of data model 1.0.0 alone."};
    }
}

/// A spec of another context than Single says so in front of its type.
void addContext(JSON::Writer& target, Context context) {
    for (const ContextWord& named : contextWords) {
        if (named.context == context && context != Context::Single) {
            target.addMember("context", named.word);
        }
    }
}

/// For V2 and later.
void writeCurrentSpecSchema(const Spec& spec, JSON::Writer& target, DataModelVersion version) {
    if (spec.getMeasurable()) {
        writeMeasurableSpecSchema(spec, target, Vocabulary::measurableSpec, version);
        return;
    }
    const bool typed =
        addVersionedFrame(target, spec.getTypeId(), Vocabulary::generalSpec, spec.getSchemaFormat(), version);
    addConstants(target, [&] { addCommonSpecConstants(target, spec, typed); });
    addProperties(target, [&] {
        createMember(target, Frame::value, [&] {
            addContext(target, spec.getContext());
            addValueType(target, spec.getValueTypeId());
        });
    });
}

/// For V1, by the primitive type.
void writeLegacySpecSchema(const Spec& spec, JSON::Writer& target) {
    const auto type = primitiveTypeOf(spec.getValueTypeId());
    const auto* primitive = std::find_if(primitiveSpecs.begin(), primitiveSpecs.end(),
                                         [&](const PrimitiveSpec& candidate) { return candidate.type == type; });
    if (primitive != primitiveSpecs.end()) {
        writeSimpleSpecSchema(target, spec, *primitive);
    } else if (type == LegacyPrimitiveType::Float) {
        constexpr BaseSchemas legacyBase{Vocabulary::measurableSpec.prefix, Vocabulary::legacyMeasurableSpec, {}};
        writeMeasurableSpecSchema(spec, target, legacyBase, V::V1);
    } else if (type == LegacyPrimitiveType::General) {
        addShortFrame(target, spec.getTypeId(), Vocabulary::generalSpec.shortFrame);
        addConstants(target, [&] { addCommonSpecConstants(target, spec, false); });
    } else {
        throw NotRepresentable{"Data model 1.0.0 has no value types but the primitive ones."};
    }
}

} // namespace

Conversion conversionOfSpec(const Spec& spec) {
    const ValueTypeId& valueType = spec.getValueTypeId();
    const DataModelVersion highest = naturalVersionOfSpec(spec);
    const VersionRange natural = {highest, highest};
    constexpr VersionRange current = versionsOf(Units::SchemaFormat::LumarDataSchema);
    if (spec.getContext() != Context::Single) {
        return {natural, current, "Data models before 3.0.0 have neither arrays nor maps as values."};
    }
    if (isPolymorphic(valueType)) {
        return {natural, current, "Data models before 3.0.0 have no value types that stand for several."};
    }
    const auto* name = std::get_if<std::string>(&valueType);
    if (name == nullptr) {
        return {natural, {V::V1, V::V1}, {}};
    }
    if (current.contains(highest) && !isLegacyValueTypeName(*name)) {
        return {natural, current, "Data models before 3.0.0 do not know the value type."};
    }
    if (!legacyPrimitiveTypeOf(*name)) {
        return {natural, {V::V2, highest}, "Data model 1.0.0 has no value types but the primitive ones."};
    }
    return {natural, {V::V1, highest}, {}};
}

Conversion conversionOfSpecItself(const Spec& spec) {
    Conversion conversion = conversionOfSpec(spec);
    VersionRange& range = conversion.representable;
    if (range.lowest == V::V1 && range.highest > V::V1 && isBuiltInSpec(spec)) {
        range.lowest = V::V2;
        conversion.obstacle = "Data model 1.0.0 has specs of this typeid built in.";
    }
    return conversion;
}

void writeSpecSchema(const Spec& spec, JSON::Writer& target, DataModelVersion version) {
    if (version == V::V1) {
        writeLegacySpecSchema(spec, target);
    } else {
        writeCurrentSpecSchema(spec, target, version);
    }
}

} // namespace Parameters
