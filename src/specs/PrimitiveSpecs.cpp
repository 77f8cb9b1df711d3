#include "specs/PrimitiveSpecs.h"

#include "schema/Vocabulary.h"

#include <Parameters/Defaults.h>

#include <algorithm>
#include <utility>

namespace Parameters {

namespace {

using NamedType = std::pair<std::string_view, LegacyPrimitiveType>;
constexpr std::array<NamedType, 5> primitiveTypes = {{
    {PrimitiveTypeNames::boolean, LegacyPrimitiveType::Boolean},
    {PrimitiveTypeNames::integer, LegacyPrimitiveType::Integer},
    {PrimitiveTypeNames::floatingPoint, LegacyPrimitiveType::Float},
    {PrimitiveTypeNames::reference, LegacyPrimitiveType::Reference},
    {PrimitiveTypeNames::string, LegacyPrimitiveType::String},
}};

constexpr std::array<std::string_view, 18> legacyValueTypeNames = {
    "BinaryProperty",
    "Bool",
    "Enum",
    "Float32",
    "Float64",
    "Int8",
    "Int16",
    "Int32",
    "Int64",
    "NamedProperty",
    "NodeProperty",
    "Reference",
    "RelationshipProperty",
    "String",
    "Uint8",
    "Uint16",
    "Uint32",
    "Uint64",
};

constexpr std::string_view familyTypeName = "Family Type";

Spec makeLegacyBaseSpec(const BaseSchema& base, std::string_view name, LegacyPrimitiveType type) {
    return {std::string(base.typeId),
            std::string(name),
            type,
            std::nullopt,
            Units::SchemaFormat::PropertySets,
            Defaults::CreateDefaultDiscipline(Units::SchemaFormat::PropertySets)};
}

} // namespace

const Spec* findLegacyBaseSpec(std::string_view typeId) {
    static const std::array<Spec, 5> specs = {
        makeLegacyBaseSpec(primitiveSpecs[0].base, primitiveSpecs[0].defaultName, primitiveSpecs[0].type),
        makeLegacyBaseSpec(primitiveSpecs[1].base, primitiveSpecs[1].defaultName, primitiveSpecs[1].type),
        makeLegacyBaseSpec(primitiveSpecs[2].base, primitiveSpecs[2].defaultName, primitiveSpecs[2].type),
        makeLegacyBaseSpec(primitiveSpecs[3].base, primitiveSpecs[3].defaultName, primitiveSpecs[3].type),
        makeLegacyBaseSpec(Vocabulary::familyTypeSpec, familyTypeName, LegacyPrimitiveType::Reference),
    };
    const auto found = std::find_if(specs.begin(), specs.end(),
                                    [typeId](const Spec& spec) { return isExactly(typeId, spec.getTypeId()); });
    return found != specs.end() ? &*found : nullptr;
}

std::optional<LegacyPrimitiveType> legacyPrimitiveTypeOf(std::string_view name) {
    const auto found = std::find_if(primitiveTypes.begin(), primitiveTypes.end(),
                                    [name](const NamedType& type) { return isExactly(name, type.first); });
    if (found != primitiveTypes.end()) {
        return found->second;
    }
    if (beginsWithPrefix(name, Vocabulary::referenceDataPrefix)) {
        return LegacyPrimitiveType::Reference;
    }
    return std::nullopt;
}

std::optional<LegacyPrimitiveType> primitiveTypeOf(const ValueTypeId& valueTypeId) {
    if (const auto* type = std::get_if<LegacyPrimitiveType>(&valueTypeId)) {
        return *type;
    }
    const auto* name = std::get_if<std::string>(&valueTypeId);
    return name != nullptr ? legacyPrimitiveTypeOf(*name) : std::nullopt;
}

bool isPrimitiveName(std::string_view name) {
    return legacyPrimitiveTypeOf(name) ||
           std::find(legacyValueTypeNames.begin(), legacyValueTypeNames.end(), name) != legacyValueTypeNames.end() ||
           beginsWithPrefix(name, "Reference<");
}

bool isLegacyValueTypeName(std::string_view name) {
    return name.find('-') != std::string_view::npos || isPrimitiveName(name);
}

} // namespace Parameters
