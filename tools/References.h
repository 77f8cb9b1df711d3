#pragma once

#include "Catalog.h"

#include <cstddef>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// Adds a fault for each reference of a registered document that no registered document satisfies.
void reportMissingReferences(Catalog& catalog);

/// The registered and faulty documents, each behind those that it refers to. Adds a fault for each document in a ring
/// of references, because then there is no such order.
std::vector<std::size_t> inOrderOfReferences(Catalog& catalog);

/// The neighbours of each finished document.
using Links = std::map<std::string, std::set<std::string>>;

Links linksToReferences(const Catalog& catalog);
Links linksToReferrers(const Catalog& catalog);

inline constexpr std::size_t anyDistance = std::numeric_limits<std::size_t>::max();

/// What can be reached from a document within a number of steps, each with its distance; the document itself with 0.
std::map<std::string, std::size_t> reachableFrom(const Links& links, const std::string& typeId,
                                                 std::size_t distance = anyDistance);

} // namespace Tool
