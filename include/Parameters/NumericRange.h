#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Parameters {

/// A span of numbers, each end of which may be open: FloatRange with double, IntRange with std::int64_t.
///
/// A boundary is held whether or not the range is bound there, and no relation between the two is checked. A value:
/// copies are cheap, independent of the engine, and may be used from several threads. A moved-from range is unchanged.
template <class Number> class PARAMETERS_EXPORT NumericRange {
public:
    /// A range with a typeid of its own. Stores what it is given.
    NumericRange(const std::string& typeId, bool fromBottom, Number bottomBoundary, bool fromTop, Number topBoundary,
                 Units::SchemaFormat schemaFormat);
    /// An inline range: its typeid is the static base of its family, "quovanta.range:range.float64.bounded.static-" or
    /// "quovanta.range:range.int64.bounded.static-", in version 2.0.0 for LumarDataSchema and 1.0.0 otherwise.
    NumericRange(bool fromBottom, Number bottomBoundary, bool fromTop = false, Number topBoundary = 0,
                 Units::SchemaFormat schemaFormat = Units::SchemaFormat::PropertySets);
    /// The same with boundaries of 0; by default the range is unbounded.
    explicit NumericRange(bool fromBottom);
    NumericRange();
    NumericRange(const NumericRange&) noexcept = default;
    NumericRange& operator=(const NumericRange&) noexcept = default;
    ~NumericRange();

    /// A copy of the typeid, the range's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// Whether there is a least value.
    [[nodiscard]] bool isBoundFromBottom() const noexcept;
    /// The least value, if the range is bound from below.
    [[nodiscard]] Number getBottomBoundary() const noexcept;
    /// Whether there is a greatest value.
    [[nodiscard]] bool isBoundFromTop() const noexcept;
    /// The greatest value, if the range is bound from above.
    [[nodiscard]] Number getTopBoundary() const noexcept;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes: two inline ranges of one format are equal.
    [[nodiscard]] bool operator==(const NumericRange& other) const noexcept;
    [[nodiscard]] bool operator!=(const NumericRange& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const NumericRange& other) const noexcept;
    [[nodiscard]] bool operator>(const NumericRange& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit NumericRange(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

extern template class NumericRange<double>;
extern template class NumericRange<std::int64_t>;

} // namespace Parameters
