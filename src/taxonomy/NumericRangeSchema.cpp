#include "taxonomy/NumericRangeSchema.h"

#include "schema/Conversion.h"
#include "schema/Text.h"
#include "schema/VersionedFrame.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeFamily.h"
#include "taxonomy/RangeConstantWriting.h"

#include <cstdint>
#include <string_view>

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

template <class Number> void addBoundary(JSONWriter& target, std::string_view key, Number boundary) {
    if (!NumericRangeFamily<Number>::isRepresentable(boundary)) {
        raiseNotRepresentable();
    }
    target.addMember(key, boundary);
}

/// A boundary that binds. One of 0 is left out even then: reading supplies it again.
template <class Number>
void createBoundaryMember(JSONWriter& target, std::string_view key, bool binds, Number boundary, bool typed) {
    if (!binds || boundary == 0) {
        return;
    }
    createMember(target, key, [&] {
        addBoundary(target, Frame::value, boundary);
        if (typed) {
            addTypeId(target, NumericRangeFamily<Number>::boundaryTypeName);
        }
    });
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
void writeNumericRangeSchema(const NumericRange<Number>& range, JSONWriter& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    const bool typed =
        addVersionedFrame(target, data.typeId, NumericRangeFamily<Number>::bases, data.schemaFormat, version);
    addConstants(target, [&] {
        createBoolMember(target, fromBottomKey, data.fromBottom, typed);
        createBoundaryMember(target, bottomBoundaryKey, data.fromBottom, data.bottomBoundary, typed);
        createBoolMember(target, fromTopKey, data.fromTop, typed);
        createBoundaryMember(target, topBoundaryKey, data.fromTop, data.topBoundary, typed);
    });
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
void writeNumericRangeConstant(JSONWriter& target, const NumericRange<Number>& range, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (!data.fromBottom && !data.fromTop) {
        return;
    }
    const RangeBaseSchemas& bases = NumericRangeFamily<Number>::bases;
    createRangeConstant(target, bases, data.typeId, beginsWithPrefix(data.typeId, bases.prefix), version, [&] {
        target.addMember(fromBottomKey, data.fromBottom);
        addBoundary(target, bottomBoundaryKey, data.bottomBoundary);
        target.addMember(fromTopKey, data.fromTop);
        addBoundary(target, topBoundaryKey, data.topBoundary);
    });
}

template std::optional<NumericRangeSchema<double>> readNumericRangeSchema(const SchemaDocument&);
template NumericRange<double> resolveNumericRange(std::string_view, const NumericRangeSchema<double>&);
template void writeNumericRangeSchema(const NumericRange<double>&, JSONWriter&, DataModelVersion);
template NumericRange<double> readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(JSONWriter&, const NumericRange<double>&, DataModelVersion);

template std::optional<NumericRangeSchema<std::int64_t>> readNumericRangeSchema(const SchemaDocument&);
template NumericRange<std::int64_t> resolveNumericRange(std::string_view, const NumericRangeSchema<std::int64_t>&);
template void writeNumericRangeSchema(const NumericRange<std::int64_t>&, JSONWriter&, DataModelVersion);
template NumericRange<std::int64_t> readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(JSONWriter&, const NumericRange<std::int64_t>&, DataModelVersion);

} // namespace Parameters
