#pragma once

#include "specs/ParameterStores.h"
#include "taxonomy/Internals.h"

#include <Parameters/Parameter.h>

namespace Parameters {

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
