#include "schema/SchemaDocument.h"

#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <new>
#include <set>

namespace Parameters {

namespace {

/// Whether it is an array of strings that all hold something; reports what is not.
bool requireNonEmptyStringArray(const JSON& json) {
    if (!json.isArray()) {
        json.report(Rule::WrongType, "Expected an array.");
        return false;
    }
    bool isRight = true;
    for (std::uint32_t i = 0; i < json.getSize(); ++i) {
        const JSON element = json.getElement(i);
        if (!element.isString()) {
            element.report(Rule::WrongType, "Expected an array of strings.");
            isRight = false;
        } else if (element.getStringView().empty()) {
            element.report(Rule::EmptyValue, "Expected an array of non-empty strings.");
            isRight = false;
        }
    }
    return isRight;
}

/// Whether an element of a member array is in order by itself; reports what is not. The id is that of the element.
bool requireMember(const JSON& element, const JSON& id) {
    if (!element.isObject()) {
        element.report(Rule::WrongType, "Expected an object describing a property.");
    } else if (!id.exists()) {
        element.report(Rule::MissingMember, "A property definition must have an id attribute.");
    } else if (!id.isString()) {
        id.report(Rule::WrongType, "A property's id attribute must be a string.");
    }
    return element.isObject() && id.isString();
}

/// Members one behind the other, in memory of the document's tree.
struct MemberArray {
    SchemaMember* begin = nullptr;
    SchemaMember* end = nullptr;

