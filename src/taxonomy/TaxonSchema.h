#pragma once

#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Taxon.h>

#include <optional>
#include <string>

namespace Parameters {

/// A taxon document that has been read and not yet resolved.
struct TaxonSchema {
    std::string name;
    Units::SchemaFormat format;
};

/// No value if the document is not of the family; disciplines, domains and groups differ in the family alone.
[[nodiscard]] std::optional<TaxonSchema> readTaxonSchema(const BaseSchemas& family, const SchemaDocument& document);

[[nodiscard]] Taxon resolveTaxon(std::string_view typeId, TaxonSchema schema);

void writeTaxonSchema(const BaseSchemas& family, const Taxon& taxon, JSON& target, DataModelVersion version);

} // namespace Parameters
