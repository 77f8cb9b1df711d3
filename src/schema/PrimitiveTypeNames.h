#pragma once

#include <string_view>

/// Names of the primitive types, as value types of specs and on the members of documents.
namespace Parameters::PrimitiveTypeNames {

inline constexpr std::string_view boolean = "Bool";
inline constexpr std::string_view integer = "Int64";
inline constexpr std::string_view floatingPoint = "Float64";
inline constexpr std::string_view reference = "Reference";
inline constexpr std::string_view string = "String";

} // namespace Parameters::PrimitiveTypeNames
