#pragma once

#include "base/Internals.h"

#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>

namespace Parameters {

/// What float and int ranges hold.
template <class Number> struct NumericRangeData {
    std::string typeId;
    bool fromBottom;
    Number bottomBoundary;
    bool fromTop;
    Number topBoundary;
    Units::SchemaFormat schemaFormat;
};

} // namespace Parameters
