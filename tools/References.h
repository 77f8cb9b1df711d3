#pragma once

#include "Catalog.h"

#include <cstddef>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace Tool {

/// The neighbours of each finished document: what it refers to, found out when it is asked for.
class Links {
public:
    explicit Links(const Catalog& catalog) : catalog_(catalog) {}

    [[nodiscard]] const std::set<std::string>& at(const std::string& typeId) const;

private:
    friend Links linksToReferrers(const Catalog& catalog);

    const Catalog& catalog_;
    /// Those that have been asked for.
    mutable std::map<std::string, std::set<std::string>> known_;
};

/// The other way round: what refers to each document.
Links linksToReferrers(const Catalog& catalog);

inline constexpr std::size_t anyDistance = std::numeric_limits<std::size_t>::max();

/// The documents within a distance of another one, by typeid; the document itself has distance 0.
std::map<std::string, std::size_t> reachableFrom(const Links& links, const std::string& typeId,
                                                 std::size_t distance = anyDistance);

} // namespace Tool
