#include "base/Text.h"
#include "schema/Vocabulary.h"
#include "taxonomy/StringRangeData.h"

#include <Parameters/Exceptions.h>

#include <set>
#include <string_view>
#include <utility>

namespace Parameters {

RegexStringRangeComponent::RegexStringRangeComponent(const std::string& regex) : regex_(regex) {}

RegexStringRangeComponent::~RegexStringRangeComponent() = default;

std::string RegexStringRangeComponent::getRegex() const { return regex_; }

SetStringRangeComponent::SetStringRangeComponent(const std::vector<std::string>& allowedValues)
    : allowedValues_(allowedValues) {}

SetStringRangeComponent::~SetStringRangeComponent() = default;

std::vector<std::string> SetStringRangeComponent::getAllowedValues() const { return allowedValues_; }

StringRange::StringRange()
    : StringRange(std::make_shared<const Data>(Data{std::string(Vocabulary::defaultStringRange.shortFrame),
                                                    std::monostate(), Units::SchemaFormat::PropertySets})) {}

StringRange::StringRange(const RegexStringRangeComponent& component, Units::SchemaFormat schemaFormat)
    : StringRange(std::string(baseFor(Vocabulary::regexStringRange, schemaFormat)), component, schemaFormat) {}

StringRange::StringRange(const SetStringRangeComponent& component, Units::SchemaFormat schemaFormat)
    : StringRange(std::string(baseFor(Vocabulary::setStringRange, schemaFormat)), component, schemaFormat) {}

StringRange::StringRange(const std::string& typeId, const RegexStringRangeComponent& component,
                         Units::SchemaFormat schemaFormat)
    : StringRange(std::make_shared<const Data>(Data{typeId, component, schemaFormat})) {}

StringRange::StringRange(const std::string& typeId, const SetStringRangeComponent& component,
                         Units::SchemaFormat schemaFormat)
    : StringRange(std::make_shared<const Data>(Data{typeId, component, schemaFormat})) {}

StringRange::StringRange(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

StringRange::~StringRange() = default;

std::string StringRange::getTypeId() const { return data_->typeId; }

Units::SchemaFormat StringRange::getSchemaFormat() const noexcept { return data_->schemaFormat; }

std::optional<RegexStringRangeComponent> StringRange::getRegexStringRangeComponent() const {
    const auto* component = std::get_if<RegexStringRangeComponent>(&data_->component);
    return component != nullptr ? std::optional(*component) : std::nullopt;
}

std::optional<SetStringRangeComponent> StringRange::getSetStringRangeComponent() const {
    const auto* component = std::get_if<SetStringRangeComponent>(&data_->component);
    return component != nullptr ? std::optional(*component) : std::nullopt;
}

bool StringRange::operator==(const StringRange& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool StringRange::operator<(const StringRange& other) const noexcept { return data_->typeId < other.data_->typeId; }

StringRange validatedStringRange(const StringRange& range) {
    if (const auto* component = std::get_if<SetStringRangeComponent>(&Internals::dataOf(range).component)) {
        std::set<std::string_view> seen;
        for (const std::string& value : StringRangeInternals::allowedValuesOf(*component)) {
            if (!seen.insert(value).second) {
                throw ValidationException(concat({"Value ", value, " must appear only once."}));
            }
        }
    }
    return range;
}

} // namespace Parameters
