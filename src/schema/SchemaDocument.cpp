#include "schema/SchemaDocument.h"

#include "schema/Text.h"

#include <algorithm>
#include <cstddef>

namespace Parameters {

namespace {

std::vector<std::string> readNonEmptyStringArray(const JSON& json) {
    if (!json.isArray()) {
        json.raise("Expected an array.");
    }
    std::vector<std::string> strings;
    for (const JSON& element : json.getArray()) {
        if (!element.isString()) {
            json.raise("Expected an array of strings.");
        }
        strings.push_back(element.getString());
        if (strings.back().empty()) {
            json.raise("Expected an array of non-empty strings.");
        }
    }
    return strings;
}

struct IndexedMember {
    SchemaMember member;
    std::size_t index;
};

/// What is wrong with an element of a member array by itself; nothing if it is in order.
const char* faultOf(const JSON& element) {
    if (!element.isObject()) {
        return "Expected an object describing a property.";
    }
    if (!element.hasMember(Frame::id)) {
        return "A property definition must have an id attribute.";
    }
    if (!element.getMember(Frame::id).isString()) {
        return "A property's id attribute must be a string.";
    }
    return nullptr;
}

/// Of the ids that occur again, the one that does so first in the order of the array.
const IndexedMember* firstRepetition(const std::vector<IndexedMember>& sorted) {
    const IndexedMember* first = nullptr;
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        if (sorted[i].member.id == sorted[i - 1].member.id && (first == nullptr || sorted[i].index < first->index)) {
            first = &sorted[i];
        }
    }
    return first;
}

SchemaMembers readMemberArray(const JSON& root, std::string_view key) {
    if (!root.hasMember(key)) {
        return {};
    }
    const JSON array = root.getMember(key);
    if (!array.isArray()) {
        root.raise(joined({"Expected schema ", key, " to be an array."}));
    }
    // An id is looked up among those before it only after the loop, so that a long array costs one sort. All
    // repetitions found then stand before the faulty element that ended the loop, and so are reported before it.
    std::vector<IndexedMember> members;
    members.reserve(array.getSize());
    const char* fault = nullptr;
    for (JSON& element : array.getArray()) {
        fault = faultOf(element);
        if (fault != nullptr) {
            break;
        }
        const std::string_view id = element.getMember(Frame::id).getStringView();
        members.push_back({{id, std::move(element)}, members.size()});
    }
    std::sort(members.begin(), members.end(), [](const IndexedMember& left, const IndexedMember& right) {
        const int order = left.member.id.compare(right.member.id);
        return order != 0 ? order < 0 : left.index < right.index;
    });
    if (const IndexedMember* repeated = firstRepetition(members)) {
        root.raise(joined({"Item ", repeated->member.id, " in ", key, " array must be defined only once."}));
    }
    if (fault != nullptr) {
        root.raise(fault);
    }
    std::vector<SchemaMember> sorted;
    sorted.reserve(members.size());
    for (IndexedMember& member : members) {
        sorted.push_back(std::move(member.member));
    }
    return SchemaMembers(std::move(sorted));
}

SchemaMembers readConstants(const JSON& root) {
    std::vector<SchemaMember> values;
    for (const auto& [id, json] : readMemberArray(root, Frame::constants)) {
        if (json.hasMember(Frame::value)) {
            values.push_back({id, json.getMember(Frame::value)});
        } else if (json.hasMember(Frame::typedValue)) {
            values.push_back({id, json.getMember(Frame::typedValue)});
        } else {
            root.raise("A property definition must contain either a value or a typedValue.");
        }
    }
    return SchemaMembers(std::move(values));
}

void readFormat(const JSON& root, SchemaDocument& document) {
    if (!root.hasMember(Frame::schemaSpecification)) {
        return;
    }
    const JSON specification = root.getMember(Frame::schemaSpecification);
    const bool hasType = root.hasMember(Frame::schemaType);
    const JSON type = root.getMember(Frame::schemaType);
    if (!specification.isString() || specification.getStringView() != Frame::specificationMarker ||
        (hasType && !type.isString())) {
        root.raise("Unsupported schema specification version.");
    }
    document.schemaFormat = Units::SchemaFormat::LumarDataSchema;
    document.schemaType = hasType ? type.getStringView() : Frame::componentType;
}

std::string_view readBaseSchema(const JSON& root) {
    if (!root.hasMember(Frame::inherits)) {
        root.raise("Schema must specify an inheritance array.");
    }
    const JSON inherits = root.getMember(Frame::inherits);
    const auto bases = readNonEmptyStringArray(inherits);
    if (bases.size() != 1) {
        root.raise("Inheritance clause must specify exactly one base schema.");
    }
    return inherits.getArray().front().getStringView();
}

} // namespace

const JSON* SchemaMembers::find(std::string_view id) const noexcept {
    const auto found =
        std::lower_bound(members_.begin(), members_.end(), id,
                         [](const SchemaMember& member, std::string_view key) { return member.id < key; });
    return found != members_.end() && found->id == id ? &found->json : nullptr;
}

