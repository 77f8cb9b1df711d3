#include "taxonomy/NumericRangeSchema.h"

#include "schema/Conversion.h"
#include "schema/Text.h"
#include "schema/VersionedFrame.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeFamily.h"
#include "taxonomy/RangeConstantWriting.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace Parameters {

namespace {

constexpr std::string_view fromBottomKey = "fromBottom";
constexpr std::string_view bottomBoundaryKey = "bottomBoundary";
constexpr std::string_view fromTopKey = "fromTop";
constexpr std::string_view topBoundaryKey = "topBoundary";

template <class Number> Number readBoundaryConstant(const SchemaDocument& document, std::string_view key) {
    return readConstant(document, key, std::optional<Number>(0), NumericRangeFamily<Number>::readBoundary);
}

bool readInlineFlag(const JSON& value, std::string_view key) {
    const JSON flag = value.getMember(key);
    if (!flag.isBool()) {
        value.raise(joined({"Inline value override in range constant typedValue must specify a Boolean value for "
                            "constant ",
                            key, "."}));
    }
    return flag.getBool();
}

template <class Number> Number readInlineBoundary(const JSON& value, std::string_view key) {
    return value.hasMember(key) ? NumericRangeFamily<Number>::readBoundary(value.getMember(key)) : 0;
}

template <class Number> JSON boundaryValue(Number boundary) {
    if (!NumericRangeFamily<Number>::isRepresentable(boundary)) {
        raiseNotRepresentable();
    }
    return JSON(boundary);
}

/// A boundary that binds. One of 0 is left out even then: reading supplies it again.
template <class Number>
void addBoundary(const JSON& target, std::vector<JSON>& members, std::string_view key, bool binds, Number boundary,
                 bool typed) {
    if (!binds || boundary == 0) {
        return;
    }
    JSON member = createValueMember(target, key, boundaryValue(boundary), {});
    if (typed) {
        addString(member, target, Frame::typeId, NumericRangeFamily<Number>::boundaryTypeName);
    }
    members.push_back(std::move(member));
}

void addAttribute(const JSON& document, JSON& object, std::string_view key, JSON value) {
    object.addMember(document, key, value);
}

} // namespace

template <class Number>
std::optional<NumericRangeSchema<Number>> readNumericRangeSchema(const SchemaDocument& document) {
    if (!containsPrefix(document.baseSchema, NumericRangeFamily<Number>::bases.prefix)) {
        return std::nullopt;
    }
    // Both flags before both boundaries: the order in which faults are reported.
    NumericRangeSchema<Number> schema;
    schema.fromBottom = readBoolConstant(document, fromBottomKey);
    schema.fromTop = readBoolConstant(document, fromTopKey);
    schema.bottomBoundary = readBoundaryConstant<Number>(document, bottomBoundaryKey);
    schema.topBoundary = readBoundaryConstant<Number>(document, topBoundaryKey);
    schema.format = document.schemaFormat;
    return schema;
}

template <class Number>
NumericRange<Number> resolveNumericRange(std::string_view typeId, const NumericRangeSchema<Number>& schema) {
    return {std::string(typeId), schema.fromBottom,  schema.bottomBoundary,
            schema.fromTop,      schema.topBoundary, schema.format};
}

template <class Number>
void writeNumericRangeSchema(const NumericRange<Number>& range, JSON& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    const bool typed =
        addVersionedFrame(target, data.typeId, NumericRangeFamily<Number>::bases, data.schemaFormat, version);
    std::vector<JSON> members;
    members.push_back(createBoolMember(target, fromBottomKey, data.fromBottom, typed));
    addBoundary(target, members, bottomBoundaryKey, data.fromBottom, data.bottomBoundary, typed);
    members.push_back(createBoolMember(target, fromTopKey, data.fromTop, typed));
    addBoundary(target, members, topBoundaryKey, data.fromTop, data.topBoundary, typed);
    addConstants(target, members);
}

template <class Number> NumericRange<Number> readInlineNumericRange(const JSON& value, Units::SchemaFormat format) {
    // Each flag just before its boundary, unlike in a schema.
    const bool fromBottom = readInlineFlag(value, fromBottomKey);
    const auto bottomBoundary = readInlineBoundary<Number>(value, bottomBoundaryKey);
    const bool fromTop = readInlineFlag(value, fromTopKey);
    const auto topBoundary = readInlineBoundary<Number>(value, topBoundaryKey);
    return NumericRange<Number>(fromBottom, bottomBoundary, fromTop, topBoundary, format);
}

template <class Number>
void writeNumericRangeConstant(const JSON& document, std::vector<JSON>& members, const NumericRange<Number>& range,
                               DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (!data.fromBottom && !data.fromTop) {
        return;
    }
    const RangeBaseSchemas& bases = NumericRangeFamily<Number>::bases;
    std::optional<JSON> value;
    if (beginsWithPrefix(data.typeId, bases.prefix)) {
        value = JSON::createObject();
        addAttribute(document, *value, fromBottomKey, JSON(data.fromBottom));
        addAttribute(document, *value, bottomBoundaryKey, boundaryValue(data.bottomBoundary));
        addAttribute(document, *value, fromTopKey, JSON(data.fromTop));
        addAttribute(document, *value, topBoundaryKey, boundaryValue(data.topBoundary));
    }
    members.push_back(createRangeConstant(document, bases, data.typeId, std::move(value), version));
}

template std::optional<NumericRangeSchema<double>> readNumericRangeSchema(const SchemaDocument&);
template NumericRange<double> resolveNumericRange(std::string_view, const NumericRangeSchema<double>&);
template void writeNumericRangeSchema(const NumericRange<double>&, JSON&, DataModelVersion);
template NumericRange<double> readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(const JSON&, std::vector<JSON>&, const NumericRange<double>&, DataModelVersion);

template std::optional<NumericRangeSchema<std::int64_t>> readNumericRangeSchema(const SchemaDocument&);
template NumericRange<std::int64_t> resolveNumericRange(std::string_view, const NumericRangeSchema<std::int64_t>&);
template void writeNumericRangeSchema(const NumericRange<std::int64_t>&, JSON&, DataModelVersion);
template NumericRange<std::int64_t> readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(const JSON&, std::vector<JSON>&, const NumericRange<std::int64_t>&,
                                        DataModelVersion);

} // namespace Parameters
