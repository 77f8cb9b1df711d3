#pragma once

#include <Parameters/NumericRange.h>

#include <cstdint>

namespace Parameters {

/// A span of 64-bit integers with sign.
using IntRange = NumericRange<std::int64_t>;

} // namespace Parameters
