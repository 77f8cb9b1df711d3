#pragma once

#include "Catalog.h"

#include <cstddef>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// The neighbours of each finished document.
using Links = std::map<std::string, std::set<std::string>>;

Links linksToReferences(const Catalog& catalog);
Links linksToReferrers(const Catalog& catalog);

inline constexpr std::size_t anyDistance = std::numeric_limits<std::size_t>::max();

/// The documents within a distance of another one, by typeid; the document itself has distance 0.
std::map<std::string, std::size_t> reachableFrom(const Links& links, const std::string& typeId,
                                                 std::size_t distance = anyDistance);

} // namespace Tool
