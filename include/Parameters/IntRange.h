#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Parameters {

template <class Number> struct NumericRangeData;

/// A span of 64-bit integers with sign, each end of which may be open.
///
/// A boundary is held whether or not the range is bound there, and no relation between the two is checked. A value:
/// copies are cheap, independent of the engine, and may be used from several threads. A moved-from range is unchanged.
class PARAMETERS_EXPORT IntRange {
public:
    /// A range with a typeid of its own. Stores what it is given.
    IntRange(const std::string& typeId, bool fromBottom, std::int64_t bottomBoundary, bool fromTop,
             std::int64_t topBoundary, Units::SchemaFormat schemaFormat);
    /// An inline range, by default an unbounded one. Its typeid is the static base of its family,
    /// "quovanta.range:range.int64.bounded.static-2.0.0" for LumarDataSchema and
    /// "quovanta.range:range.int64.bounded.static-1.0.0" otherwise.
    /// Implicit, so that a host can write a range in short, such as {true, 0}.
    // NOLINTNEXTLINE(google-explicit-constructor)
    IntRange(bool fromBottom = false, std::int64_t bottomBoundary = 0, bool fromTop = false,
             std::int64_t topBoundary = 0, Units::SchemaFormat schemaFormat = Units::SchemaFormat::PropertySets);
    IntRange(const IntRange&) noexcept = default;
    IntRange& operator=(const IntRange&) noexcept = default;
    ~IntRange();

    /// A copy of the typeid, the range's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// Whether there is a least value.
    [[nodiscard]] bool isBoundFromBottom() const noexcept;
    /// The least value, if the range is bound from below.
    [[nodiscard]] std::int64_t getBottomBoundary() const noexcept;
    /// Whether there is a greatest value.
    [[nodiscard]] bool isBoundFromTop() const noexcept;
    /// The greatest value, if the range is bound from above.
    [[nodiscard]] std::int64_t getTopBoundary() const noexcept;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes: two inline ranges of one format are equal.
    [[nodiscard]] bool operator==(const IntRange& other) const noexcept;
    [[nodiscard]] bool operator!=(const IntRange& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const IntRange& other) const noexcept;
    [[nodiscard]] bool operator>(const IntRange& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    using Data = NumericRangeData<std::int64_t>;
    explicit IntRange(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
