#pragma once

#include "base/Internals.h"
#include "base/StoreList.h"

#include <Parameters/Spec.h>
#include <Units/UnitsEngine.h>

namespace Parameters {

struct Spec::Data {
    std::string typeId;
    std::string name;
    ValueTypeId valueTypeId;
    std::optional<Measurable> measurable;
    Taxon discipline;
    Units::SchemaFormat schemaFormat;
    Context context;
};

/// A spec that a caller built, rebuilt from the disciplines and units that the engine knows; refuses one that breaks
/// the rules on names, formats, contexts and units.
[[nodiscard]] Spec validatedSpec(const Spec& spec, const StoreList<Taxon>& disciplineStores,
                                 const Units::UnitsEngine& unitsEngine);

} // namespace Parameters
