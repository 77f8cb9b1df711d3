#include "taxonomy/DefaultTaxa.h"

#include "taxonomy/TaxonData.h"

namespace Parameters {

DefaultTaxa::DefaultTaxa(const BaseSchemas& family, std::string_view name)
    : propertySets_(std::string(family.shortFrame), std::string(name), Units::SchemaFormat::PropertySets),
      lumarDataSchema_(std::string(family.fullFrame), std::string(name), Units::SchemaFormat::LumarDataSchema) {}

const DefaultTaxa& DefaultTaxa::disciplines() {
    static const DefaultTaxa taxa(Vocabulary::discipline, Vocabulary::defaultDisciplineName);
    return taxa;
}

const DefaultTaxa& DefaultTaxa::groups() {
    static const DefaultTaxa taxa(Vocabulary::group, Vocabulary::defaultGroupName);
    return taxa;
}

Taxon DefaultTaxa::ofFormat(Units::SchemaFormat format) const {
    for (const Taxon* taxon : {&propertySets_, &lumarDataSchema_}) {
        if (taxon->getSchemaFormat() == format) {
            return *taxon;
        }
    }
    const auto& data = Internals::dataOf(propertySets_);
    return {data.typeId, data.name, format};
}

Taxon DefaultTaxa::withTypeId(std::string_view typeId) const {
    for (const Taxon* taxon : {&propertySets_, &lumarDataSchema_}) {
        if (typeIdOf(*taxon) == typeId) {
            return *taxon;
        }
    }
    return {std::string(typeId), Internals::dataOf(propertySets_).name, Units::SchemaFormat::PropertySets};
}

} // namespace Parameters
