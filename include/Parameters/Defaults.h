#pragma once

#include <Parameters/Export.h>
#include <Parameters/Spec.h>
#include <Parameters/Taxon.h>

#include <string>

/// Objects and names that stand for themselves and are never registered.
namespace Parameters::Defaults {

/// "Common": "quovanta.spec:discipline-2.0.0" for LumarDataSchema, else "quovanta.spec:discipline-1.0.0".
[[nodiscard]] PARAMETERS_EXPORT Taxon CreateDefaultDiscipline(Units::SchemaFormat format);
/// "Other": "quovanta.parameter:group-2.0.0" for LumarDataSchema, else "quovanta.parameter:group-1.0.0".
[[nodiscard]] PARAMETERS_EXPORT Taxon CreateDefaultGroup(Units::SchemaFormat format);

// Names of the primitive value types. The strings live as long as the library.

/// "Bool"
[[nodiscard]] PARAMETERS_EXPORT const std::string& BooleanPrimitiveType();
/// "Int64"
[[nodiscard]] PARAMETERS_EXPORT const std::string& IntegerPrimitiveType();
/// "Float64"
[[nodiscard]] PARAMETERS_EXPORT const std::string& FloatPrimitiveType();
/// "Reference"
[[nodiscard]] PARAMETERS_EXPORT const std::string& ReferencePrimitiveType();
/// "String"
[[nodiscard]] PARAMETERS_EXPORT const std::string& StringPrimitiveType();

// Specs of the oldest data model that parameters may use without registering them: of format PropertySets, without
// units, in the default discipline of that format.

/// "quovanta.spec:spec.bool-1.0.0", named "Yes/No".
[[nodiscard]] PARAMETERS_EXPORT Spec CreateLegacyBooleanBaseSpec();
/// "quovanta.spec:spec.int64-2.0.0", named "Integer".
[[nodiscard]] PARAMETERS_EXPORT Spec CreateLegacyIntegerBaseSpec();
/// "quovanta.spec:spec.reference-1.0.0", named "Reference".
[[nodiscard]] PARAMETERS_EXPORT Spec CreateLegacyReferenceBaseSpec();
/// "quovanta.talmo.spec:familyType-1.0.0", named "Family Type", with the value type Reference.
[[nodiscard]] PARAMETERS_EXPORT Spec CreateLegacyFamilyTypeBaseSpec();
/// "quovanta.spec:spec.string-2.0.0", named "Text".
[[nodiscard]] PARAMETERS_EXPORT Spec CreateLegacyStringBaseSpec();

} // namespace Parameters::Defaults
