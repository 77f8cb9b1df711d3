#include <Parameters/Spec.h>

#include "specs/SpecData.h"

#include <Parameters/Defaults.h>

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

} // namespace Parameters
