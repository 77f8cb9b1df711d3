#pragma once

#include "diagnosis/DocumentObserver.h"
#include "diagnosis/Suggestions.h"
#include "engine/Kinds.h"
#include "schema/SchemaDocument.h"

#include <string_view>

namespace Parameters {

/// Adds to the findings what of a document that was read has been asked for by no reader.
void reportUnread(const SchemaDocument& document, DocumentObserver& observer, Suggester& suggester);

/// Adds what is odd about the frame of a document of some kind.
void reportOddFrame(const SchemaDocument& document, DocumentObserver& observer, Suggester& suggester);

// Add what is odd about the body of a document, by its kind.

void reportOddBody(const EnumerationSchema& body, const SchemaDocument& document, DocumentObserver& observer);
template <class Range>
void reportOddBody(const NumericRangeSchema<Range>& body, const SchemaDocument& document, DocumentObserver& observer);
void reportOddBody(const StringRangeSchema& body, const SchemaDocument& document, DocumentObserver& observer);
void reportOddBody(const ParameterSchema& body, const SchemaDocument& document, DocumentObserver& observer);
inline void reportOddBody(const TaxonSchema& /*body*/, const SchemaDocument& /*document*/,
                          DocumentObserver& /*observer*/) {}
inline void reportOddBody(const CategorySchema& /*body*/, const SchemaDocument& /*document*/,
                          DocumentObserver& /*observer*/) {}
inline void reportOddBody(const SpecSchema& /*body*/, const SchemaDocument& /*document*/,
                          DocumentObserver& /*observer*/) {}

/// The base that is nearest to one that is unknown, or empty.
[[nodiscard]] std::string nearestBase(std::string_view base, Suggester& suggester);

} // namespace Parameters
