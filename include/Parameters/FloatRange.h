#pragma once

#include <Parameters/NumericRange.h>

namespace Parameters {

/// A span of double-precision numbers.
using FloatRange = NumericRange<double>;

} // namespace Parameters
