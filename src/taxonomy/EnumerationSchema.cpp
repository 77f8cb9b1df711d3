#include "taxonomy/EnumerationSchema.h"

#include "base/Text.h"
#include "schema/VersionedWriting.h"

#include <algorithm>
#include <utility>

namespace Parameters {

namespace {

/// The items of an enumeration document, or null if the document is none. Each format has its own form.
const SchemaMembers* findItems(const SchemaDocument& document) {
    if (document.schemaFormat == Units::SchemaFormat::LumarDataSchema) {
        return document.schemaType == Frame::enumType ? &document.enumItems : nullptr;
    }
    return isExactly(document.baseSchema, Vocabulary::enumeration) ? &document.properties : nullptr;
}

/// The spec that the member "spec" of an enumeration parameter names: by the member's own "typeid" if it has a value.
std::string_view readSpecMember(const SchemaDocument& document, const JSON& member) {
    if (!member.hasMember(Frame::value)) {
        return readTypedValue(member.getMember(Frame::typedValue));
    }
    const JSON value = member.getMember(Frame::value);
    if (!value.isObject() || value.getSize() != 0) {
        value.report(Rule::WrongForm, concat({"Value of spec constant in enumeration parameter schema ",
                                              document.typeId, " must be an empty object."}));
    }
    const auto spec = readTypeIdAttribute(member);
    if (!spec) {
        member.report(Rule::MissingMember, concat({"Spec constant in enumeration parameter schema ", document.typeId,
                                                   " must specify a nonempty typeid string."}));
    }
    return spec.value_or("");
}

} // namespace

std::optional<EnumerationSchema> readEnumerationSchema(const SchemaDocument& document) {
    const SchemaMembers* items = findItems(document);
    if (items == nullptr) {
        return std::nullopt;
    }
    EnumerationSchema schema{{}, document.schemaFormat};
    for (const SchemaMember* item : items->sorted()) {
        if (item->id.empty()) {
            item->json.report(Rule::EmptyValue,
                              concat({"ID of value in enumeration schema ", document.typeId, " must not be empty."}));
        }
        const JSON number = item->json.getMember(Frame::value);
        if (!number.isInt64()) {
            (number.exists() ? number : item->json)
                .report(number.exists() ? Rule::WrongType : Rule::MissingMember,
                        concat({"Value ", item->id, " in enumeration schema ", document.typeId,
                                " must specify an integer value."}));
            continue;
        }
        schema.values.emplace_back(item->id, number.getInt64());
    }
    if (items->empty()) {
        document.report(Rule::MissingMember,
                        concat({"Enumeration schema ", document.typeId, " must specify at least one value."}));
    }
    // Stable: values with one number stay in the order of their ids.
    std::stable_sort(schema.values.begin(), schema.values.end(),
                     [](const auto& left, const auto& right) { return left.second < right.second; });
    return schema;
}

Enumeration resolveEnumeration(std::string_view typeId, EnumerationSchema schema) {
    return Internals::make<Enumeration>(std::string(typeId), std::move(schema.values), schema.format);
}

void writeEnumerationSchema(const Enumeration& enumeration, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(enumeration);
    const bool current = usesFullFrame(data.schemaFormat, version);
    if (current) {
        addSchemaHeader(target, Frame::enumType);
        addTypeId(target, data.typeId);
    } else {
        addShortFrame(target, data.typeId, Vocabulary::enumeration);
    }
    const auto createItems = [&] {
        for (const auto& value : data.values) {
            createInt64Member(target, value.first, value.second, false);
        }
    };
    if (current) {
        addEnumItems(target, createItems);
    } else {
        addProperties(target, createItems);
    }
}

EnumerationParameterSchema readEnumerationParameterSchema(const SchemaDocument& document) {
    EnumerationParameterSchema schema{readPropertyTypeId(document, Frame::value), {}};
    if (document.constants.find("spec") == nullptr) {
        document.report(Rule::MissingConstant,
                        concat({"Enumeration parameter schema ", document.typeId, " has an undefined spec constant."}));
        return schema;
    }
    // The map of constants holds values, but here the member's own "typeid" counts.
    const JSON constants = document.root.getMember(Frame::constants);
    for (std::uint32_t i = 0; i < constants.getSize(); ++i) {
        const JSON member = constants.getElement(i);
        const JSON id = member.getMember(Frame::id);
        if (id.isString() && id.getStringView() == "spec") {
            schema.spec = readSpecMember(document, member);
        }
    }
    return schema;
}

} // namespace Parameters
