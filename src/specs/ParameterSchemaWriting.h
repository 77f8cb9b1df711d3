#pragma once

#include "schema/JSONWriter.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Parameter.h>

namespace Parameters {

void writeParameterSchema(const Parameter& parameter, JSONWriter& target, DataModelVersion version);

} // namespace Parameters
