#pragma once

#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/StringRange.h>

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Parameters {

/// The constant of a document, and the member of an inline range, that holds a pattern.
inline constexpr std::string_view regexKey = "regex";

/// A string range document that has been read and not yet resolved.
struct StringRangeSchema {
    std::variant<RegexStringRangeComponent, SetStringRangeComponent> component;
    Units::SchemaFormat format;
};

/// No value if the document is no string range. There are no documents of the default string range.
[[nodiscard]] std::optional<StringRangeSchema> readStringRangeSchema(const SchemaDocument& document);

[[nodiscard]] StringRange resolveStringRange(std::string_view typeId, StringRangeSchema schema);

void writeStringRangeSchema(const StringRange& range, JSON::Writer& target, DataModelVersion version);

/// The range that a parameter's document gives inline, in an object, under a base schema. The base decides the form of
/// the value, which must be an object; the range's typeid goes by the document's format.
[[nodiscard]] StringRange readInlineStringRange(std::string_view baseTypeId, const JSON& value,
                                                Units::SchemaFormat format);

/// Creates the "range" constant of a parameter's document, or nothing for a range that limits nothing.
void writeStringRangeConstant(JSON::Writer& target, const StringRange& range, DataModelVersion version);

} // namespace Parameters
