#pragma once

#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"
#include "taxonomy/NumericRangeFamily.h"

#include <Parameters/DataModelVersion.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Parameters {

// The constants of a range document, and the members of an inline range.
inline constexpr std::string_view fromBottomKey = "fromBottom";
inline constexpr std::string_view bottomBoundaryKey = "bottomBoundary";
inline constexpr std::string_view fromTopKey = "fromTop";
inline constexpr std::string_view topBoundaryKey = "topBoundary";

// Range is FloatRange or IntRange.

/// A range document that has been read and not yet resolved.
template <class Range> struct NumericRangeSchema {
    using Number = typename NumericRangeFamily<Range>::Number;

    bool fromBottom;
    bool fromTop;
    Number bottomBoundary;
    Number topBoundary;
    Units::SchemaFormat format;
};

/// No value if the document is no such range.
template <class Range>
[[nodiscard]] std::optional<NumericRangeSchema<Range>> readNumericRangeSchema(const SchemaDocument& document);

template <class Range>
[[nodiscard]] Range resolveNumericRange(std::string_view typeId, const NumericRangeSchema<Range>& schema);

template <class Range> void writeNumericRangeSchema(const Range& range, JSON::Writer& target, DataModelVersion version);

/// The range that a parameter's document gives inline, in an object. Its typeid is the static base of the document's
/// format, whichever base the document named.
template <class Range> [[nodiscard]] Range readInlineNumericRange(const JSON& value, Units::SchemaFormat format);

/// Creates the "range" constant of a parameter's document: the inline form for a range of the static base, a reference
/// for any other, nothing for a range without bounds.
template <class Range>
void writeNumericRangeConstant(JSON::Writer& target, const Range& range, DataModelVersion version);

} // namespace Parameters
