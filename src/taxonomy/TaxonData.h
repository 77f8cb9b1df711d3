#pragma once

#include "base/Internals.h"

#include <Parameters/Taxon.h>

namespace Parameters {

struct Taxon::Data {
    std::string typeId;
    std::string name;
    Units::SchemaFormat schemaFormat;
};

/// A copy of a taxon that a caller built; refuses one without a name.
[[nodiscard]] Taxon validatedTaxon(const Taxon& taxon);

} // namespace Parameters
