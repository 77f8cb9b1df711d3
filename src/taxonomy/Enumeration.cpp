#include "base/Text.h"
#include "taxonomy/EnumerationData.h"

#include <Parameters/Exceptions.h>

#include <set>
#include <string_view>

namespace Parameters {

Enumeration::Enumeration(const std::string& typeId, const std::vector<std::pair<std::string, std::int64_t>>& values,
                         Units::SchemaFormat schemaFormat)
    : Enumeration(std::make_shared<const Data>(Data{typeId, values, schemaFormat})) {}

Enumeration::Enumeration(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Enumeration::~Enumeration() = default;

std::string Enumeration::getTypeId() const { return data_->typeId; }

std::vector<std::pair<std::string, std::int64_t>> Enumeration::getValues() const { return data_->values; }

Units::SchemaFormat Enumeration::getSchemaFormat() const noexcept { return data_->schemaFormat; }

bool Enumeration::operator==(const Enumeration& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Enumeration::operator<(const Enumeration& other) const noexcept { return data_->typeId < other.data_->typeId; }

Enumeration validatedEnumeration(const Enumeration& enumeration) {
    const EnumerationValues& values = Internals::dataOf(enumeration).values;
    if (values.empty()) {
        throw ValidationException("Enumeration must specify at least one value.");
    }
    std::set<std::string_view> ids;
    for (const auto& [id, number] : values) {
        if (id.empty()) {
            throw ValidationException("ID of value in enumeration must not be empty.");
        }
        if (!ids.insert(id).second) {
            throw ValidationException(concat({"Value ", id, " must appear only once."}));
        }
    }
    return enumeration;
}

} // namespace Parameters
