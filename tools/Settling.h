#pragma once

#include "Catalog.h"

namespace Tool {

/// Resolves the registered documents: all that have no fault end up finished in the catalog's engine, and all others
/// have their faults and blockades told.
void settle(Catalog& catalog);

} // namespace Tool
