#pragma once

#include <string_view>
#include <vector>

namespace Parameters {

/// Typeids that stand in an object or a body, which must outlive them. One may occur more than once.
using TypeIdViews = std::vector<std::string_view>;

/// A list of kinds in the order in which an operation treats them. Kinds are the descriptions of Kinds.h.
template <class... Kinds> struct KindList {
    /// Calls visit with each kind in turn.
    template <class Visit> static void forEach(Visit visit) { (visit(Kinds{}), ...); }

    /// Calls test with one kind after the other until it returns true; whether it ever did.
    template <class Test> static bool any(Test test) { return (test(Kinds{}) || ...); }
};

} // namespace Parameters
