#pragma once

#include "base/Internals.h"

#include <Parameters/StringRange.h>

#include <optional>
#include <string>
#include <string_view>
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

    [[nodiscard]] static bool isEmpty(const SetStringRangeComponent& component) noexcept {
        return component.packedValues_.empty();
    }
    static void addValue(SetStringRangeComponent& component, std::string_view value);
    /// Valid as long as the component, and none is added.
    [[nodiscard]] static std::vector<std::string_view> valuesOf(const SetStringRangeComponent& component);
};

/// The first value that occurs a second time, if one does.
[[nodiscard]] std::optional<std::string_view> repeatedValueOf(const SetStringRangeComponent& component);

/// A copy of a range that a caller built; refuses a set in which a value occurs twice.
[[nodiscard]] StringRange validatedStringRange(const StringRange& range);

} // namespace Parameters
