#pragma once

#include "schema/SchemaDocumentWriting.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>
#include <Units/SchemaFormat.h>

namespace Parameters {

/// Whether an object of a format is written for a version in the full frame, whose members carry type names. Everything
/// else takes the short frame.
[[nodiscard]] constexpr bool usesFullFrame(Units::SchemaFormat format, DataModelVersion version) noexcept {
    return format == Units::SchemaFormat::LumarDataSchema && version == DataModelVersion::V3;
}

/// Writes the frame for a format and a version, with the base schema that goes with it, and returns whether it is the
/// full one.
inline bool addVersionedFrame(JSON::Writer& target, std::string_view typeId, const BaseSchemas& bases,
                              Units::SchemaFormat format, DataModelVersion version) {
    if (usesFullFrame(format, version)) {
        addFullFrame(target, typeId, bases.fullFrame);
        return true;
    }
    addShortFrame(target, typeId, bases.shortFrame);
    return false;
}

} // namespace Parameters
