#pragma once

#include "taxonomy/Internals.h"

#include <Parameters/StringRange.h>

#include <variant>

namespace Parameters {

struct StringRange::Data {
    std::string typeId;
    std::variant<std::monostate, SetStringRangeComponent, RegexStringRangeComponent> component;
    Units::SchemaFormat schemaFormat;
};

/// A copy of a range that a caller built; refuses a set in which a value occurs twice.
[[nodiscard]] StringRange validatedStringRange(const StringRange& range);

} // namespace Parameters
