#include "base/Text.h"
#include "schema/Vocabulary.h"
#include "taxonomy/StringRangeData.h"

#include <Parameters/Exceptions.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace Parameters {

RegexStringRangeComponent::RegexStringRangeComponent(const std::string& regex) : regex_(regex) {}

RegexStringRangeComponent::~RegexStringRangeComponent() = default;

std::string RegexStringRangeComponent::getRegex() const { return regex_; }

SetStringRangeComponent::SetStringRangeComponent(const std::vector<std::string>& allowedValues) {
    for (const std::string& value : allowedValues) {
        StringRangeInternals::addValue(*this, value);
    }
}

SetStringRangeComponent::~SetStringRangeComponent() = default;

std::vector<std::string> SetStringRangeComponent::getAllowedValues() const {
    const auto values = StringRangeInternals::valuesOf(*this);
    return {values.begin(), values.end()};
}

namespace {

// A size is packed in characters of seven bits, lowest first; all but the last have the highest bit set.
constexpr unsigned sizeBits = 7;
constexpr unsigned moreFlag = 1U << sizeBits;

} // namespace

void StringRangeInternals::addValue(SetStringRangeComponent& component, std::string_view value) {
    std::string& packed = component.packedValues_;
    std::size_t size = value.size();
    for (; size >= moreFlag; size >>= sizeBits) {
        packed.push_back(static_cast<char>(size % moreFlag | moreFlag));
    }
    packed.push_back(static_cast<char>(size));
    packed.append(value);
}

std::vector<std::string_view> StringRangeInternals::valuesOf(const SetStringRangeComponent& component) {
    std::vector<std::string_view> values;
    std::string_view rest = component.packedValues_;
    while (!rest.empty()) {
        std::size_t size = 0;
        unsigned character = moreFlag;
        for (unsigned shift = 0; (character & moreFlag) != 0; shift += sizeBits) {
            character = static_cast<unsigned char>(rest.front());
            size |= static_cast<std::size_t>(character % moreFlag) << shift;
            rest.remove_prefix(1);
        }
        values.push_back(rest.substr(0, size));
        rest.remove_prefix(size);
    }
    return values;
}

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

std::optional<std::string_view> repeatedValueOf(const SetStringRangeComponent& component) {
    auto values = StringRangeInternals::valuesOf(component);
    // They stand one behind the other, which tells equal ones apart.
    std::sort(values.begin(), values.end(), [](std::string_view left, std::string_view right) {
        const int order = left.compare(right);
        return order != 0 ? order < 0 : left.data() < right.data();
    });
    std::optional<std::string_view> first;
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i] == values[i - 1] && (!first || values[i].data() < first->data())) {
            first = values[i];
        }
    }
    return first;
}

StringRange validatedStringRange(const StringRange& range) {
    if (const auto* component = std::get_if<SetStringRangeComponent>(&Internals::dataOf(range).component)) {
        if (const auto repeated = repeatedValueOf(*component)) {
            throw ValidationException(concat({"Value ", *repeated, " must appear only once."}));
        }
    }
    return range;
}

} // namespace Parameters
