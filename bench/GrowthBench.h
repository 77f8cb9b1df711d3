#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Inputs that a hostile author would write, to take a host's time. Each is measured at one size and at four times it.
namespace Bench {

struct Growth {
    const char* name;
    std::size_t size;
    /// Makes an input of a size, and returns the work on it.
    std::function<std::function<void()>(std::size_t)> prepare;
};

constexpr std::size_t growthFactor = 4;
/// How many times as long four times the input may take: in proportion, with room for sorting and caches.
constexpr double growthGoal = 8;

[[nodiscard]] const std::vector<Growth>& growths();

} // namespace Bench
