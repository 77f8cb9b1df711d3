#include "schema/SchemaDocumentWriting.h"

#include "schema/Frame.h"
#include "schema/PrimitiveTypeNames.h"

#include <utility>

namespace Parameters {

namespace {

void addSection(JSON& target, std::string_view key, std::vector<JSON>& members) {
    JSON section(target, members);
    target.addMember(target, key, section);
}

std::string_view typeNameIf(bool typed, std::string_view typeName) { return typed ? typeName : std::string_view(); }

JSON createTypeIdObject(const JSON& document, std::string_view typeId) {
    JSON object = JSON::createObject();
    addString(object, document, Frame::typeId, typeId);
    return object;
}

} // namespace

void addSchemaHeader(JSON& target, std::string_view schemaType) {
    addString(target, target, Frame::schemaSpecification, Frame::specificationMarker);
    addString(target, target, Frame::schemaType, schemaType);
}

void addTypeId(JSON& target, std::string_view typeId) { addString(target, target, Frame::typeId, typeId); }

void addInherits(JSON& target, std::string_view baseSchema) {
    std::vector<JSON> bases;
    bases.emplace_back(target, baseSchema);
    addSection(target, Frame::inherits, bases);
}

void addFullFrame(JSON& target, std::string_view typeId, std::string_view baseSchema) {
    addSchemaHeader(target, Frame::componentType);
    addShortFrame(target, typeId, baseSchema);
    JSON sealed(true);
    target.addMember(target, Frame::sealed, sealed);
}

void addShortFrame(JSON& target, std::string_view typeId, std::string_view baseSchema) {
    addTypeId(target, typeId);
    addInherits(target, baseSchema);
}

void addConstants(JSON& target, std::vector<JSON>& members) { addSection(target, Frame::constants, members); }

void addProperties(JSON& target, std::vector<JSON>& members) { addSection(target, Frame::properties, members); }

void addEnumItems(JSON& target, std::vector<JSON>& members) { addSection(target, Frame::enumItems, members); }

void addString(JSON& object, const JSON& document, std::string_view key, std::string_view text) {
    JSON value(document, text);
    object.addMember(document, key, value);
}

JSON createMember(const JSON& document, std::string_view id) {
    JSON member = JSON::createObject();
    addString(member, document, Frame::id, id);
    return member;
}

JSON createValueMember(const JSON& document, std::string_view id, JSON value, std::string_view typeName) {
    JSON member = createMember(document, id);
    if (!typeName.empty()) {
        addString(member, document, Frame::typeId, typeName);
    }
    member.addMember(document, Frame::value, value);
    return member;
}

JSON createBoolMember(const JSON& document, std::string_view id, bool value, bool typed) {
    return createValueMember(document, id, JSON(value), typeNameIf(typed, PrimitiveTypeNames::boolean));
}

JSON createInt64Member(const JSON& document, std::string_view id, std::int64_t value, bool typed) {
    return createValueMember(document, id, JSON(value), typeNameIf(typed, PrimitiveTypeNames::integer));
}

JSON createStringMember(const JSON& document, std::string_view id, std::string_view text, bool typed) {
    return createValueMember(document, id, JSON(document, text), typeNameIf(typed, PrimitiveTypeNames::string));
}

JSON createNameMember(const JSON& document, std::string_view text, bool typed) {
    return createStringMember(document, Frame::name, text, typed);
}

JSON createTypedValueMember(const JSON& document, std::string_view id, std::string_view typeId) {
    JSON reference = createTypeIdObject(document, typeId);
    JSON member = createMember(document, id);
    member.addMember(document, Frame::typedValue, reference);
    return member;
}

JSON createTypeIdObjects(const JSON& document, const std::vector<std::string>& typeIds) {
    std::vector<JSON> objects;
    objects.reserve(typeIds.size());
    for (const std::string& typeId : typeIds) {
        objects.push_back(createTypeIdObject(document, typeId));
    }
    return {document, objects};
}

JSON createTypedValueArrayMember(const JSON& document, std::string_view id, const std::vector<std::string>& typeIds) {
    JSON references = createTypeIdObjects(document, typeIds);
    JSON member = createMember(document, id);
    member.addMember(document, Frame::typedValue, references);
    return member;
}

} // namespace Parameters
