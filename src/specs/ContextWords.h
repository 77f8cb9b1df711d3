#pragma once

#include <Parameters/Spec.h>

#include <array>
#include <string_view>

namespace Parameters {

/// A context as documents name it.
struct ContextWord {
    Context context;
    std::string_view word;
};

inline constexpr std::array<ContextWord, 3> contextWords = {{
    {Context::Single, "single"},
    {Context::Array, "array"},
    {Context::Map, "map"},
}};

} // namespace Parameters
