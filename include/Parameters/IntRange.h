#pragma once

#include <Parameters/NumericRange.h>

#include <cstdint>

namespace Parameters {

/// A span of 64-bit integers with sign. An alias, which a host includes and cannot declare in advance.
using IntRange = NumericRange<std::int64_t>;

} // namespace Parameters
