#pragma once

#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Taxon.h>

#include <optional>
#include <string_view>

namespace Parameters {

/// A taxon document that has been read and not yet resolved. Its name is a view into the document until it is kept
/// elsewhere.
struct TaxonSchema {
    std::string_view name;
    Units::SchemaFormat format;
};

/// Calls visit with the text of the schema, which visit may replace by an equal one.
template <class Visit> void visitTexts(TaxonSchema& schema, const Visit& visit) { visit(schema.name); }

/// No value if the document is not of the family; disciplines, domains and groups differ in the family alone.
[[nodiscard]] std::optional<TaxonSchema> readTaxonSchema(const BaseSchemas& family, const SchemaDocument& document);

[[nodiscard]] Taxon resolveTaxon(std::string_view typeId, const TaxonSchema& schema);

void writeTaxonSchema(const BaseSchemas& family, const Taxon& taxon, JSON::Writer& target, DataModelVersion version);

} // namespace Parameters
