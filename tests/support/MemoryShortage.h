#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>

/// While it lives, allocations of this thread fail once so many have succeeded.
class MemoryShortage {
public:
    explicit MemoryShortage(std::size_t successes) noexcept;
    ~MemoryShortage();
    MemoryShortage(const MemoryShortage&) = delete;
    MemoryShortage& operator=(const MemoryShortage&) = delete;

    /// How many blocks more this thread has allocated than freed; the difference of two calls shows a leak.
    [[nodiscard]] static std::ptrdiff_t liveBlocks() noexcept;
};

/// Runs the action on a fresh subject again and again, with one more allocation that succeeds each time, until it has
/// enough. After each run that failed for want of memory the check looks at what that has left of the subject.
///
/// @return the subject of the run that succeeded.
template <class Make, class Action, class Check>
auto failEachAllocation(const Make& make, const Action& action, const Check& check) {
    for (std::size_t successes = 0;; ++successes) {
        SCOPED_TRACE("after " + std::to_string(successes) + " allocations");
        auto subject = make();
        try {
            const MemoryShortage shortage(successes);
            action(subject);
            return subject;
        } catch (const std::bad_alloc&) {
        }
        check(subject);
    }
}
