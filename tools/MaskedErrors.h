#pragma once

#include "Catalog.h"

namespace Tool {

/// Adds the errors that others mask: resolution reports one error per document, and none for a document whose
/// references are invalid. Expects all valid documents to be finished.
void reportMaskedErrors(Catalog& catalog);

} // namespace Tool
