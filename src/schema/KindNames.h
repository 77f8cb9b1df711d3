#pragma once

#include <string_view>

/// The words for the kinds in messages.
namespace Parameters::KindNames {

inline constexpr std::string_view enumeration = "enumeration";
inline constexpr std::string_view floatRange = "floating-point range";
inline constexpr std::string_view intRange = "integer range";
inline constexpr std::string_view stringRange = "string range";
inline constexpr std::string_view discipline = "discipline";
inline constexpr std::string_view spec = "spec";
inline constexpr std::string_view group = "group";
inline constexpr std::string_view parameter = "parameter";
inline constexpr std::string_view domain = "domain";
inline constexpr std::string_view category = "category";

} // namespace Parameters::KindNames
