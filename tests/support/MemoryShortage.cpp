#include "support/MemoryShortage.h"

#include <cstdlib>
#include <limits>

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
thread_local std::size_t left = unlimited;
thread_local std::ptrdiff_t live = 0;

void* allocate(std::size_t size) noexcept {
    if (left == 0) {
        return nullptr;
    }
    if (left != unlimited) {
        --left;
    }
    void* const block = std::malloc(size != 0 ? size : 1);
    live += block != nullptr ? 1 : 0;
    return block;
}

void release(void* block) noexcept {
    live -= block != nullptr ? 1 : 0;
    std::free(block);
}

void* allocateOrThrow(std::size_t size) {
    void* block = allocate(size);
    return block != nullptr ? block : throw std::bad_alloc();
}

} // namespace

MemoryShortage::MemoryShortage(std::size_t successes) noexcept { left = successes; }

MemoryShortage::~MemoryShortage() { left = unlimited; }

std::ptrdiff_t MemoryShortage::liveBlocks() noexcept { return live; }

// All forms, so that no block comes from here and goes elsewhere.
void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }
