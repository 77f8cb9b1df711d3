#include <Parameters/Defaults.h>

#include "schema/Vocabulary.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/DefaultTaxa.h"

namespace Parameters::Defaults {

Taxon CreateDefaultDiscipline(Units::SchemaFormat format) { return DefaultTaxa::disciplines().ofFormat(format); }

Taxon CreateDefaultGroup(Units::SchemaFormat format) { return DefaultTaxa::groups().ofFormat(format); }

const std::string& BooleanPrimitiveType() {
    static const std::string name(PrimitiveTypeNames::boolean);
    return name;
}

const std::string& IntegerPrimitiveType() {
    static const std::string name(PrimitiveTypeNames::integer);
    return name;
}

const std::string& FloatPrimitiveType() {
    static const std::string name(PrimitiveTypeNames::floatingPoint);
    return name;
}

const std::string& ReferencePrimitiveType() {
    static const std::string name(PrimitiveTypeNames::reference);
    return name;
}

const std::string& StringPrimitiveType() {
    static const std::string name(PrimitiveTypeNames::string);
    return name;
}

Spec CreateLegacyBooleanBaseSpec() { return *findLegacyBaseSpec(Vocabulary::booleanSpec.typeId); }

Spec CreateLegacyIntegerBaseSpec() { return *findLegacyBaseSpec(Vocabulary::integerSpec.typeId); }

Spec CreateLegacyReferenceBaseSpec() { return *findLegacyBaseSpec(Vocabulary::referenceSpec.typeId); }

Spec CreateLegacyFamilyTypeBaseSpec() { return *findLegacyBaseSpec(Vocabulary::familyTypeSpec.typeId); }

Spec CreateLegacyStringBaseSpec() { return *findLegacyBaseSpec(Vocabulary::stringSpec.typeId); }

} // namespace Parameters::Defaults
