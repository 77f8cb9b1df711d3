#pragma once

#include "Catalog.h"

namespace Tool {

/// Adds what else is wrong with documents that have a fault, or refer to a document that has, once all others are
/// finished.
void reportMaskedErrors(Catalog& catalog);

} // namespace Tool
