#include "engine/EngineImpl.h"
#include "engine/ValidationExceptionFactory.h"
#include "schema/Vocabulary.h"
#include "specs/PrimitiveSpecs.h"

namespace Parameters {

namespace {

SchemaDocument readDocument(const std::string& text) {
    static const ValidationExceptionFactory exceptionFactory;
    return readSchemaDocument(exceptionFactory, text);
}

/// The type of a form that stands for one, else that of the spec's value type name.
LegacyPrimitiveType valueTypeOf(const std::string& text, const LookupScope& scope) {
    const SchemaDocument document = readDocument(text);
    const auto body = readParameterSchema(document);
    if (!body) {
        return LegacyPrimitiveType::General;
    }
    if (body->primitiveType) {
        return *body->primitiveType;
    }
    const Spec spec = resolveSpecOfParameter(document.typeId, *body, scope.stores<SpecKind>());
    const auto* name = std::get_if<std::string>(&spec.getValueTypeId());
    // "Reference" is a value type name but says nothing here: only a data type of references does.
    if (name == nullptr || isExactly(*name, PrimitiveTypeNames::reference)) {
        return LegacyPrimitiveType::General;
    }
    return legacyPrimitiveTypeOf(*name).value_or(LegacyPrimitiveType::General);
}

} // namespace

Parameter ParametersEngine::readParameter(const std::string& text) const {
    const SchemaDocument document = readDocument(text);
    impl_->requireUnregistered(document.typeId);
    const auto body = readParameterSchema(document);
    if (!body) {
        throw ValidationException("Inheritance from an incorrect base schema.");
    }
    const LookupScope scope(impl_->units, impl_->primary);
    return ParameterKind::resolve(document.typeId, *body, scope);
}

LegacyPrimitiveType ParametersEngine::readValueType(const std::string& text) const {
    try {
        return valueTypeOf(text, LookupScope(impl_->units, impl_->primary));
    } catch (const ValidationException&) {
        return LegacyPrimitiveType::General;
    }
}

} // namespace Parameters
