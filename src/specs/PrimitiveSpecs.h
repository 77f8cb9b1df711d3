#pragma once

#include "schema/Vocabulary.h"

#include <Parameters/Spec.h>

#include <array>
#include <optional>
#include <string_view>

namespace Parameters {

/// A family of specs that add nothing to a primitive type but a name.
struct PrimitiveSpec {
    LegacyPrimitiveType type;
    BaseSchema base;
    /// Name of a spec whose document gives none.
    std::string_view defaultName;
};

/// In the order in which a base schema is compared with them.
inline constexpr std::array<PrimitiveSpec, 4> primitiveSpecs = {{
    {LegacyPrimitiveType::Boolean, Vocabulary::booleanSpec, "Yes/No"},
    {LegacyPrimitiveType::Integer, Vocabulary::integerSpec, "Integer"},
    {LegacyPrimitiveType::Reference, Vocabulary::referenceSpec, "Reference"},
    {LegacyPrimitiveType::String, Vocabulary::stringSpec, "Text"},
}};

/// The spec that parameters may use under this typeid without registering it, or null: one for each primitive spec, and
/// the family type.
[[nodiscard]] const Spec* findLegacyBaseSpec(std::string_view typeId);

/// The primitive type behind a value type name; never General.
[[nodiscard]] std::optional<LegacyPrimitiveType> legacyPrimitiveTypeOf(std::string_view name);

/// The primitive type behind a value type: itself, or that of its name.
[[nodiscard]] std::optional<LegacyPrimitiveType> primitiveTypeOf(const ValueTypeId& valueTypeId);

/// Whether the name is that of a primitive type of any data model, and not a typeid.
[[nodiscard]] bool isPrimitiveName(std::string_view name);

/// Whether older data models can read the name as a value type.
[[nodiscard]] bool isLegacyValueTypeName(std::string_view name);

} // namespace Parameters