SchemaDocument readSchemaDocument(std::shared_ptr<ExceptionFactory> exceptionFactory, const std::string& text,
                                  JSON::Scratch* scratch) {
    JSON root = JSON::parse(std::move(exceptionFactory), text, scratch);
    const JSON typeId = root.getMember(Frame::typeId);
    if (!typeId.isString()) {
        root.raise("Schema must specify a typeid string.");
    }
    SchemaDocument document{typeId.getString(), {}, {}, Units::SchemaFormat::PropertySets, {}, {}, {}, std::move(root)};
    if (document.typeId.empty()) {
        document.raise("The typeid string may not be empty.");
    }
    readFormat(document.root, document);
    if (document.schemaType != Frame::enumType) {
        document.baseSchema = readBaseSchema(document.root);
    }
    document.constants = readConstants(document.root);
    document.properties = readMemberArray(document.root, Frame::properties);
    document.enumItems = readMemberArray(document.root, Frame::enumItems);
    return document;
}

std::string readString(const JSON& json) {
    std::string text = readAnyString(json);
    if (text.empty()) {
        json.raise("Expected a non-empty string.");
    }
    return text;
}

std::string readAnyString(const JSON& json) {
    if (!json.isString()) {
        json.raise("Expected a string.");
    }
    return json.getString();
}

double readNumber(const JSON& json) {
    if (!json.isNumber()) {
        json.raise("Expected a number.");
    }
    return json.getDouble();
}

std::int64_t readInteger(const JSON& json) {
    if (!json.isInt64()) {
        json.raise("Expected an integer.");
    }
    return json.getInt64();
}

bool readBool(const JSON& json) {
    if (!json.isBool()) {
        json.raise("Expected a Boolean value.");
    }
    return json.getBool();
}

std::string readTypedValue(const JSON& json) {
    if (!json.isObject()) {
        json.raise("A typedValue must be an object.");
    }
    const auto attributes = json.getStringMap();
    if (attributes.size() != 1) {
        json.raise("A typedValue object may not be empty and must contain a typeid attribute only.");
    }
    const auto& [key, typeId] = *attributes.begin();
    if (key != Frame::typeId) {
        json.raise("A typedValue did not contain a typeid attribute.");
    }
    if (typeId.empty()) {
        json.raise("A typeid attribute in a typedValue object may not be empty.");
    }
    return typeId;
}

std::vector<std::string> readTypedValueArray(const JSON& json) {
    if (!json.isArray()) {
        json.raise("Expected an array of typedValue objects.");
    }
    std::vector<std::string> typeIds;
    typeIds.reserve(json.getSize());
    for (const JSON& element : json.getArray()) {
        typeIds.push_back(readTypedValue(element));
    }
    return typeIds;
}

void raiseUndefinedConstant(const SchemaDocument& document, std::string_view key) {
    document.raise(joined({"Schema ", document.typeId, " has an undefined ", key, " constant."}));
}

std::string readStringConstant(const SchemaDocument& document, std::string_view key, std::optional<std::string> value) {
    return readConstant(document, key, std::move(value), readString);
}

std::string readAnyStringConstant(const SchemaDocument& document, std::string_view key,
                                  std::optional<std::string> value) {
    return readConstant(document, key, std::move(value), readAnyString);
}

double readNumberConstant(const SchemaDocument& document, std::string_view key, std::optional<double> value) {
    return readConstant(document, key, value, readNumber);
}

std::int64_t readIntegerConstant(const SchemaDocument& document, std::string_view key,
                                 std::optional<std::int64_t> value) {
    return readConstant(document, key, value, readInteger);
}

bool readBoolConstant(const SchemaDocument& document, std::string_view key, std::optional<bool> value) {
    return readConstant(document, key, value, readBool);
}

std::string readTypedValueConstant(const SchemaDocument& document, std::string_view key,
                                   std::optional<std::string> value) {
    return readConstant(document, key, std::move(value), readTypedValue);
}

std::vector<std::string> readTypedValueArrayConstant(const SchemaDocument& document, std::string_view key,
                                                     std::optional<std::vector<std::string>> value) {
    return readConstant(document, key, std::move(value), readTypedValueArray);
}

std::optional<std::string> readTypeIdAttribute(const JSON& json) {
    if (!json.hasMember(Frame::typeId)) {
        return std::nullopt;
    }
    return readString(json.getMember(Frame::typeId));
}

std::string readPropertyTypeId(const SchemaDocument& document, std::string_view key) {
    const JSON* property = document.properties.find(key);
    if (property == nullptr) {
        document.raise(joined({"Schema ", document.typeId, " has an undefined \"", key, "\" property."}));
    }
    auto typeId = readTypeIdAttribute(*property);
    if (!typeId) {
        document.raise(
            joined({"Property \"", key, "\" in schema ", document.typeId, " must specify a nonempty typeid string."}));
    }
    return *std::move(typeId);
}

} // namespace Parameters
