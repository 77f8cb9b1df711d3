#include "schema/SchemaDocument.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <set>

namespace Parameters {

namespace {

/// Refuses what is no array of strings that all hold something.
void requireNonEmptyStringArray(const JSON& json) {
    if (!json.isArray()) {
        json.fail("Expected an array.");
    }
    for (std::uint32_t i = 0; i < json.getSize(); ++i) {
        const JSON element = json.getElement(i);
        if (!element.isString()) {
            json.fail("Expected an array of strings.");
        }
        if (element.getStringView().empty()) {
            json.fail("Expected an array of non-empty strings.");
        }
    }
}

/// What is wrong with an element of a member array by itself; nothing if it is in order. The id is that of the element.
const char* faultOf(const JSON& element, const JSON& id) {
    if (!element.isObject()) {
        return "Expected an object describing a property.";
    }
    if (!id.exists()) {
        return "A property definition must have an id attribute.";
    }
    if (!id.isString()) {
        return "A property's id attribute must be a string.";
    }
    return nullptr;
}

/// Tells whether an id stands among those before it.
class RepetitionCheck {
public:
    /// Takes the ids in turn.
    [[nodiscard]] bool isRepeated(std::string_view id, const std::vector<SchemaMember>& before) {
        // Few sections are longer than this, where looking at each is quicker.
        constexpr std::size_t shortSection = 32;
        if (before.size() < shortSection) {
            return std::any_of(before.begin(), before.end(),
                               [id](const SchemaMember& member) { return member.id == id; });
        }
        while (seen_.size() < before.size()) {
            seen_.insert(before[seen_.size()].id);
        }
        return seen_.find(id) != seen_.end();
    }

private:
    std::set<std::string_view> seen_;
};

std::vector<SchemaMember> readMemberArray(const JSON& root, std::string_view key) {
    const JSON array = root.getMember(key);
    if (!array.exists()) {
        return {};
    }
    if (!array.isArray()) {
        root.fail(concat({"Expected schema ", key, " to be an array."}));
    }
    std::vector<SchemaMember> members;
    members.reserve(array.getSize());
    RepetitionCheck repetitions;
    for (std::uint32_t i = 0; i < array.getSize(); ++i) {
        JSON element = array.getElement(i);
        const JSON id = element.getMember(Frame::id);
        if (const char* fault = faultOf(element, id)) {
            root.fail(fault);
        }
        const std::string_view idText = id.getStringView();
        if (repetitions.isRepeated(idText, members)) {
            root.fail(concat({"Item ", idText, " in ", key, " array must be defined only once."}));
        }
        members.push_back({idText, std::move(element)});
    }
    return members;
}

SchemaMembers readConstants(const JSON& root) {
    std::vector<SchemaMember> constants = readMemberArray(root, Frame::constants);
    for (SchemaMember& constant : constants) {
        JSON value = constant.json.getMember(Frame::value);
        if (!value.exists()) {
            value = constant.json.getMember(Frame::typedValue);
        }
        if (!value.exists()) {
            root.fail("A property definition must contain either a value or a typedValue.");
        }
        constant.json = std::move(value);
    }
    return SchemaMembers(std::move(constants));
}

void readFormat(const JSON& root, SchemaDocument& document) {
    const JSON specification = root.getMember(Frame::schemaSpecification);
    if (!specification.exists()) {
        return;
    }
    const JSON type = root.getMember(Frame::schemaType);
    if (!specification.isString() || specification.getStringView() != Frame::specificationMarker ||
        (type.exists() && !type.isString())) {
        root.fail("Unsupported schema specification version.");
    }
    document.schemaFormat = Units::SchemaFormat::LumarDataSchema;
    document.schemaType = type.exists() ? type.getStringView() : Frame::componentType;
}

std::string_view readBaseSchema(const JSON& root) {
    const JSON inherits = root.getMember(Frame::inherits);
    if (!inherits.exists()) {
        root.fail("Schema must specify an inheritance array.");
    }
    requireNonEmptyStringArray(inherits);
    if (inherits.getSize() != 1) {
        root.fail("Inheritance clause must specify exactly one base schema.");
    }
    return inherits.getElement(0).getStringView();
}

} // namespace

const JSON* SchemaMembers::find(std::string_view id) const noexcept {
    const auto found =
        std::find_if(members_.begin(), members_.end(), [id](const SchemaMember& member) { return member.id == id; });
    return found != members_.end() ? &found->json : nullptr;
}

std::vector<const SchemaMember*> SchemaMembers::sorted() const {
    std::vector<const SchemaMember*> order;
    order.reserve(members_.size());
    for (const SchemaMember& member : members_) {
        order.push_back(&member);
    }
    std::sort(order.begin(), order.end(),
              [](const SchemaMember* left, const SchemaMember* right) { return left->id < right->id; });
    return order;
}

SchemaDocument readSchemaDocument(const ExceptionFactory& exceptionFactory, const std::string& text,
                                  JSON::Scratch* scratch) {
    JSON root = JSON::parse(exceptionFactory, text, scratch);
    const JSON typeId = root.getMember(Frame::typeId);
    if (!typeId.isString()) {
        root.fail("Schema must specify a typeid string.");
    }
    SchemaDocument document{typeId.getString(), {}, {}, Units::SchemaFormat::PropertySets, {}, {}, {}, std::move(root)};
    if (document.typeId.empty()) {
        document.fail("The typeid string may not be empty.");
    }
    readFormat(document.root, document);
    if (document.schemaType != Frame::enumType) {
        document.baseSchema = readBaseSchema(document.root);
    }
    document.constants = readConstants(document.root);
    document.properties = SchemaMembers(readMemberArray(document.root, Frame::properties));
    document.enumItems = SchemaMembers(readMemberArray(document.root, Frame::enumItems));
    return document;
}

std::string_view readString(const JSON& json) {
    const std::string_view text = readAnyString(json);
    if (text.empty()) {
        json.fail("Expected a non-empty string.");
    }
    return text;
}

std::string_view readAnyString(const JSON& json) {
    if (!json.isString()) {
        json.fail("Expected a string.");
    }
    return json.getStringView();
}

double readNumber(const JSON& json) {
    if (!json.isNumber()) {
        json.fail("Expected a number.");
    }
    return json.getDouble();
}

std::int64_t readInteger(const JSON& json) {
    if (!json.isInt64()) {
        json.fail("Expected an integer.");
    }
    return json.getInt64();
}

bool readBool(const JSON& json) {
    if (!json.isBool()) {
        json.fail("Expected a Boolean value.");
    }
    return json.getBool();
}

std::string_view readTypedValue(const JSON& json) {
    if (!json.isObject()) {
        json.fail("A typedValue must be an object.");
    }
    if (json.getSize() == 1) {
        // The form that nearly all have. Anything else is looked at as a whole, to say what is wrong with it.
        const JSON typeId = json.getMember(Frame::typeId);
        if (typeId.isString() && !typeId.getStringView().empty()) {
            return typeId.getStringView();
        }
    }
    const auto attributes = json.getStringMap();
    if (attributes.size() != 1) {
        json.fail("A typedValue object may not be empty and must contain a typeid attribute only.");
    }
    const auto& [key, typeId] = *attributes.begin();
    if (key != Frame::typeId) {
        json.fail("A typedValue did not contain a typeid attribute.");
    }
    if (typeId.empty()) {
        json.fail("A typeid attribute in a typedValue object may not be empty.");
    }
    return typeId;
}

std::vector<std::string_view> readTypedValueArray(const JSON& json) {
    if (!json.isArray()) {
        json.fail("Expected an array of typedValue objects.");
    }
    std::vector<std::string_view> typeIds;
    typeIds.reserve(json.getSize());
    for (std::uint32_t i = 0; i < json.getSize(); ++i) {
        typeIds.push_back(readTypedValue(json.getElement(i)));
    }
    return typeIds;
}

void throwUndefinedConstant(const SchemaDocument& document, std::string_view key) {
    document.fail(concat({"Schema ", document.typeId, " has an undefined ", key, " constant."}));
}

std::string_view readStringConstant(const SchemaDocument& document, std::string_view key,
                                    std::optional<std::string_view> value) {
    return readConstant(document, key, value, readString);
}

std::string_view readAnyStringConstant(const SchemaDocument& document, std::string_view key,
                                       std::optional<std::string_view> value) {
    return readConstant(document, key, value, readAnyString);
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

std::string_view readTypedValueConstant(const SchemaDocument& document, std::string_view key,
                                        std::optional<std::string_view> value) {
    return readConstant(document, key, value, readTypedValue);
}

std::vector<std::string_view> readTypedValueArrayConstant(const SchemaDocument& document, std::string_view key,
                                                          std::optional<std::vector<std::string_view>> value) {
    return readConstant(document, key, std::move(value), readTypedValueArray);
}

std::optional<std::string_view> readTypeIdAttribute(const JSON& json) {
    const JSON typeId = json.getMember(Frame::typeId);
    return typeId.exists() ? std::optional(readString(typeId)) : std::nullopt;
}

std::string_view readPropertyTypeId(const SchemaDocument& document, std::string_view key) {
    const JSON* property = document.properties.find(key);
    if (property == nullptr) {
        document.fail(concat({"Schema ", document.typeId, " has an undefined \"", key, "\" property."}));
    }
    const auto typeId = readTypeIdAttribute(*property);
    if (!typeId) {
        document.fail(
            concat({"Property \"", key, "\" in schema ", document.typeId, " must specify a nonempty typeid string."}));
    }
    return *typeId;
}

} // namespace Parameters
