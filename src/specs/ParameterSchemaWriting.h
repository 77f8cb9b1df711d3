#pragma once

#include "schema/JSON.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Parameter.h>

namespace Parameters {

void writeParameterSchema(const Parameter& parameter, JSON& target, DataModelVersion version);

} // namespace Parameters
