#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeFamily.h"

namespace Parameters {

// The two are classes of their own, without a base, so that hosts can declare and name them. What they are made of,
// read from and written as stands in templates.

FloatRange::FloatRange(const std::string& typeId, bool fromBottom, double bottomBoundary, bool fromTop,
                       double topBoundary, Units::SchemaFormat schemaFormat)
    : FloatRange(
          std::make_shared<const Data>(Data{typeId, fromBottom, bottomBoundary, fromTop, topBoundary, schemaFormat})) {}

FloatRange::FloatRange(bool fromBottom, double bottomBoundary, bool fromTop, double topBoundary,
                       Units::SchemaFormat schemaFormat)
    : FloatRange(std::string(baseFor(NumericRangeFamily<FloatRange>::bases, schemaFormat)), fromBottom, bottomBoundary,
                 fromTop, topBoundary, schemaFormat) {}

FloatRange::FloatRange(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

FloatRange::~FloatRange() = default;

std::string FloatRange::getTypeId() const { return data_->typeId; }

bool FloatRange::isBoundFromBottom() const noexcept { return data_->fromBottom; }

double FloatRange::getBottomBoundary() const noexcept { return data_->bottomBoundary; }

bool FloatRange::isBoundFromTop() const noexcept { return data_->fromTop; }

double FloatRange::getTopBoundary() const noexcept { return data_->topBoundary; }

Units::SchemaFormat FloatRange::getSchemaFormat() const noexcept { return data_->schemaFormat; }

bool FloatRange::operator==(const FloatRange& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool FloatRange::operator<(const FloatRange& other) const noexcept { return data_->typeId < other.data_->typeId; }

IntRange::IntRange(const std::string& typeId, bool fromBottom, std::int64_t bottomBoundary, bool fromTop,
                   std::int64_t topBoundary, Units::SchemaFormat schemaFormat)
    : IntRange(
          std::make_shared<const Data>(Data{typeId, fromBottom, bottomBoundary, fromTop, topBoundary, schemaFormat})) {}

IntRange::IntRange(bool fromBottom, std::int64_t bottomBoundary, bool fromTop, std::int64_t topBoundary,
                   Units::SchemaFormat schemaFormat)
    : IntRange(std::string(baseFor(NumericRangeFamily<IntRange>::bases, schemaFormat)), fromBottom, bottomBoundary,
               fromTop, topBoundary, schemaFormat) {}

IntRange::IntRange(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

IntRange::~IntRange() = default;

std::string IntRange::getTypeId() const { return data_->typeId; }

bool IntRange::isBoundFromBottom() const noexcept { return data_->fromBottom; }

std::int64_t IntRange::getBottomBoundary() const noexcept { return data_->bottomBoundary; }

bool IntRange::isBoundFromTop() const noexcept { return data_->fromTop; }

std::int64_t IntRange::getTopBoundary() const noexcept { return data_->topBoundary; }

Units::SchemaFormat IntRange::getSchemaFormat() const noexcept { return data_->schemaFormat; }

bool IntRange::operator==(const IntRange& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool IntRange::operator<(const IntRange& other) const noexcept { return data_->typeId < other.data_->typeId; }

} // namespace Parameters
