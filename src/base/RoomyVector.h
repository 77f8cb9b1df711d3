#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Parameters {

/// A vector whose copies have room for some more: what is first added to a copy of many items need not move them all.
template <class Item> class RoomyVector : public std::vector<Item> {
public:
    RoomyVector() noexcept = default;
    RoomyVector(const RoomyVector& other) : std::vector<Item>() {
        if (!other.empty()) {
            this->reserve(other.size() + roomOfCopy(other.size()));
            this->insert(this->end(), other.begin(), other.end());
        }
    }
    RoomyVector(RoomyVector&& other) noexcept = default;
    RoomyVector& operator=(const RoomyVector& other) = delete;
    RoomyVector& operator=(RoomyVector&& other) noexcept = default;
    ~RoomyVector() = default;

    /// Makes room for that many further items, and when it has to grow, for as many as there are.
    void makeRoom(std::size_t count) {
        const std::size_t needed = this->size() + count;
        if (needed > this->capacity()) {
            this->reserve(std::max(needed, 2 * this->capacity()));
        }
    }

    /// How many more fit a copy of that many. What is not used takes no memory, as the system gives it by the page.
    static constexpr std::size_t roomOfCopy(std::size_t size) noexcept { return size / 8 + 8; }
};

} // namespace Parameters
