#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Parameters {

/// Has the processor fetch memory that is going to be read, so that several places of a large catalog arrive together
/// instead of one after the other. The memory is not accessed: null does no harm.
inline void prefetch(const void* begin, std::size_t size) noexcept {
    constexpr std::size_t cacheLine = 64;
    for (std::size_t offset = 0; offset < size; offset += cacheLine) {
        __builtin_prefetch(static_cast<const char*>(begin) + offset);
    }
}

/// Of a long text the beginning: the processor sees by itself how it goes on.
inline void prefetch(std::string_view text) noexcept {
    constexpr std::size_t beginning = 256;
    prefetch(text.data(), std::min(text.size(), beginning));
}

} // namespace Parameters
