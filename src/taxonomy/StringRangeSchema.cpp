#include "taxonomy/StringRangeSchema.h"

#include "schema/DataModels.h"
#include "schema/VersionedWriting.h"
#include "schema/Vocabulary.h"
#include "taxonomy/StringRangeData.h"

#include <set>

namespace Parameters {

namespace {

constexpr std::string_view allowedValuesKey = "allowedValues";
constexpr std::string_view regexKey = "regex";

std::vector<std::string> readUniqueStringArray(const JSON& json) {
    if (!json.isArray()) {
        json.fail("Expected an array.");
    }
    std::set<std::string_view> seen;
    std::vector<std::string> strings;
    strings.reserve(json.getSize());
    for (const JSON& element : json.getArray()) {
        if (!element.isString()) {
            json.fail("Expected an array of strings.");
        }
        if (!seen.insert(element.getStringView()).second) {
            json.fail("Expected an array of unique strings.");
        }
        strings.push_back(element.getString());
    }
    return strings;
}

void addStringArray(JSON::Writer& target, std::string_view key, const std::vector<std::string>& strings) {
    target.addArray(key, [&] {
        for (const std::string& string : strings) {
            target.addElement(string);
        }
    });
}

} // namespace

std::optional<StringRangeSchema> readStringRangeSchema(const SchemaDocument& document) {
    if (containsPrefix(document.baseSchema, Vocabulary::setStringRange.prefix)) {
        const auto values =
            readConstant<std::vector<std::string>>(document, allowedValuesKey, std::nullopt, readUniqueStringArray);
        return StringRangeSchema{SetStringRangeComponent(values), document.schemaFormat};
    }
    if (containsPrefix(document.baseSchema, Vocabulary::regexStringRange.prefix)) {
        return StringRangeSchema{RegexStringRangeComponent(std::string(readAnyStringConstant(document, regexKey))),
                                 document.schemaFormat};
    }
    return std::nullopt;
}

StringRange resolveStringRange(std::string_view typeId, const StringRangeSchema& schema) {
    return std::visit([&](const auto& component) { return StringRange(std::string(typeId), component, schema.format); },
                      schema.component);
}

void writeStringRangeSchema(const StringRange& range, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (const auto* set = std::get_if<SetStringRangeComponent>(&data.component)) {
        const bool typed =
            addVersionedFrame(target, data.typeId, Vocabulary::setStringRange, data.schemaFormat, version);
        addConstants(target, [&] {
            createMember(target, allowedValuesKey, [&] {
                addStringArray(target, Frame::value, StringRangeInternals::allowedValuesOf(*set));
                if (typed) {
                    addTypeId(target, PrimitiveTypeNames::string);
                }
            });
        });
    } else if (const auto* regex = std::get_if<RegexStringRangeComponent>(&data.component)) {
        const bool typed =
            addVersionedFrame(target, data.typeId, Vocabulary::regexStringRange, data.schemaFormat, version);
        addConstants(target,
                     [&] { createStringMember(target, regexKey, StringRangeInternals::regexOf(*regex), typed); });
    } else {
        throwNotRepresentable();
    }
}

StringRange readInlineStringRange(std::string_view baseTypeId, const JSON& value, Units::SchemaFormat format) {
    if (containsPrefix(baseTypeId, Vocabulary::setStringRange.prefix)) {
        std::vector<std::string> strings;
        if (value.hasMember(allowedValuesKey)) {
            strings = readUniqueStringArray(value.getMember(allowedValuesKey));
        }
        if (strings.empty()) {
            value.fail("Inline value override in range constant typedValue must specify a non-empty array of unique "
                       "string values for constant allowedValues.");
        }
        return {SetStringRangeComponent(strings), format};
    }
    if (containsPrefix(baseTypeId, Vocabulary::regexStringRange.prefix)) {
        if (!value.hasMember(regexKey)) {
            value.fail("Inline value override in range constant typedValue must specify a string value for constant "
                       "regex.");
        }
        return {RegexStringRangeComponent(std::string(readAnyString(value.getMember(regexKey)))), format};
    }
    if (value.getSize() != 0) {
        value.fail("Inline value override for default string range in range constant typedValue, if present, must be "
                   "an empty object.");
    }
    return {};
}

void writeStringRangeConstant(JSON::Writer& target, const StringRange& range, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (const auto* set = std::get_if<SetStringRangeComponent>(&data.component)) {
        const std::vector<std::string>& values = StringRangeInternals::allowedValuesOf(*set);
        if (values.empty()) {
            return;
        }
        createRangeConstant(target, Vocabulary::setStringRange, data.typeId,
                            beginsWithPrefix(data.typeId, Vocabulary::setStringRange.prefix), version,
                            [&] { addStringArray(target, allowedValuesKey, values); });
    } else if (const auto* regex = std::get_if<RegexStringRangeComponent>(&data.component)) {
        // Unlike the set, and unlike the typeid below, this looks for the prefix anywhere.
        createRangeConstant(target, Vocabulary::regexStringRange, data.typeId,
                            containsPrefix(data.typeId, Vocabulary::regexStringRange.prefix), version,
                            [&] { target.addMember(regexKey, StringRangeInternals::regexOf(*regex)); });
    }
}

} // namespace Parameters
