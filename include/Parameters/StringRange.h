#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Parameters {

/// Limits strings to those that match a regular expression. The library hands the expression out and never applies it.
class PARAMETERS_EXPORT RegexStringRangeComponent {
public:
    /// Stores the expression as given: it is not checked, and may be empty. Implicit, so that an expression alone makes
    /// a range.
    // NOLINTNEXTLINE(google-explicit-constructor)
    RegexStringRangeComponent(const std::string& regex);
    ~RegexStringRangeComponent();
    RegexStringRangeComponent(const RegexStringRangeComponent&) = default;
    RegexStringRangeComponent(RegexStringRangeComponent&&) noexcept = default;
    RegexStringRangeComponent& operator=(const RegexStringRangeComponent&) = default;
    RegexStringRangeComponent& operator=(RegexStringRangeComponent&&) noexcept = default;

    /// A copy of the expression.
    [[nodiscard]] std::string getRegex() const;

private:
    friend struct StringRangeInternals;
    std::string regex_;
};

/// Limits strings to a set.
class PARAMETERS_EXPORT SetStringRangeComponent {
public:
    /// Stores the values as given; registration refuses repeated ones. Implicit, so that values alone make a range.
    // NOLINTNEXTLINE(google-explicit-constructor)
    SetStringRangeComponent(const std::vector<std::string>& allowedValues = {});
    ~SetStringRangeComponent();
    SetStringRangeComponent(const SetStringRangeComponent&) = default;
    SetStringRangeComponent(SetStringRangeComponent&&) noexcept = default;
    SetStringRangeComponent& operator=(const SetStringRangeComponent&) = default;
    SetStringRangeComponent& operator=(SetStringRangeComponent&&) noexcept = default;

    /// A copy of the values, in the order given.
    [[nodiscard]] std::vector<std::string> getAllowedValues() const;

private:
    friend struct StringRangeInternals;
    /// One behind the other, each behind its size: a string of its own for each would take many times its characters.
    std::string packedValues_;
};

/// A limit on strings: a set of values, a regular expression, or none.
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from range is
/// unchanged.
class PARAMETERS_EXPORT StringRange {
public:
    /// The default string range, which limits nothing: typeid "quovanta.range:range.string-1.0.0", format PropertySets.
    StringRange();
    /// @{
    /// An inline range: the typeid is the static base of the component's family, in version 2.0.0 for
    /// LumarDataSchema and 1.0.0 otherwise.
    StringRange(const RegexStringRangeComponent& component, Units::SchemaFormat schemaFormat);
    StringRange(const SetStringRangeComponent& component, Units::SchemaFormat schemaFormat);
    /// @}
    /// @{
    /// A range with a typeid of its own.
    StringRange(const std::string& typeId, const RegexStringRangeComponent& component,
                Units::SchemaFormat schemaFormat);
    StringRange(const std::string& typeId, const SetStringRangeComponent& component, Units::SchemaFormat schemaFormat);
    /// @}
    StringRange(const StringRange&) noexcept = default;
    StringRange& operator=(const StringRange&) noexcept = default;
    ~StringRange();

    /// A copy of the typeid, the range's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;
    /// A copy of the component, if the range is one of a regular expression.
    [[nodiscard]] std::optional<RegexStringRangeComponent> getRegexStringRangeComponent() const;
    /// A copy of the component, if the range is one of a set.
    [[nodiscard]] std::optional<SetStringRangeComponent> getSetStringRangeComponent() const;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const StringRange& other) const noexcept;
    [[nodiscard]] bool operator!=(const StringRange& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const StringRange& other) const noexcept;
    [[nodiscard]] bool operator>(const StringRange& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit StringRange(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
