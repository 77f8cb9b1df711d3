#pragma once

#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"

#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>

#include <cmath>
#include <cstdint>
#include <string_view>

namespace Parameters {

/// Everything in which float and int ranges differ.
template <class Range> struct NumericRangeFamily;

template <> struct NumericRangeFamily<FloatRange> {
    using Number = double;
    static constexpr const RangeBaseSchemas& bases = Vocabulary::floatRange;
    static constexpr std::string_view boundaryTypeName = PrimitiveTypeNames::floatingPoint;

    static double readBoundary(const JSON& json) { return readNumber(json); }
    /// JSON has no form for infinity and NaN.
    static bool isRepresentable(double boundary) { return std::isfinite(boundary); }
};

template <> struct NumericRangeFamily<IntRange> {
    using Number = std::int64_t;
    static constexpr const RangeBaseSchemas& bases = Vocabulary::intRange;
    static constexpr std::string_view boundaryTypeName = PrimitiveTypeNames::integer;

    static std::int64_t readBoundary(const JSON& json) { return readInteger(json); }
    static bool isRepresentable(std::int64_t /*boundary*/) { return true; }
};

} // namespace Parameters
