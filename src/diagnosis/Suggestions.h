#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

/// The number of characters to be inserted, removed, replaced or swapped with the next to make one text of the other;
/// more than most if it is more than that.
[[nodiscard]] std::size_t editDistance(std::string_view left, std::string_view right, std::size_t most);

/// Looks for what may have been meant. It gives up after a number of comparisons, so that thousands of faults in a
/// large catalog take no longer than the catalog.
class Suggester {
public:
    /// The nearest of the candidates, the first of several that are equally near; empty if none is near enough to be
    /// meant.
    [[nodiscard]] std::string nearest(std::string_view word, const std::vector<std::string_view>& candidates);

private:
    std::size_t comparisonsLeft_ = 20'000'000;
};

} // namespace Parameters
