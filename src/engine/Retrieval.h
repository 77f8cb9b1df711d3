#pragma once

#include "engine/EngineImpl.h"

#include <Parameters/DataModelVersion.h>

#include <string>

namespace Parameters {

/// The text of a finished document for a version. Throws NotRepresentable where there is none, and what
/// getSchemaInCompatibleFormat() throws otherwise.
[[nodiscard]] std::string textIn(const EngineImpl& engine, DataModelVersion version, const std::string& typeId);

} // namespace Parameters
