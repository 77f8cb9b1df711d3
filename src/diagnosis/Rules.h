#pragma once

#include "schema/Rule.h"

#include <Parameters/Diagnostics.h>

namespace Parameters {

[[nodiscard]] const DiagnosticRule& descriptionOf(Rule rule) noexcept;

} // namespace Parameters
