#pragma once

#include <Units/SchemaFormat.h>

#include <array>
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

/// A version of the data model.
struct DataModel {
    /// As documents name it.
    std::string_view text;
    /// Of its documents: those of LumarDataSchema have the full frame, those of PropertySets the short one.
    Units::SchemaFormat format;
};

/// All versions, from the oldest to the newest.
inline constexpr std::array<DataModel, 3> dataModels = {{
    {"1.0.0", Units::SchemaFormat::PropertySets},
    {"2.0.0", Units::SchemaFormat::PropertySets},
    {"3.0.0", Units::SchemaFormat::LumarDataSchema},
}};

/// The position of the oldest version whose documents have the format.
[[nodiscard]] constexpr std::size_t oldestOfFormat(Units::SchemaFormat format) noexcept {
    std::size_t position = 0;
    while (dataModels[position].format != format) {
        ++position;
    }
    return position;
}

/// The position of the newest version whose documents have the format.
[[nodiscard]] constexpr std::size_t newestOfFormat(Units::SchemaFormat format) noexcept {
    std::size_t position = dataModels.size() - 1;
    while (dataModels[position].format != format) {
        --position;
    }
    return position;
}

} // namespace Parameters::Frame
