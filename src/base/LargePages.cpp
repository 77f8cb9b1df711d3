#include "base/LargePages.h"

#include <sys/mman.h>

namespace Parameters {

namespace {

constexpr std::size_t largePage = 2 * 1024 * 1024;

/// Less would leave too much of a page unused.
bool isWorthPages(std::size_t size) noexcept { return size >= largePage / 2; }

} // namespace

std::size_t roomySize(std::size_t size) noexcept {
    return isWorthPages(size) ? (size + largePage - 1) / largePage * largePage : size;
}

void* allocateRoomy(std::size_t size) {
    if (!isWorthPages(size)) {
        return ::operator new(size);
    }
    void* memory = ::operator new(roomySize(size), std::align_val_t(largePage));
#ifdef MADV_HUGEPAGE
    // Where the system has none, nothing is lost.
    static_cast<void>(madvise(memory, roomySize(size), MADV_HUGEPAGE));
#endif
    return memory;
}

void deallocateRoomy(void* memory, std::size_t size) noexcept {
    if (isWorthPages(size)) {
        ::operator delete(memory, std::align_val_t(largePage));
    } else {
        ::operator delete(memory);
    }
}

} // namespace Parameters
