#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <memory>
#include <string>

namespace Parameters {

template <class Number> struct NumericRangeData;

/// A span of double-precision numbers, each end of which may be open.
///
/// A boundary is held whether or not the range is bound there, and no relation between the two is checked. A value:
/// copies are cheap, independent of the engine, and may be used from several threads. A moved-from range is unchanged.
class PARAMETERS_EXPORT FloatRange {
public:
    /// A range with a typeid of its own. Stores what it is given.
    FloatRange(const std::string& typeId, bool fromBottom, double bottomBoundary, bool fromTop, double topBoundary,
               Units::SchemaFormat schemaFormat);
    /// An inline range, by default an unbounded one. Its typeid is the static base of its family,
    /// "quovanta.range:range.float64.bounded.static-2.0.0" for LumarDataSchema and
    /// "quovanta.range:range.float64.bounded.static-1.0.0" otherwise.
    /// Implicit, so that a host can write a range in short, such as {true, 0}.
    // NOLINTNEXTLINE(google-explicit-constructor)
    FloatRange(bool fromBottom = false, double bottomBoundary = 0, bool fromTop = false, double topBoundary = 0,
               Units::SchemaFormat schemaFormat = Units::SchemaFormat::PropertySets);
    FloatRange(const FloatRange&) noexcept = default;
    FloatRange& operator=(const FloatRange&) noexcept = default;
    ~FloatRange();

    /// A copy of the typeid, the range's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// Whether there is a least value.
    [[nodiscard]] bool isBoundFromBottom() const noexcept;
    /// The least value, if the range is bound from below.
    [[nodiscard]] double getBottomBoundary() const noexcept;
    /// Whether there is a greatest value.
    [[nodiscard]] bool isBoundFromTop() const noexcept;
    /// The greatest value, if the range is bound from above.
    [[nodiscard]] double getTopBoundary() const noexcept;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes: two inline ranges of one format are equal.
    [[nodiscard]] bool operator==(const FloatRange& other) const noexcept;
    [[nodiscard]] bool operator!=(const FloatRange& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const FloatRange& other) const noexcept;
    [[nodiscard]] bool operator>(const FloatRange& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    using Data = NumericRangeData<double>;
    explicit FloatRange(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
