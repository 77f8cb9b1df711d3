#pragma once

#include "schema/Conversion.h"
#include "schema/JSONWriter.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Spec.h>

namespace Parameters {

/// The versions of a spec as a parameter on it sees them.
[[nodiscard]] Conversion conversionOfSpec(const Spec& spec);

/// The versions of the spec itself: those of the built-in primitive types have no document in V1.
[[nodiscard]] Conversion conversionOfSpecKind(const Spec& spec);

void writeSpecSchema(const Spec& spec, JSON::Writer& target, DataModelVersion version);

} // namespace Parameters
