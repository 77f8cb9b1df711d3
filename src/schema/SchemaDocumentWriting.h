#pragma once

#include "schema/JSON.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

// The order of calls is the order of keys in the text. In all of these, target or document is the document handle that
// is being written and owns every string.

/// Adds "schemaSpecification" and "schemaType".
void addSchemaHeader(JSON& target, std::string_view schemaType);
void addTypeId(JSON& target, std::string_view typeId);
/// Adds "inherits" with the one base schema.
void addInherits(JSON& target, std::string_view baseSchema);
/// The frame of a component in its current form.
void addFullFrame(JSON& target, std::string_view typeId, std::string_view baseSchema);
/// The frame of a component that older data models read.
void addShortFrame(JSON& target, std::string_view typeId, std::string_view baseSchema);

/// These move the members into an array under their key. No members give an empty array.
void addConstants(JSON& target, std::vector<JSON>& members);
void addProperties(JSON& target, std::vector<JSON>& members);
void addEnumItems(JSON& target, std::vector<JSON>& members);

/// Appends a string to an object.
void addString(JSON& object, const JSON& document, std::string_view key, std::string_view text);

/// The member object {"id":id}.
[[nodiscard]] JSON createMember(const JSON& document, std::string_view id);
/// A member with a value, which is moved in, and with the name of its type in front unless that is empty.
[[nodiscard]] JSON createValueMember(const JSON& document, std::string_view id, JSON value, std::string_view typeName);
[[nodiscard]] JSON createBoolMember(const JSON& document, std::string_view id, bool value, bool typed);
[[nodiscard]] JSON createInt64Member(const JSON& document, std::string_view id, std::int64_t value, bool typed);
[[nodiscard]] JSON createStringMember(const JSON& document, std::string_view id, std::string_view text, bool typed);
[[nodiscard]] JSON createNameMember(const JSON& document, std::string_view text, bool typed);
[[nodiscard]] JSON createTypedValueMember(const JSON& document, std::string_view id, std::string_view typeId);
/// The array of objects {"typeid":typeId}.
[[nodiscard]] JSON createTypeIdObjects(const JSON& document, const std::vector<std::string>& typeIds);
[[nodiscard]] JSON createTypedValueArrayMember(const JSON& document, std::string_view id,
                                               const std::vector<std::string>& typeIds);

} // namespace Parameters
