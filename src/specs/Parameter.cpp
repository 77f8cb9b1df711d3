#include <Parameters/Parameter.h>

#include "specs/ParameterData.h"

#include <Parameters/Defaults.h>

#include <utility>

namespace Parameters {

ParameterCore::ParameterCore(const std::string& typeId, const std::string& name, const std::string& description,
                             const std::string& sampleText, bool readOnly)
    : ParameterCore(typeId, name, Defaults::CreateDefaultGroup(Units::SchemaFormat::PropertySets), description,
                    sampleText, readOnly) {}

ParameterCore::ParameterCore(const std::string& typeId, const std::string& name, const Taxon& group,
                             const std::string& description, const std::string& sampleText, bool readOnly)
    : typeId_(typeId), name_(name), description_(description), sampleText_(sampleText), group_(group),
      readOnly_(readOnly) {}

ParameterCore::~ParameterCore() = default;

std::string ParameterCore::getTypeId() const { return typeId_; }

std::string ParameterCore::getName() const { return name_; }

std::string ParameterCore::getDescription() const { return description_; }

std::string ParameterCore::getSampleText() const { return sampleText_; }

Taxon ParameterCore::getGroup() const { return group_; }

bool ParameterCore::isReadOnly() const noexcept { return readOnly_; }

Parameter::Parameter(const std::string& typeId, const std::string& name, const Spec& spec, const Taxon& group,
                     const ParameterRange& range, const std::string& description, const std::string& sampleText,
                     bool readOnly)
    : Parameter(
          std::make_shared<const Data>(Data{typeId, name, description, sampleText, group, spec, range, readOnly})) {}

Parameter::Parameter(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Parameter::~Parameter() = default;

const std::string& Parameter::getTypeId() const noexcept { return data_->typeId; }

const std::string& Parameter::getName() const noexcept { return data_->name; }

const std::string& Parameter::getDescription() const noexcept { return data_->description; }

const std::string& Parameter::getSampleText() const noexcept { return data_->sampleText; }

const Taxon& Parameter::getGroup() const noexcept { return data_->group; }

const Spec& Parameter::getSpec() const noexcept { return data_->spec; }

const ParameterRange& Parameter::getRange() const noexcept { return data_->range; }

bool Parameter::isReadOnly() const noexcept { return data_->readOnly; }

Units::SchemaFormat Parameter::getSchemaFormat() const noexcept { return data_->spec.getSchemaFormat(); }

bool Parameter::operator==(const Parameter& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Parameter::operator<(const Parameter& other) const noexcept { return data_->typeId < other.data_->typeId; }

} // namespace Parameters
