#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// A made-up catalog in the proportions of a real one, the same on every machine.
namespace Bench {

struct Catalog {
    /// Typeids with texts, in an order in which half of the references point forward.
    std::vector<std::pair<std::string, std::string>> documents;
    std::vector<std::string> parameterTypeIds;
    /// Of all documents.
    std::size_t textBytes = 0;
};

/// A catalog with that many parameters: of all ten forms, in both formats, and for 1,000 of them about 150 specs (most
/// measurable, with 3 to 8 units), 60 enumerations, 40 ranges, 30 categories, 20 groups, 12 disciplines and 80 units.
[[nodiscard]] Catalog generateCatalog(std::size_t parameters);

} // namespace Bench
