#pragma once

#include "Catalog.h"

#include <cstddef>
#include <vector>

namespace Tool {

/// Adds a fault for each reference of a registered document that no registered document satisfies.
void reportMissingReferences(Catalog& catalog);

/// The registered and faulty documents, each behind those that it refers to. Adds a fault for each document in a ring
/// of references, because then there is no such order.
std::vector<std::size_t> inOrderOfReferences(Catalog& catalog);

} // namespace Tool
