#pragma once

#include "schema/Frame.h"
#include "schema/JSONWriter.h"

#include <cstdint>
#include <string_view>

namespace Parameters {

// The order of calls is the order of keys and members in the text.

/// Adds "schemaSpecification" and "schemaType".
void addSchemaHeader(JSON::Writer& target, std::string_view schemaType);
void addTypeId(JSON::Writer& target, std::string_view typeId);
/// Adds "inherits" with the one base schema.
void addInherits(JSON::Writer& target, std::string_view baseSchema);
/// The frame of a component in its current form.
void addFullFrame(JSON::Writer& target, std::string_view typeId, std::string_view baseSchema);
/// The frame of a component that older data models read.
void addShortFrame(JSON::Writer& target, std::string_view typeId, std::string_view baseSchema);

// Sections, whose members createMembers then creates. Without any they are empty arrays.

template <class Create> void addConstants(JSON::Writer& target, const Create& createMembers) {
    target.addArray(Frame::constants, createMembers);
}
template <class Create> void addProperties(JSON::Writer& target, const Create& createMembers) {
    target.addArray(Frame::properties, createMembers);
}
template <class Create> void addEnumItems(JSON::Writer& target, const Create& createMembers) {
    target.addArray(Frame::enumItems, createMembers);
}

// Members of the section that is open.

/// The object {"id":id}, to which fill adds the rest.
template <class Fill> void createMember(JSON::Writer& target, std::string_view id, const Fill& fill) {
    target.createObject([&] {
        target.addMember(Frame::id, id);
        fill();
    });
}

/// A member with a value, and with the name of its type in front unless that is empty.
template <class Value>
void createValueMember(JSON::Writer& target, std::string_view id, const Value& value, std::string_view typeName) {
    createMember(target, id, [&] {
        if (!typeName.empty()) {
            addTypeId(target, typeName);
        }
        target.addMember(Frame::value, value);
    });
}
void createBoolMember(JSON::Writer& target, std::string_view id, bool value, bool typed);
void createInt64Member(JSON::Writer& target, std::string_view id, std::int64_t value, bool typed);
void createStringMember(JSON::Writer& target, std::string_view id, std::string_view text, bool typed);
void createNameMember(JSON::Writer& target, std::string_view text, bool typed);
void createTypedValueMember(JSON::Writer& target, std::string_view id, std::string_view typeId);

/// Adds the object {"typeid":typeId} to the array that is open.
void createTypeIdObject(JSON::Writer& target, std::string_view typeId);

/// A member whose value is an array of the objects {"typeid":...} of the items.
template <class Items, class TypeIdOf>
void createTypedValueArrayMember(JSON::Writer& target, std::string_view id, const Items& items,
                                 const TypeIdOf& typeIdOfItem) {
    createMember(target, id, [&] {
        target.addArray(Frame::typedValue, [&] {
            for (const auto& item : items) {
                createTypeIdObject(target, typeIdOfItem(item));
            }
        });
    });
}

} // namespace Parameters
