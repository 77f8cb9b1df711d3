#include "base/TextArena.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace Parameters {

namespace {

constexpr std::size_t largePage = 2 * 1024 * 1024;

/// Blocks double to the first size, and then grow to the second as an eighth of all.
constexpr std::size_t usualBlock = largePage / 2;
constexpr std::size_t largestBlock = 4 * largePage;

/// A larger text that does not fit any more gets a block of its own, so that little room is left over.
constexpr std::size_t ownBlockSize = 16 * 1024;

/// A block that is at least half a large page is made of whole ones.
std::size_t sizeOfBlock(std::size_t size) noexcept {
    return size < largePage / 2 ? size : (size + largePage - 1) / largePage * largePage;
}

/// Where the system has large pages, a large block is made of them: a first filling waits for fewer.
std::shared_ptr<char> newBlock(std::size_t size) {
    if (size % largePage != 0) {
        return {static_cast<char*>(::operator new(size)), [](char* memory) { ::operator delete(memory); }};
    }
    static constexpr std::align_val_t alignment{largePage};
    std::shared_ptr<char> block(static_cast<char*>(::operator new(size, alignment)),
                                [](char* memory) { ::operator delete(memory, alignment); });
#ifdef MADV_HUGEPAGE
    static_cast<void>(madvise(block.get(), size, MADV_HUGEPAGE));
#endif
    return block;
}

} // namespace

TextArena::TextArena(const TextArena& other)
    : blocks_(other.blocks_), usedSize_(other.usedSize_), addedSize_(other.addedSize_) {}

void TextArena::swap(TextArena& other) noexcept {
    std::swap(blocks_, other.blocks_);
    std::swap(next_, other.next_);
    std::swap(room_, other.room_);
    std::swap(ownSize_, other.ownSize_);
    std::swap(usedSize_, other.usedSize_);
    std::swap(addedSize_, other.addedSize_);
}

std::string_view TextArena::add(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    char* copy = takeRoom(text.size());
    std::memcpy(copy, text.data(), text.size());
    usedSize_ += text.size();
    addedSize_ += text.size();
    return {copy, text.size()};
}

void TextArena::reserve(std::size_t size) {
    if (size > room_) {
        startBlock(std::max({size, std::min(ownSize_, usualBlock), std::min(ownSize_ / 8, largestBlock)}));
    }
}

char* TextArena::takeRoom(std::size_t size) {
    if (size > room_ && size > ownBlockSize) {
        blocks_.push_back(newBlock(sizeOfBlock(size)));
        return blocks_.back().get();
    }
    reserve(size);
    room_ -= size;
    return std::exchange(next_, next_ + size);
}

void TextArena::startBlock(std::size_t needed) {
    const std::size_t size = sizeOfBlock(needed);
    blocks_.push_back(newBlock(size));
    next_ = blocks_.back().get();
    room_ = size;
    ownSize_ += size;
}

} // namespace Parameters
