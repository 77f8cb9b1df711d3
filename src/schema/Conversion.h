#pragma once

#include "schema/Frame.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Exceptions.h>
#include <Units/SchemaFormat.h>

#include <string_view>

namespace Parameters {

/// Versions from lowest to highest, both included.
struct VersionRange {
    DataModelVersion lowest;
    DataModelVersion highest;

    [[nodiscard]] constexpr bool contains(DataModelVersion version) const noexcept {
        return lowest <= version && version <= highest;
    }
};

/// In which versions an object can be represented.
struct Conversion {
    /// The versions that its own text serves, and for which nothing has to be converted.
    VersionRange natural;
    VersionRange representable;
};

/// The rule of all kinds whose texts go by their format.
[[nodiscard]] constexpr Conversion conversionByFormat(Units::SchemaFormat format) noexcept {
    using V = DataModelVersion;
    return format == Units::SchemaFormat::LumarDataSchema ? Conversion{{V::V3, V::V3}, {V::V1, V::V3}}
                                                          : Conversion{{V::V1, V::V2}, {V::V1, V::V2}};
}

/// Of an object that has no text for a version.
[[noreturn]] inline void raiseNotRepresentable() {
    throw ValidationException("Cannot represent schema in requested format.");
}

/// The version as documents name it.
[[nodiscard]] constexpr std::string_view versionText(DataModelVersion version) noexcept {
    switch (version) {
    case DataModelVersion::V1:
        return Frame::version1;
    case DataModelVersion::V2:
        return Frame::version2;
    case DataModelVersion::V3:
        break;
    }
    return Frame::version3;
}

} // namespace Parameters
