#include "schema/SchemaDocumentWriting.h"

#include "schema/Vocabulary.h"

namespace Parameters {

namespace {

std::string_view typeNameIf(bool typed, std::string_view typeName) { return typed ? typeName : std::string_view(); }

} // namespace

void addSchemaHeader(JSON::Writer& target, std::string_view schemaType) {
    target.addMember(Frame::schemaSpecification, Frame::specificationMarker);
    target.addMember(Frame::schemaType, schemaType);
}

void addTypeId(JSON::Writer& target, std::string_view typeId) { target.addMember(Frame::typeId, typeId); }

void addInherits(JSON::Writer& target, std::string_view baseSchema) {
    target.addArray(Frame::inherits, [&] { target.addElement(baseSchema); });
}

void addFullFrame(JSON::Writer& target, std::string_view typeId, std::string_view baseSchema) {
    addSchemaHeader(target, Frame::componentType);
    addShortFrame(target, typeId, baseSchema);
    target.addMember(Frame::sealed, true);
}

void addShortFrame(JSON::Writer& target, std::string_view typeId, std::string_view baseSchema) {
    addTypeId(target, typeId);
    addInherits(target, baseSchema);
}

void createBoolMember(JSON::Writer& target, std::string_view id, bool value, bool typed) {
    createValueMember(target, id, value, typeNameIf(typed, PrimitiveTypeNames::boolean));
}

void createInt64Member(JSON::Writer& target, std::string_view id, std::int64_t value, bool typed) {
    createValueMember(target, id, value, typeNameIf(typed, PrimitiveTypeNames::integer));
}

void createStringMember(JSON::Writer& target, std::string_view id, std::string_view text, bool typed) {
    createValueMember(target, id, text, typeNameIf(typed, PrimitiveTypeNames::string));
}

void createNameMember(JSON::Writer& target, std::string_view text, bool typed) {
    createStringMember(target, Frame::name, text, typed);
}

void createTypedValueMember(JSON::Writer& target, std::string_view id, std::string_view typeId) {
    createMember(target, id, [&] { target.addObject(Frame::typedValue, [&] { addTypeId(target, typeId); }); });
}

void createTypeIdObject(JSON::Writer& target, std::string_view typeId) {
    target.createObject([&] { addTypeId(target, typeId); });
}

} // namespace Parameters
