#pragma once

#include "schema/JSON.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>

#include <optional>
#include <string_view>

namespace Parameters {

/// The "range" constant of a parameter's document, with an inline value if there is one. For older versions a static
/// base of a later major version is named by its first; a range of another typeid keeps it.
[[nodiscard]] JSON createRangeConstant(const JSON& document, const RangeBaseSchemas& bases, std::string_view typeId,
                                       std::optional<JSON> inlineValue, DataModelVersion version);

} // namespace Parameters
