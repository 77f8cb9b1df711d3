#include "base/UnitsErrors.h"
#include "engine/EngineImpl.h"
#include "engine/ValidationExceptionFactory.h"

#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;
/// Typeids of this library and of the units library.
using MissingTypeIds = std::pair<TypeIds, TypeIds>;

/// Adds the typeid to target if nobody knows it. The schema that refers to it is about to be registered.
void collectMissing(const EngineImpl& engine, const TypeIdKey& schemaTypeId, const TypeIdKey& typeId, TypeIds& target) {
    if (typeId.typeId == schemaTypeId.typeId || engine.isKnownHere(typeId)) {
        return;
    }
    std::string text(typeId.typeId);
    if (!engine.units.isRegistered(text)) {
        target.insert(std::move(text));
    }
}

/// Keeps the document as pending if it is of the kind; whether it is. What can fail is done before the store is
/// touched.
template <class Kind>
bool storePending(EngineImpl& engine, const SchemaDocument& document, const TypeIdKey& key,
                  const std::string& schemaText, MissingTypeIds* missing) {
    auto body = Kind::read(document);
    if (!body) {
        return false;
    }
    if (missing != nullptr) {
        Kind::dependenciesOfSchema(*body, [&](ReferenceTo /*target*/, const TypeIdKey& typeId) {
            collectMissing(engine, key, typeId, missing->first);
        });
        Kind::unitDependenciesOfSchema(
            *body, [&](const TypeIdKey& typeId) { collectMissing(engine, key, typeId, missing->second); });
    }
    engine.primary.addPending<Kind>(key, *std::move(body), schemaText);
    return true;
}

/// Whether the document was of one of the library's kinds and is now pending.
bool takeSchema(EngineImpl& engine, const std::string& schemaText, MissingTypeIds* missing) {
    static const ValidationExceptionFactory exceptionFactory;
    JSON::Scratch scratch;
    const SchemaDocument document = readSchemaDocument(exceptionFactory, schemaText, &scratch);
    const TypeIdKey key(document.typeId);
    engine.requireUnregistered(document.typeId, key);
    return IntakeOrder::any(
        [&](auto kind) { return storePending<decltype(kind)>(engine, document, key, schemaText, missing); });
}

/// Registers the document here or, if it is of no kind of this library, in the units library.
void registerDocument(EngineImpl& engine, const std::string& schemaText, MissingTypeIds* missing) {
    if (takeSchema(engine, schemaText, missing)) {
        return;
    }
    TypeIds missingUnits = withUnitsValidation([&] { return engine.units.registerSchema(schemaText); });
    if (missing != nullptr) {
        missing->second = std::move(missingUnits);
    }
}

} // namespace

std::pair<TypeIds, TypeIds> ParametersEngine::registerSchema(const std::string& schemaText) {
    MissingTypeIds missing;
    registerDocument(*impl_, schemaText, &missing);
    return missing;
}

void ParametersEngine::registerSchemas(const std::map<std::string, std::string>& schemas) {
    for (const auto& [typeId, schemaText] : schemas) {
        if (!impl_->isRegistered(typeId)) {
            registerDocument(*impl_, schemaText, nullptr);
        }
    }
    resolveSchemas();
}

} // namespace Parameters
