#include "taxonomy/NumericRangeSchema.h"

#include "base/Text.h"
#include "schema/DataModels.h"
#include "schema/VersionedWriting.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeFamily.h"

#include <cstdint>
#include <string_view>

namespace Parameters {

namespace {

template <class Range> using NumberOf = typename NumericRangeFamily<Range>::Number;

template <class Range> NumberOf<Range> readBoundaryConstant(const SchemaDocument& document, std::string_view key) {
    return readConstant(document, key, std::optional<NumberOf<Range>>(0), NumericRangeFamily<Range>::readBoundary);
}

bool readInlineFlag(const JSON& value, std::string_view key) {
    const JSON flag = value.getMember(key);
    if (!flag.isBool()) {
        (flag.exists() ? flag : value)
            .report(flag.exists() ? Rule::WrongType : Rule::MissingMember,
                    concat({"Inline value override in range constant typedValue must specify a Boolean value for "
                            "constant ",
                            key, "."}));
        return false;
    }
    return flag.getBool();
}

template <class Range> NumberOf<Range> readInlineBoundary(const JSON& value, std::string_view key) {
    return value.hasMember(key) ? NumericRangeFamily<Range>::readBoundary(value.getMember(key)) : 0;
}

template <class Range> void addBoundary(JSON::Writer& target, std::string_view key, NumberOf<Range> boundary) {
    if (!NumericRangeFamily<Range>::isRepresentable(boundary)) {
        throw NotRepresentable{"A boundary is not finite, which no document can say."};
    }
    target.addMember(key, boundary);
}

/// A boundary that binds. One of 0 is left out even then: reading supplies it again.
template <class Range>
void createBoundaryMember(JSON::Writer& target, std::string_view key, bool binds, NumberOf<Range> boundary,
                          bool typed) {
    if (!binds || boundary == 0) {
        return;
    }
    createMember(target, key, [&] {
        addBoundary<Range>(target, Frame::value, boundary);
        if (typed) {
            addTypeId(target, NumericRangeFamily<Range>::boundaryTypeName);
        }
    });
}

} // namespace

template <class Range> std::optional<NumericRangeSchema<Range>> readNumericRangeSchema(const SchemaDocument& document) {
    if (!document.isOfFamily(NumericRangeFamily<Range>::bases.prefix)) {
        return std::nullopt;
    }
    // Both flags before both boundaries: the order in which faults are reported.
    NumericRangeSchema<Range> schema;
    schema.fromBottom = readBoolConstant(document, fromBottomKey);
    schema.fromTop = readBoolConstant(document, fromTopKey);
    schema.bottomBoundary = readBoundaryConstant<Range>(document, bottomBoundaryKey);
    schema.topBoundary = readBoundaryConstant<Range>(document, topBoundaryKey);
    schema.format = document.schemaFormat;
    return schema;
}

template <class Range> Range resolveNumericRange(std::string_view typeId, const NumericRangeSchema<Range>& schema) {
    return {std::string(typeId), schema.fromBottom,  schema.bottomBoundary,
            schema.fromTop,      schema.topBoundary, schema.format};
}

template <class Range>
void writeNumericRangeSchema(const Range& range, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    const bool typed =
        addVersionedFrame(target, data.typeId, NumericRangeFamily<Range>::bases, data.schemaFormat, version);
    addConstants(target, [&] {
        createBoolMember(target, fromBottomKey, data.fromBottom, typed);
        createBoundaryMember<Range>(target, bottomBoundaryKey, data.fromBottom, data.bottomBoundary, typed);
        createBoolMember(target, fromTopKey, data.fromTop, typed);
        createBoundaryMember<Range>(target, topBoundaryKey, data.fromTop, data.topBoundary, typed);
    });
}

template <class Range> Range readInlineNumericRange(const JSON& value, Units::SchemaFormat format) {
    // Each flag just before its boundary, unlike in a schema.
    const bool fromBottom = readInlineFlag(value, fromBottomKey);
    const auto bottomBoundary = readInlineBoundary<Range>(value, bottomBoundaryKey);
    const bool fromTop = readInlineFlag(value, fromTopKey);
    const auto topBoundary = readInlineBoundary<Range>(value, topBoundaryKey);
    return Range(fromBottom, bottomBoundary, fromTop, topBoundary, format);
}

template <class Range>
void writeNumericRangeConstant(JSON::Writer& target, const Range& range, DataModelVersion version) {
    const auto& data = Internals::dataOf(range);
    if (!data.fromBottom && !data.fromTop) {
        return;
    }
    const RangeBaseSchemas& bases = NumericRangeFamily<Range>::bases;
    createRangeConstant(target, bases, data.typeId, beginsWithPrefix(data.typeId, bases.prefix), version, [&] {
        target.addMember(fromBottomKey, data.fromBottom);
        addBoundary<Range>(target, bottomBoundaryKey, data.bottomBoundary);
        target.addMember(fromTopKey, data.fromTop);
        addBoundary<Range>(target, topBoundaryKey, data.topBoundary);
    });
}

template std::optional<NumericRangeSchema<FloatRange>> readNumericRangeSchema(const SchemaDocument&);
template FloatRange resolveNumericRange(std::string_view, const NumericRangeSchema<FloatRange>&);
template void writeNumericRangeSchema(const FloatRange&, JSON::Writer&, DataModelVersion);
template FloatRange readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(JSON::Writer&, const FloatRange&, DataModelVersion);

template std::optional<NumericRangeSchema<IntRange>> readNumericRangeSchema(const SchemaDocument&);
template IntRange resolveNumericRange(std::string_view, const NumericRangeSchema<IntRange>&);
template void writeNumericRangeSchema(const IntRange&, JSON::Writer&, DataModelVersion);
template IntRange readInlineNumericRange(const JSON&, Units::SchemaFormat);
template void writeNumericRangeConstant(JSON::Writer&, const IntRange&, DataModelVersion);

} // namespace Parameters
