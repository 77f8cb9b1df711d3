#pragma once

#include <cstddef>
#include <limits>
#include <new>

namespace Parameters {

// Memory that is about as large as one of the system's large pages, or larger, is made of them where the system has
// any: it is filled without waiting for each of many small pages.

/// The size that is taken for so much: much memory comes in whole large pages.
[[nodiscard]] std::size_t roomySize(std::size_t size) noexcept;
/// Memory of roomySize(size).
[[nodiscard]] void* allocateRoomy(std::size_t size);
/// Frees what allocateRoomy() gave for that size.
void deallocateRoomy(void* memory, std::size_t size) noexcept;

/// Allocator of such memory for the containers of the standard library.
template <class Item> struct RoomyAllocator {
    using value_type = Item;

    RoomyAllocator() noexcept = default;
    // Containers convert it as they please.
    // NOLINTNEXTLINE(google-explicit-constructor)
    template <class Other> RoomyAllocator(const RoomyAllocator<Other>& /*other*/) noexcept {}

    [[nodiscard]] Item* allocate(std::size_t count) {
        if (count > std::numeric_limits<std::size_t>::max() / (2 * sizeof(Item))) {
            throw std::bad_array_new_length();
        }
        return static_cast<Item*>(allocateRoomy(count * sizeof(Item)));
    }
    void deallocate(Item* items, std::size_t count) noexcept { deallocateRoomy(items, count * sizeof(Item)); }

    template <class Other> bool operator==(const RoomyAllocator<Other>& /*other*/) const noexcept { return true; }
    template <class Other> bool operator!=(const RoomyAllocator<Other>& /*other*/) const noexcept { return false; }
};

} // namespace Parameters
