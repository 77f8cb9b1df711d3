#pragma once

#include "schema/JSONWriter.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Parameter.h>

namespace Parameters {

/// Has the processor fetch what it takes to write the parameter, which lies in many places.
void prefetchForWriting(const Parameter& parameter);

void writeParameterSchema(const Parameter& parameter, JSON::Writer& target, DataModelVersion version);

} // namespace Parameters
