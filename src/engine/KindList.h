#pragma once

#include <cstddef>
#include <type_traits>

namespace Parameters {

/// A list of kinds in the order in which an operation treats them. Kinds are the descriptions of Kinds.h.
template <class... Kinds> struct KindList {
    [[nodiscard]] static constexpr std::size_t size() noexcept { return sizeof...(Kinds); }

    /// Calls visit with each kind in turn.
    template <class Visit> static void forEach(Visit visit) { (visit(Kinds{}), ...); }

    /// Whether the list has all of these kinds and no other.
    template <class... Others> [[nodiscard]] static constexpr bool isOrderOf(KindList<Others...> /*others*/) noexcept {
        return sizeof...(Kinds) == sizeof...(Others) && (contains<Others>() && ...);
    }

    /// Where a kind stands in the list.
    template <class Kind> [[nodiscard]] static constexpr std::size_t positionOf() noexcept {
        static_assert(contains<Kind>());
        std::size_t position = 0;
        static_cast<void>(((std::is_same_v<Kind, Kinds> || (++position, false)) || ...));
        return position;
    }

    /// Calls test with one kind after the other until it returns true; whether it ever did.
    template <class Test> static bool any(Test test) { return (test(Kinds{}) || ...); }

private:
    template <class Kind> [[nodiscard]] static constexpr bool contains() noexcept {
        return (std::is_same_v<Kind, Kinds> || ...);
    }
};

} // namespace Parameters
