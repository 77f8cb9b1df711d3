#include "schema/Text.h"
#include "schema/Vocabulary.h"
#include "specs/SpecData.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Defaults.h>
#include <Parameters/Exceptions.h>

#include <utility>

namespace Parameters {

namespace {

/// The registered discipline counts, not the one that the spec brought along.
SpecCore coreOfSpec(const Spec& spec, const StoreList<Taxon>& disciplineStores) {
    if (spec.getName().empty()) {
        throw ValidationException("Name must not be empty.");
    }
    const std::string& discipline = typeIdOf(spec.getDiscipline());
    if (const Taxon* registered = disciplineStores.find(discipline)) {
        return {spec.getTypeId(), spec.getName(), *registered};
    }
    if (containsPrefix(discipline, Vocabulary::discipline.prefix)) {
        return {spec.getTypeId(), spec.getName()};
    }
    throw ValidationException(joined({"Could not find discipline with typeid ", discipline, "."}));
}

Units::Unit registeredUnit(const Units::Unit& unit, const Units::UnitsEngine& unitsEngine) {
    const std::string typeId = unit.getTypeId();
    const auto& allUnits = unitsEngine.getAllUnits();
    if (allUnits.find(typeId) == allUnits.end()) {
        throw ValidationException(joined({"Could not find unit with typeid ", typeId, "."}));
    }
    return unitsEngine.getUnit(typeId);
}

Measurable registeredMeasurable(const Measurable& measurable, const Units::UnitsEngine& unitsEngine) {
    const Units::Unit storage = registeredUnit(measurable.getStorageUnit(), unitsEngine);
    std::vector<Units::Unit> units;
    units.reserve(measurable.getApplicableUnits().size());
    for (const Units::Unit& unit : measurable.getApplicableUnits()) {
        units.push_back(registeredUnit(unit, unitsEngine));
    }
    return {units, storage};
}

void requireFormatRules(const Spec& spec) {
    const ValueTypeId& valueType = spec.getValueTypeId();
    const auto* oneOf = std::get_if<OneOf>(&valueType);
    if (spec.getSchemaFormat() != Units::SchemaFormat::PropertySets) {
        if (std::holds_alternative<LegacyPrimitiveType>(valueType)) {
            throw ValidationException("Legacy primitive specs must use PropertySets schema format.");
        }
        if (oneOf != nullptr && oneOf->getTypeIds().empty()) {
            throw ValidationException("Spec with polymorphic value type using 'oneOf' must offer at least one type.");
        }
        return;
    }
    if (spec.getContext() != Context::Single) {
        throw ValidationException("Spec with PropertySets schema format may use only single context.");
    }
    if (oneOf != nullptr || std::holds_alternative<AnyOf>(valueType)) {
        throw ValidationException("Spec with PropertySets schema format may not use polymorphic value type.");
    }
}

} // namespace

Spec validatedSpec(const Spec& spec, const StoreList<Taxon>& disciplineStores, const Units::UnitsEngine& unitsEngine) {
    const SpecCore core = coreOfSpec(spec, disciplineStores);
    requireFormatRules(spec);
    const ValueTypeId& valueType = spec.getValueTypeId();
    const auto* primitive = std::get_if<LegacyPrimitiveType>(&valueType);
    const bool legacyFloat = primitive != nullptr && *primitive == LegacyPrimitiveType::Float;
    std::optional<Measurable> measurable;
    if (!spec.getMeasurable()) {
        if (legacyFloat) {
            throw ValidationException("Spec of measurable value type must include units of measurement.");
        }
    } else {
        measurable = registeredMeasurable(*spec.getMeasurable(), unitsEngine);
        const auto* name = std::get_if<std::string>(&valueType);
        if (!legacyFloat && (name == nullptr || *name != Defaults::FloatPrimitiveType())) {
            throw ValidationException("Spec with units of measurement must have floating-point value type.");
        }
    }
    return {core.getTypeId(),       core.getName(),       valueType,        measurable,
            spec.getSchemaFormat(), core.getDiscipline(), spec.getContext()};
}

} // namespace Parameters
