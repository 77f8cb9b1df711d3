#include "taxonomy/StringRangeSchema.h"

#include "schema/DataModels.h"
#include "schema/VersionedWriting.h"
#include "schema/Vocabulary.h"
#include "taxonomy/StringRangeData.h"

#include <cstdint>
#include <set>
#include <utility>

namespace Parameters {

namespace {

constexpr std::string_view allowedValuesKey = "allowedValues";

/// The first elements, which are strings, hold some more than once.
void reportRepeatedValues(const JSON& json, std::uint32_t count) {
    std::set<std::string_view> values;
    for (std::uint32_t i = 0; i < count; ++i) {
        const JSON element = json.getElement(i);
        if (!values.insert(element.getStringView()).second) {
            element.report(Rule::RepeatedValue, "Expected an array of unique strings.");
        }
    }
}

SetStringRangeComponent readSet(const JSON& json) {
    if (!json.isArray()) {
        json.report(Rule::WrongType, "Expected an array.");
        return {};
    }
    SetStringRangeComponent set;
    std::uint32_t count = 0;
    for (; count < json.getSize() && json.getElement(count).isString(); ++count) {
        StringRangeInternals::addValue(set, json.getElement(count).getStringView());
    }
    // Of what is wrong with an array that is told first which comes first.
    if (repeatedValueOf(set)) {
        reportRepeatedValues(json, count);
    }
    for (; count < json.getSize(); ++count) {
        const JSON element = json.getElement(count);
        if (!element.isString()) {
            element.report(Rule::WrongType, "Expected an array of strings.");
        }
    }
    return set;
}

void addSet(JSON::Writer& target, std::string_view key, const SetStringRangeComponent& set) {
    target.addArray(key, [&] {
        for (const std::string_view value : StringRangeInternals::valuesOf(set)) {
            target.addElement(value);
        }
    });
}

} // namespace

std::optional<StringRangeSchema> readStringRangeSchema(const SchemaDocument& document) {
    if (document.isOfFamily(Vocabulary::setStringRange.prefix)) {
        return StringRangeSchema{
            readConstant<SetStringRangeComponent>(document, allowedValuesKey, std::nullopt, readSet),
            document.schemaFormat};
    }
    if (document.isOfFamily(Vocabulary::regexStringRange.prefix)) {
        return StringRangeSchema{RegexStringRangeComponent(std::string(readAnyStringConstant(document, regexKey))),
                                 document.schemaFormat};
    }
    return std::nullopt;
}

StringRange resolveStringRange(std::string_view typeId, StringRangeSchema schema) {
    return std::visit(
        [&](auto& component) {
            return Internals::make<StringRange>(std::string(typeId), std::move(component), schema.format);
        },
        schema.component);
}

void writeStringRangeSchema(const StringRange& range, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (const auto* set = std::get_if<SetStringRangeComponent>(&data.component)) {
        const bool typed =
            addVersionedFrame(target, data.typeId, Vocabulary::setStringRange, data.schemaFormat, version);
        addConstants(target, [&] {
            createMember(target, allowedValuesKey, [&] {
                addSet(target, Frame::value, *set);
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
        throw NotRepresentable{"A range of texts that limits nothing has no document."};
    }
}

StringRange readInlineStringRange(std::string_view baseTypeId, const JSON& value, Units::SchemaFormat format) {
    if (containsPrefix(baseTypeId, Vocabulary::setStringRange.prefix)) {
        SetStringRangeComponent set;
        const JSON values = value.getMember(allowedValuesKey);
        if (values.exists()) {
            set = readSet(values);
        }
        if (!values.exists() || (values.isArray() && values.getSize() == 0)) {
            (values.exists() ? values : value)
                .report(values.exists() ? Rule::EmptyValue : Rule::MissingMember,
                        "Inline value override in range constant typedValue must specify a non-empty array of unique "
                        "string values for constant allowedValues.");
        }
        return {set, format};
    }
    if (containsPrefix(baseTypeId, Vocabulary::regexStringRange.prefix)) {
        if (!value.hasMember(regexKey)) {
            value.report(Rule::MissingMember,
                         "Inline value override in range constant typedValue must specify a string value for constant "
                         "regex.");
            return {RegexStringRangeComponent(std::string()), format};
        }
        return {RegexStringRangeComponent(std::string(readAnyString(value.getMember(regexKey)))), format};
    }
    if (value.getSize() != 0) {
        value.report(Rule::WrongForm,
                     "Inline value override for default string range in range constant typedValue, if present, must be "
                     "an empty object.");
    }
    return {};
}

void writeStringRangeConstant(JSON::Writer& target, const StringRange& range, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (const auto* set = std::get_if<SetStringRangeComponent>(&data.component)) {
        if (StringRangeInternals::isEmpty(*set)) {
            return;
        }
        createRangeConstant(target, Vocabulary::setStringRange, data.typeId,
                            beginsWithPrefix(data.typeId, Vocabulary::setStringRange.prefix), version,
                            [&] { addSet(target, allowedValuesKey, *set); });
    } else if (const auto* regex = std::get_if<RegexStringRangeComponent>(&data.component)) {
        // Unlike the set, and unlike the typeid below, this looks for the prefix anywhere.
        createRangeConstant(target, Vocabulary::regexStringRange, data.typeId,
                            containsPrefix(data.typeId, Vocabulary::regexStringRange.prefix), version,
                            [&] { target.addMember(regexKey, StringRangeInternals::regexOf(*regex)); });
    }
}

} // namespace Parameters
