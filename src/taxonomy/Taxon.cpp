#include <Parameters/Exceptions.h>

#include "taxonomy/TaxonData.h"

namespace Parameters {

Taxon::Taxon(const std::string& typeId, const std::string& name, Units::SchemaFormat schemaFormat)
    : Taxon(std::make_shared<const Data>(Data{typeId, name, schemaFormat})) {}

Taxon::Taxon(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Taxon::~Taxon() = default;

std::string Taxon::getTypeId() const { return data_->typeId; }

std::string Taxon::getName() const { return data_->name; }

Units::SchemaFormat Taxon::getSchemaFormat() const noexcept { return data_->schemaFormat; }

bool Taxon::operator==(const Taxon& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Taxon::operator<(const Taxon& other) const noexcept { return data_->typeId < other.data_->typeId; }

Taxon validatedTaxon(const Taxon& taxon) {
    if (Internals::dataOf(taxon).name.empty()) {
        throw ValidationException("Name must not be empty.");
    }
    return taxon;
}

} // namespace Parameters