    [[nodiscard]] std::size_t size() const noexcept { return static_cast<std::size_t>(end - begin); }
};

/// Tells whether an id stands among those before it.
class RepetitionCheck {
public:
    /// Takes the ids in turn.
    [[nodiscard]] bool isRepeated(std::string_view id, const MemberArray& before) {
        // Few sections are longer than this, where looking at each is quicker.
        constexpr std::size_t shortSection = 32;
        if (before.size() < shortSection) {
            return std::any_of(before.begin, before.end, [id](const SchemaMember& member) { return member.id == id; });
        }
        while (seen_.size() < before.size()) {
            seen_.insert(before.begin[seen_.size()].id);
        }
        return seen_.find(id) != seen_.end();
    }

private:
    std::set<std::string_view> seen_;
};

/// Tells the observer that these members may be there and mean nothing to a reader.
void ignoreMembers(const JSON& object, std::initializer_list<std::string_view> keys) {
    if (object.observer() != nullptr) {
        for (const std::string_view key : keys) {
            static_cast<void>(object.getMember(key));
        }
    }
}

MemberArray readMemberArray(const JSON::Document& tree, std::string_view key) {
    const JSON array = tree.root().getMember(key);
    if (!array.exists()) {
        return {};
    }
    if (!array.isArray()) {
        array.report(Rule::WrongType, concat({"Expected schema ", key, " to be an array."}));
        return {};
    }
    auto* const room = static_cast<SchemaMember*>(tree.allocate(array.getSize() * sizeof(SchemaMember)));
    MemberArray members{room, room};
    RepetitionCheck repetitions;
    for (std::uint32_t i = 0; i < array.getSize(); ++i) {
        const JSON element = array.getElement(i);
        const JSON id = element.getMember(Frame::id);
        if (!requireMember(element, id)) {
            ignoreMembers(element, {Frame::value, Frame::typedValue, Frame::typeId});
            continue;
        }
        const std::string_view idText = id.getStringView();
        if (repetitions.isRepeated(idText, members)) {
            id.report(Rule::RepeatedId, concat({"Item ", idText, " in ", key, " array must be defined only once."}));
            ignoreMembers(element, {Frame::value, Frame::typedValue, Frame::typeId});
            continue;
        }
        new (members.end++) SchemaMember{idText, element};
    }
    return members;
}

MemberArray readConstants(const JSON::Document& tree) {
    MemberArray constants = readMemberArray(tree, Frame::constants);
    for (SchemaMember* constant = constants.begin; constant != constants.end; ++constant) {
        JSON value = constant->json.getMember(Frame::value);
        if (!value.exists()) {
            value = constant->json.getMember(Frame::typedValue);
        }
        if (!value.exists()) {
            constant->json.report(Rule::MissingMember,
                                  "A property definition must contain either a value or a typedValue.");
        }
        ignoreMembers(constant->json, {Frame::typeId});
        constant->json = value;
    }
    const auto isMissing = [](const SchemaMember& constant) { return !constant.json.exists(); };
    constants.end = std::remove_if(constants.begin, constants.end, isMissing);
    return constants;
}

void readFormat(const JSON& root, SchemaDocument& document) {
    const JSON specification = root.getMember(Frame::schemaSpecification);
    if (!specification.exists()) {
        return;
    }
    const JSON type = root.getMember(Frame::schemaType);
    const bool isKnown = specification.isString() && specification.getStringView() == Frame::specificationMarker;
    if (!isKnown || (type.exists() && !type.isString())) {
        (isKnown ? type : specification)
            .report(Rule::UnsupportedSpecification, "Unsupported schema specification version.");
    }
    document.schemaFormat = Units::SchemaFormat::LumarDataSchema;
    document.schemaType = type.isString() ? type.getStringView() : Frame::componentType;
}

std::string_view readBaseSchema(const JSON& root) {
    const JSON inherits = root.getMember(Frame::inherits);
    if (!inherits.exists()) {
        root.report(Rule::MissingMember, "Schema must specify an inheritance array.");
        return {};
    }
    if (!requireNonEmptyStringArray(inherits)) {
        return {};
    }
    if (inherits.getSize() != 1) {
        inherits.report(Rule::WrongForm, "Inheritance clause must specify exactly one base schema.");
        return {};
    }
    return inherits.getElement(0).getStringView();
}

} // namespace

const JSON* SchemaMembers::find(std::string_view id) const {
    const SchemaMember* const place =
        std::find_if(begin_, end_, [id](const SchemaMember& member) { return member.id == id; });
    const SchemaMember* const found = place != end_ ? place : nullptr;
    if (observer_ != nullptr) {
        observer_->askedForEntry(section_, id, found);
    }
    return found != nullptr ? &found->json : nullptr;
}

std::vector<const SchemaMember*> SchemaMembers::sorted() const {
    std::vector<const SchemaMember*> order;
    order.reserve(static_cast<std::size_t>(end_ - begin_));
    for (const SchemaMember& member : *this) {
        order.push_back(&member);
        if (observer_ != nullptr) {
            observer_->askedForEntry(section_, member.id, &member);
        }
    }
    std::sort(order.begin(), order.end(),
              [](const SchemaMember* left, const SchemaMember* right) { return left->id < right->id; });
    return order;
}

SchemaDocument readSchemaDocument(const ExceptionFactory& exceptionFactory, const std::string& text,
                                  JSON::Scratch* scratch) {
    return readSchemaDocument(JSON::parse(exceptionFactory, text, scratch));
}

SchemaDocument readSchemaDocument(JSON::Document tree) {
    const JSON root = tree.root();
    const JSON typeId = root.getMember(Frame::typeId);
    if (!typeId.isString()) {
        (typeId.exists() ? typeId : root)
            .report(typeId.exists() ? Rule::WrongType : Rule::MissingMember, "Schema must specify a typeid string.");
    } else if (typeId.getStringView().empty()) {
        typeId.report(Rule::EmptyValue, "The typeid string may not be empty.");
    }
    SchemaDocument document{typeId.isString() ? typeId.getString() : "",
                            {},
                            false,
                            {},
                            Units::SchemaFormat::PropertySets,
                            {},
                            {},
                            {},
                            root,
                            std::move(tree)};
    if (!root.isObject()) {
        return document;
    }
    ignoreMembers(root, {Frame::sealed, Frame::downgradedFrom});
    readFormat(root, document);
    if (document.schemaType != Frame::enumType) {
        document.baseSchema = readBaseSchema(root);
        document.hasInnerBeginning = document.baseSchema.find(Vocabulary::beginning, 1) != std::string_view::npos;
    }
    const auto section = [&](std::string_view key, const MemberArray& members) {
        return SchemaMembers(key, members.begin, members.end, root.observer());
    };
    document.constants = section(Frame::constants, readConstants(document.tree));
    document.properties = section(Frame::properties, readMemberArray(document.tree, Frame::properties));
    document.enumItems = section(Frame::enumItems, readMemberArray(document.tree, Frame::enumItems));
    return document;
}

std::string_view readString(const JSON& json) {
    const std::string_view text = readAnyString(json);
    if (text.empty() && json.isString()) {
        json.report(Rule::EmptyValue, "Expected a non-empty string.");
    }
    return text;
}

std::string_view readAnyString(const JSON& json) {
    if (!json.isString()) {
        json.report(Rule::WrongType, "Expected a string.");
        return {};
    }
    return json.getStringView();
}

double readNumber(const JSON& json) {
    if (!json.isNumber()) {
        json.report(Rule::WrongType, "Expected a number.");
        return 0;
    }
    return json.getDouble();
}

std::int64_t readInteger(const JSON& json) {
    if (!json.isInt64()) {
        json.report(Rule::WrongType, "Expected an integer.");
        return 0;
    }
    return json.getInt64();
}

bool readBool(const JSON& json) {
    if (!json.isBool()) {
        json.report(Rule::WrongType, "Expected a Boolean value.");
        return false;
    }
    return json.getBool();
}

std::string_view readTypedValue(const JSON& json) {
    if (!json.isObject()) {
        json.report(Rule::WrongType, "A typedValue must be an object.");
        return {};
    }
    if (json.getSize() == 1) {
        // The form that nearly all have. Anything else is looked at as a whole, to say what is wrong with it.
        const JSON typeId = json.getMember(Frame::typeId);
        if (typeId.isString() && !typeId.getStringView().empty()) {
            return typeId.getStringView();
        }
    }
    const auto attributes = json.getStringMap();
    if (!attributes) {
        return {};
    }
    if (attributes->size() != 1) {
        json.report(Rule::WrongForm, "A typedValue object may not be empty and must contain a typeid attribute only.");
        return {};
    }
    const auto& [key, typeId] = *attributes->begin();
    if (key != Frame::typeId) {
        json.report(Rule::WrongForm, "A typedValue did not contain a typeid attribute.");
        return {};
    }
    if (typeId.empty()) {
        json.report(Rule::EmptyValue, "A typeid attribute in a typedValue object may not be empty.");
    }
    return typeId;
}

std::vector<std::string_view> readTypedValueArray(const JSON& json) {
    if (!json.isArray()) {
        json.report(Rule::WrongType, "Expected an array of typedValue objects.");
        return {};
    }
    std::vector<std::string_view> typeIds;
    typeIds.reserve(json.getSize());
    for (std::uint32_t i = 0; i < json.getSize(); ++i) {
        typeIds.push_back(readTypedValue(json.getElement(i)));
    }
    return typeIds;
}

void reportUndefinedConstant(const SchemaDocument& document, std::string_view key) {
    document.report(Rule::MissingConstant,
                    concat({"Schema ", document.typeId, " has an undefined ", key, " constant."}));
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
        document.report(Rule::MissingProperty,
                        concat({"Schema ", document.typeId, " has an undefined \"", key, "\" property."}));
        return {};
    }
    const auto typeId = readTypeIdAttribute(*property);
    if (!typeId) {
        property->report(Rule::MissingMember, concat({"Property \"", key, "\" in schema ", document.typeId,
                                                      " must specify a nonempty typeid string."}));
    }
    return typeId.value_or("");
}

} // namespace Parameters
