#pragma once

#include "base/Internals.h"

#include <Parameters/StringRange.h>

#include <string>
#include <variant>
#include <vector>

namespace Parameters {

struct StringRange::Data {
    std::string typeId;
    std::variant<std::monostate, SetStringRangeComponent, RegexStringRangeComponent> component;
    Units::SchemaFormat schemaFormat;
};

/// The way to the fields of components, of which the getters return copies.
struct StringRangeInternals {
    [[nodiscard]] static const std::string& regexOf(const RegexStringRangeComponent& component) noexcept {
        return component.regex_;
    }
    [[nodiscard]] static const std::vector<std::string>&
    allowedValuesOf(const SetStringRangeComponent& component) noexcept {
        return component.allowedValues_;
    }
};

/// A copy of a range that a caller built; refuses a set in which a value occurs twice.
[[nodiscard]] StringRange validatedStringRange(const StringRange& range);

} // namespace Parameters
