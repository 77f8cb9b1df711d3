#pragma once

#include "base/Internals.h"

#include <Parameters/Enumeration.h>

namespace Parameters {

using EnumerationValues = std::vector<std::pair<std::string, std::int64_t>>;

struct Enumeration::Data {
    std::string typeId;
    EnumerationValues values;
    Units::SchemaFormat schemaFormat;
};

/// A copy of an enumeration that a caller built; refuses one without values, with an empty id or with a repeated one.
[[nodiscard]] Enumeration validatedEnumeration(const Enumeration& enumeration);

} // namespace Parameters
