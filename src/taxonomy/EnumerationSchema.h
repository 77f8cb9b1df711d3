#pragma once

#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"
#include "taxonomy/EnumerationData.h"

#include <Parameters/DataModelVersion.h>

#include <optional>
#include <string>

namespace Parameters {

/// An enumeration document that has been read and not yet resolved; the values stand in ascending order of the number.
struct EnumerationSchema {
    EnumerationValues values;
    Units::SchemaFormat format;
};

/// What the document of an enumeration parameter refers to.
struct EnumerationParameterSchema {
    std::string_view enumeration;
    std::string_view spec;
};

/// No value if the document is no enumeration.
[[nodiscard]] std::optional<EnumerationSchema> readEnumerationSchema(const SchemaDocument& document);

[[nodiscard]] Enumeration resolveEnumeration(std::string_view typeId, EnumerationSchema schema);

void writeEnumerationSchema(const Enumeration& enumeration, JSON::Writer& target, DataModelVersion version);

[[nodiscard]] EnumerationParameterSchema readEnumerationParameterSchema(const SchemaDocument& document);

} // namespace Parameters
