#pragma once

#include "base/Internals.h"
#include "base/StoreList.h"

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

struct Parameter::Data {
    std::string typeId;
    std::string name;
    std::string description;
    std::string sampleText;
    Taxon group;
    Spec spec;
    ParameterRange range;
    bool readOnly;
};

/// A parameter that a caller built, rebuilt from what the engine knows; refuses one that breaks the rules on name,
/// group, range and spec, in this order.
[[nodiscard]] Parameter validatedParameter(const Parameter& parameter, const ParameterStores& stores);

} // namespace Parameters
