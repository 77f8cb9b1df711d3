#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeFamily.h"

namespace Parameters {

template <class Number>
NumericRange<Number>::NumericRange(const std::string& typeId, bool fromBottom, Number bottomBoundary, bool fromTop,
                                   Number topBoundary, Units::SchemaFormat schemaFormat)
    : NumericRange(
          std::make_shared<const Data>(Data{typeId, fromBottom, bottomBoundary, fromTop, topBoundary, schemaFormat})) {}

template <class Number>
NumericRange<Number>::NumericRange(bool fromBottom, Number bottomBoundary, bool fromTop, Number topBoundary,
                                   Units::SchemaFormat schemaFormat)
    : NumericRange(std::string(baseFor(NumericRangeFamily<Number>::bases, schemaFormat)), fromBottom, bottomBoundary,
                   fromTop, topBoundary, schemaFormat) {}

template <class Number> NumericRange<Number>::NumericRange(bool fromBottom) : NumericRange(fromBottom, 0) {}

template <class Number> NumericRange<Number>::NumericRange() : NumericRange(false) {}

template <class Number>
NumericRange<Number>::NumericRange(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

template <class Number> NumericRange<Number>::~NumericRange() = default;

template <class Number> std::string NumericRange<Number>::getTypeId() const { return data_->typeId; }

template <class Number> bool NumericRange<Number>::isBoundFromBottom() const noexcept { return data_->fromBottom; }

template <class Number> Number NumericRange<Number>::getBottomBoundary() const noexcept {
    return data_->bottomBoundary;
}

template <class Number> bool NumericRange<Number>::isBoundFromTop() const noexcept { return data_->fromTop; }

template <class Number> Number NumericRange<Number>::getTopBoundary() const noexcept { return data_->topBoundary; }

template <class Number> Units::SchemaFormat NumericRange<Number>::getSchemaFormat() const noexcept {
    return data_->schemaFormat;
}

template <class Number> bool NumericRange<Number>::operator==(const NumericRange& other) const noexcept {
    return data_->typeId == other.data_->typeId;
}

template <class Number> bool NumericRange<Number>::operator<(const NumericRange& other) const noexcept {
    return data_->typeId < other.data_->typeId;
}

template class NumericRange<double>;
template class NumericRange<std::int64_t>;

} // namespace Parameters
