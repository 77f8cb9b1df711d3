#include "schema/TextArena.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace Parameters {

namespace {

/// Blocks grow to this size, that of a large page on common systems.
constexpr std::size_t largestBlock = 2 * 1024 * 1024;

std::shared_ptr<char> newBlock(std::size_t size) {
    if (size < largestBlock) {
        return {static_cast<char*>(::operator new(size)), [](char* block) { ::operator delete(block); }};
    }
    constexpr auto alignment = std::align_val_t(largestBlock);
    char* block = static_cast<char*>(::operator new(size, alignment));
#if defined(MADV_HUGEPAGE)
    // Only a hint: the system hands out the memory at once instead of in small pages.
    static_cast<void>(::madvise(block, size - size % largestBlock, MADV_HUGEPAGE));
#endif
    return {block, [](char* memory) { ::operator delete(memory, alignment); }};
}

} // namespace

TextArena::TextArena(const TextArena& other)
    : blocks_(other.blocks_), usedSize_(other.usedSize_), addedSize_(other.addedSize_) {}

void TextArena::swap(TextArena& other) noexcept {
    std::swap(blocks_, other.blocks_);
    std::swap(next_, other.next_);
    std::swap(room_, other.room_);
    std::swap(lastBlockSize_, other.lastBlockSize_);
    std::swap(usedSize_, other.usedSize_);
    std::swap(addedSize_, other.addedSize_);
}

std::string_view TextArena::add(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    reserve(text.size());
    char* copy = std::exchange(next_, next_ + text.size());
    std::memcpy(copy, text.data(), text.size());
    room_ -= text.size();
    usedSize_ += text.size();
    addedSize_ += text.size();
    return {copy, text.size()};
}

void TextArena::reserve(std::size_t size) {
    if (size <= room_) {
        return;
    }
    const std::size_t blockSize = std::max(size, std::min(2 * lastBlockSize_, largestBlock));
    blocks_.push_back(newBlock(blockSize));
    next_ = blocks_.back().get();
    room_ = blockSize;
    lastBlockSize_ = blockSize;
}

} // namespace Parameters
