#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace Parameters {

/// Keeps texts in few large blocks, at addresses that never change. Copies of an arena share the blocks, so that views
/// into one hold in the other, too; each adds to blocks of its own.
///
/// A text can't be taken out. Whoever has no more use for some discards them, and moves the others to a new arena when
/// most have been discarded.
class TextArena {
public:
    TextArena() noexcept = default;
    TextArena(const TextArena& other);
    TextArena(TextArena&& other) noexcept { swap(other); }
    /// Neither can what holds an arena be assigned a copy: half-way its views would be of blocks that are gone.
    TextArena& operator=(const TextArena& other) = delete;
    TextArena& operator=(TextArena&& other) noexcept {
        swap(other);
        return *this;
    }
    ~TextArena() = default;

    /// A copy of the text that lives as long as the arena or one of its copies.
    [[nodiscard]] std::string_view add(std::string_view text);

    /// Makes room for texts of that size together, so that adding them can't fail.
    void reserve(std::size_t size);

    /// Counts a text of that size as discarded.
    void discard(std::size_t size) noexcept { usedSize_ -= size; }

    /// The size of all texts that are of use.
    [[nodiscard]] std::size_t usedSize() const noexcept { return usedSize_; }

    /// Whether to move the texts of use, of which there are that many, to a new arena frees more than it costs.
    [[nodiscard]] bool isMostlyDiscarded(std::size_t count) const noexcept {
        constexpr std::size_t costOfOne = 64;
        return addedSize_ - usedSize_ > usedSize_ + costOfOne * count;
    }

private:
    [[nodiscard]] char* takeRoom(std::size_t size);
    void startBlock(std::size_t needed);
    void swap(TextArena& other) noexcept;

    std::vector<std::shared_ptr<char>> blocks_;
    /// Where the next text goes, and how much fits there.
    char* next_ = nullptr;
    std::size_t room_ = 0;
    /// Of the blocks that no other arena had before this one.
    std::size_t ownSize_ = 0;
    std::size_t usedSize_ = 0;
    std::size_t addedSize_ = 0;
};

} // namespace Parameters
