#include <Parameters/Spec.h>

#include "base/Text.h"
#include "schema/Vocabulary.h"
#include "specs/SpecData.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Defaults.h>
#include <Parameters/Exceptions.h>

#include <utility>

namespace Parameters {

AnyOf::AnyOf(const std::string& baseTypeId) : baseTypeId_(baseTypeId) {}

AnyOf::~AnyOf() = default;

const std::string& AnyOf::getBaseTypeId() const noexcept { return baseTypeId_; }

OneOf::OneOf(const std::vector<std::string>& typeIds) : typeIds_(typeIds) {}

OneOf::~OneOf() = default;

const std::vector<std::string>& OneOf::getTypeIds() const noexcept { return typeIds_; }

Measurable::Measurable(const std::vector<Units::Unit>& applicableUnits, const Units::Unit& storageUnit)
    : applicableUnits_(applicableUnits), storageUnit_(storageUnit) {}

Measurable::~Measurable() = default;

const std::vector<Units::Unit>& Measurable::getApplicableUnits() const noexcept { return applicableUnits_; }

const Units::Unit& Measurable::getStorageUnit() const noexcept { return storageUnit_; }

SpecCore::SpecCore(const std::string& typeId, const std::string& name)
    : SpecCore(typeId, name, Defaults::CreateDefaultDiscipline(Units::SchemaFormat::PropertySets)) {}

SpecCore::SpecCore(const std::string& typeId, const std::string& name, const Taxon& discipline)
    : typeId_(typeId), name_(name), discipline_(discipline) {}

SpecCore::~SpecCore() = default;

std::string SpecCore::getTypeId() const { return typeId_; }

std::string SpecCore::getName() const { return name_; }

Taxon SpecCore::getDiscipline() const { return discipline_; }

Spec::Spec(const std::string& typeId, const std::string& name, const ValueTypeId& valueTypeId,
           const std::optional<Measurable>& measurable, Units::SchemaFormat schemaFormat, const Taxon& discipline)
    : Spec(typeId, name, valueTypeId, measurable, schemaFormat, discipline, Context::Single) {}

Spec::Spec(const std::string& typeId, const std::string& name, const ValueTypeId& valueTypeId,
           const std::optional<Measurable>& measurable, Units::SchemaFormat schemaFormat, const Taxon& discipline,
           Context context)
    : Spec(std::make_shared<const Data>(
          Data{typeId, name, valueTypeId, measurable, discipline, schemaFormat, context})) {}

Spec::Spec(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Spec::~Spec() = default;

const std::string& Spec::getTypeId() const noexcept { return data_->typeId; }

const std::string& Spec::getName() const noexcept { return data_->name; }

const ValueTypeId& Spec::getValueTypeId() const noexcept { return data_->valueTypeId; }

const std::optional<Measurable>& Spec::getMeasurable() const noexcept { return data_->measurable; }

const Taxon& Spec::getDiscipline() const noexcept { return data_->discipline; }

Units::SchemaFormat Spec::getSchemaFormat() const noexcept { return data_->schemaFormat; }

Context Spec::getContext() const noexcept { return data_->context; }

bool Spec::operator==(const Spec& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Spec::operator<(const Spec& other) const noexcept { return data_->typeId < other.data_->typeId; }

namespace {

/// The registered discipline counts, not the one that the spec brought along, and of the default ones that of the older
/// format.
Taxon registeredDiscipline(const Spec& spec, const StoreList<Taxon>& disciplineStores) {
    const std::string& discipline = typeIdOf(spec.getDiscipline());
    if (const Taxon* registered = disciplineStores.find(discipline)) {
        return *registered;
    }
    if (!containsPrefix(discipline, Vocabulary::discipline.prefix)) {
        throw ValidationException(concat({"Could not find discipline with typeid ", discipline, "."}));
    }
    return Defaults::CreateDefaultDiscipline(Units::SchemaFormat::PropertySets);
}

Units::Unit registeredUnit(const Units::Unit& unit, const Units::UnitsEngine& unitsEngine) {
    const std::string typeId = unit.getTypeId();
    const auto& allUnits = unitsEngine.getAllUnits();
    if (allUnits.find(typeId) == allUnits.end()) {
        throw ValidationException(concat({"Could not find unit with typeid ", typeId, "."}));
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
    if (spec.getName().empty()) {
        throw ValidationException("Name must not be empty.");
    }
    Taxon discipline = registeredDiscipline(spec, disciplineStores);
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
    return Internals::changed(spec, [&](auto& changed) {
        changed.discipline = std::move(discipline);
        changed.measurable = std::move(measurable);
    });
}

} // namespace Parameters
