#pragma once

#include "schema/Vocabulary.h"

#include <Parameters/Taxon.h>

#include <string>
#include <string_view>

namespace Parameters {

/// The taxa that the typeids of a base schema stand for without being registered. Most specs and parameters have one,
/// so those of the current versions are made once and shared.
class DefaultTaxa {
public:
    [[nodiscard]] static const DefaultTaxa& disciplines();
    [[nodiscard]] static const DefaultTaxa& groups();

    /// The default taxon of a format, which it keeps even if its number is that of no format.
    [[nodiscard]] Taxon ofFormat(Units::SchemaFormat format) const;

    /// The default taxon under a typeid of the family; its format is that which goes with the typeid.
    [[nodiscard]] Taxon withTypeId(std::string_view typeId) const;

private:
    DefaultTaxa(const BaseSchemas& family, std::string_view name);

    Taxon propertySets_;
    Taxon lumarDataSchema_;
};

} // namespace Parameters
