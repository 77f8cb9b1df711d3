#pragma once

#include <string_view>

namespace Parameters {

/// What a schema refers to by a typeid.
struct ReferenceTo {
    /// The word for the kind that has to stand there.
    std::string_view kind;
    /// Whether a typeid stands for something of the library's own, so that nothing is looked up.
    bool (*isBuiltIn)(std::string_view typeId);
};

/// For references of which each is looked up.
[[nodiscard]] inline bool isNeverBuiltIn(std::string_view /*typeId*/) noexcept { return false; }
/// For references of which none is.
[[nodiscard]] inline bool isAlwaysBuiltIn(std::string_view /*typeId*/) noexcept { return true; }

} // namespace Parameters
