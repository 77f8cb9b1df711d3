#pragma once

#include "taxonomy/Internals.h"

#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>

namespace Parameters {

template <class Number> struct NumericRange<Number>::Data {
    std::string typeId;
    bool fromBottom;
    Number bottomBoundary;
    bool fromTop;
    Number topBoundary;
    Units::SchemaFormat schemaFormat;
};

} // namespace Parameters
