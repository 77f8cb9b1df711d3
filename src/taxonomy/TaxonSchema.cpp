#include "taxonomy/TaxonSchema.h"

#include "schema/VersionedWriting.h"
#include "taxonomy/TaxonData.h"

#include <utility>
#include <vector>

namespace Parameters {

std::optional<TaxonSchema> readTaxonSchema(const BaseSchemas& family, const SchemaDocument& document) {
    if (!document.isOfFamily(family.prefix)) {
        return std::nullopt;
    }
    return TaxonSchema{readStringConstant(document, Frame::name), document.schemaFormat};
}

Taxon resolveTaxon(std::string_view typeId, const TaxonSchema& schema) {
    return Internals::make<Taxon>(std::string(typeId), std::string(schema.name), schema.format);
}

void writeTaxonSchema(const BaseSchemas& family, const Taxon& taxon, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(taxon);
    const bool typed = addVersionedFrame(target, data.typeId, family, data.schemaFormat, version);
    addConstants(target, [&] { createNameMember(target, data.name, typed); });
}

} // namespace Parameters
