#pragma once

#include <string_view>

/// Keys and fixed values of the frame that all schema documents share.
namespace Parameters::Frame {

inline constexpr std::string_view schemaSpecification = "schemaSpecification";
inline constexpr std::string_view schemaType = "schemaType";
inline constexpr std::string_view typeId = "typeid";
inline constexpr std::string_view inherits = "inherits";
inline constexpr std::string_view sealed = "sealed";
inline constexpr std::string_view downgradedFrom = "downgradedFrom";
inline constexpr std::string_view constants = "constants";
inline constexpr std::string_view properties = "properties";
inline constexpr std::string_view enumItems = "enum";

inline constexpr std::string_view id = "id";
inline constexpr std::string_view value = "value";
inline constexpr std::string_view typedValue = "typedValue";
inline constexpr std::string_view name = "name";

/// The one format that a "schemaSpecification" may name.
inline constexpr std::string_view specificationMarker = "lumar-data-schema-2.0.0";
inline constexpr std::string_view componentType = "component";
inline constexpr std::string_view enumType = "enum";

/// Versions of the data model as documents name them.
inline constexpr std::string_view version1 = "1.0.0";
inline constexpr std::string_view version2 = "2.0.0";
inline constexpr std::string_view version3 = "3.0.0";

} // namespace Parameters::Frame
