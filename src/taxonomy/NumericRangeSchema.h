#pragma once

#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>

#include <optional>
#include <string>
#include <vector>

namespace Parameters {

/// A range document that has been read and not yet resolved.
template <class Number> struct NumericRangeSchema {
    bool fromBottom;
    bool fromTop;
    Number bottomBoundary;
    Number topBoundary;
    Units::SchemaFormat format;
};

/// No value if the document is no range of the number type.
template <class Number>
[[nodiscard]] std::optional<NumericRangeSchema<Number>> readNumericRangeSchema(const SchemaDocument& document);

template <class Number>
[[nodiscard]] NumericRange<Number> resolveNumericRange(std::string_view typeId,
                                                       const NumericRangeSchema<Number>& schema);

template <class Number>
void writeNumericRangeSchema(const NumericRange<Number>& range, JSONWriter& target, DataModelVersion version);

/// The range that a parameter's document gives inline, in an object. Its typeid is the static base of the document's
/// format, whichever base the document named.
template <class Number>
[[nodiscard]] NumericRange<Number> readInlineNumericRange(const JSON& value, Units::SchemaFormat format);

/// Creates the "range" constant of a parameter's document: the inline form for a range of the static base, a reference
/// for any other, nothing for a range without bounds.
template <class Number>
void writeNumericRangeConstant(JSONWriter& target, const NumericRange<Number>& range, DataModelVersion version);

} // namespace Parameters
