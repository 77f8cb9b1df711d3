#pragma once

#include <Parameters/NumericRange.h>

namespace Parameters {

/// A span of double-precision numbers. An alias, which a host includes and cannot declare in advance.
using FloatRange = NumericRange<double>;

} // namespace Parameters
