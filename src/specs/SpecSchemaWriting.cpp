#include "specs/SpecSchemaWriting.h"

#include "schema/Frame.h"
#include "schema/VersionedFrame.h"
#include "specs/ContextWords.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/Internals.h"
#include "taxonomy/TaxonData.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

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
    if (isPolymorphic(valueType)) {
        return V::V3;
    }
    return spec.getSchemaFormat() == Units::SchemaFormat::LumarDataSchema ? V::V3 : V::V2;
}

VersionRange compatibleRangeOfSpec(const Spec& spec) {
    const ValueTypeId& valueType = spec.getValueTypeId();
    if (spec.getContext() != Context::Single || isPolymorphic(valueType)) {
        return {V::V3, V::V3};
    }
    const auto* name = std::get_if<std::string>(&valueType);
    if (name == nullptr) {
        return {V::V1, V::V1};
    }
    const DataModelVersion highest = naturalVersionOfSpec(spec);
    if (highest == V::V3 && !isLegacyValueTypeName(*name)) {
        return {V::V3, V::V3};
    }
    return {legacyPrimitiveTypeOf(*name) ? V::V1 : V::V2, highest};
}

/// Whether the spec is one of those that the library brings along, in a version of its own time.
bool isBuiltInSpec(const Spec& spec) {
    return std::any_of(primitiveSpecs.begin(), primitiveSpecs.end(), [&](const PrimitiveSpec& primitive) {
        return beginsWithPrefix(spec.getTypeId(), primitive.base.majorPrefix);
    });
}

bool hasDefaultDiscipline(const Spec& spec) {
    return containsPrefix(typeIdOf(spec.getDiscipline()), Vocabulary::discipline.prefix);
}

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
        raiseNotRepresentable();
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
        raiseNotRepresentable();
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

/// For V2 and V3.
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
        raiseNotRepresentable();
    }
}

} // namespace

Conversion conversionOfSpec(const Spec& spec) {
    const DataModelVersion natural = naturalVersionOfSpec(spec);
    return {{natural, natural}, compatibleRangeOfSpec(spec)};
}

Conversion conversionOfSpecKind(const Spec& spec) {
    Conversion conversion = conversionOfSpec(spec);
    VersionRange& range = conversion.representable;
    if (range.lowest == V::V1 && range.highest > V::V1 && isBuiltInSpec(spec)) {
        range.lowest = V::V2;
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
