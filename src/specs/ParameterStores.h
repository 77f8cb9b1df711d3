#pragma once

#include "engine/StoreList.h"

#include <Parameters/Parameter.h>

namespace Parameters {

/// Where a parameter's references may be looked up.
struct ParameterStores {
    StoreList<Spec> specs;
    StoreList<Taxon> groups;
    StoreList<Category> categories;
    StoreList<Enumeration> enumerations;
    StoreList<FloatRange> floatRanges;
    StoreList<IntRange> intRanges;
    StoreList<StringRange> stringRanges;
};

} // namespace Parameters
