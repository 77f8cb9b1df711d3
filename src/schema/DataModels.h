#pragma once

#include "schema/Frame.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Exceptions.h>
#include <Units/SchemaFormat.h>

#include <array>
#include <string_view>

namespace Parameters {

/// What is known of a version. Compilers warn of an enumerator that is forgotten here, and one without a row is an
/// error.
[[nodiscard]] constexpr const Frame::DataModel& dataModelOf(DataModelVersion version) noexcept {
    switch (version) {
    case DataModelVersion::V1:
        break;
    case DataModelVersion::V2:
        return std::get<1>(Frame::dataModels);
    case DataModelVersion::V3:
        return std::get<2>(Frame::dataModels);
    }
    return std::get<0>(Frame::dataModels);
}

/// Versions from lowest to highest, both included.
struct VersionRange {
    DataModelVersion lowest;
    DataModelVersion highest;

    [[nodiscard]] constexpr bool contains(DataModelVersion version) const noexcept {
        return lowest <= version && version <= highest;
    }
};

/// All versions.
[[nodiscard]] constexpr VersionRange allVersions() noexcept {
    return {DataModelVersion{}, static_cast<DataModelVersion>(Frame::dataModels.size() - 1)};
}

/// Whether the enumerators number the rows.
[[nodiscard]] constexpr bool areDataModelsInOrder() noexcept {
    for (std::size_t i = 0; i < Frame::dataModels.size(); ++i) {
        if (&dataModelOf(static_cast<DataModelVersion>(i)) != &Frame::dataModels[i]) {
            return false;
        }
    }
    return true;
}
static_assert(areDataModelsInOrder(), "each version of the data model needs its row and its enumerator");

/// The versions whose documents have the format; any format that is not LumarDataSchema is taken for PropertySets.
[[nodiscard]] constexpr VersionRange versionsOf(Units::SchemaFormat format) noexcept {
    const auto known = format == Units::SchemaFormat::LumarDataSchema ? format : Units::SchemaFormat::PropertySets;
    return {static_cast<DataModelVersion>(Frame::oldestOfFormat(known)),
            static_cast<DataModelVersion>(Frame::newestOfFormat(known))};
}

/// In which versions an object can be represented.
struct Conversion {
    /// The versions that its own text serves, and for which nothing has to be converted.
    VersionRange natural;
    VersionRange representable;
    /// Why versions below the representable ones will not do, a sentence; empty where there are none.
    std::string_view obstacle;
};

/// The rule of all kinds whose texts go by their format.
[[nodiscard]] constexpr Conversion conversionByFormat(Units::SchemaFormat format) noexcept {
    const VersionRange natural = versionsOf(format);
    return {natural, {allVersions().lowest, natural.highest}, {}};
}

/// Whether an object of a format is written for a version in the full frame, whose members carry type names. Everything
/// else takes the short frame.
[[nodiscard]] constexpr bool usesFullFrame(Units::SchemaFormat format, DataModelVersion version) noexcept {
    return format == Units::SchemaFormat::LumarDataSchema && dataModelOf(version).format == format;
}

/// Thrown inside the library for an object that has no text for a version.
struct NotRepresentable {
    /// Why, a sentence that lives as long as the library.
    std::string_view reason;
};

} // namespace Parameters
