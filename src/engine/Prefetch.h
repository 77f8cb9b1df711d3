#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Parameters {

/// Has the processor fetch memory that is going to be read, so that several places of a large catalog arrive together
/// instead of one after the other.
inline void prefetch(const void* begin, std::size_t size) noexcept {
    constexpr std::size_t cacheLine = 64;
    // As integers: a line may begin before the object, where no pointer into it may point.
    const auto first = reinterpret_cast<std::uintptr_t>(begin);
    for (std::uintptr_t line = first - first % cacheLine; line < first + size; line += cacheLine) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        __builtin_prefetch(reinterpret_cast<const void*>(line));
    }
    // Does nothing, but without it g++ takes functions that only fetch for useless, and drops their calls.
    asm volatile("");
}

/// Of a long text the beginning: the processor sees by itself how it goes on.
inline void prefetch(std::string_view text) noexcept {
    constexpr std::size_t beginning = 1024;
    prefetch(text.data(), std::min(text.size(), beginning));
}

} // namespace Parameters
