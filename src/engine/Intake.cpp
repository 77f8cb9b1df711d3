#include "engine/EngineImpl.h"
#include "schema/UnitsErrors.h"
#include "schema/ValidationExceptionFactory.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;
/// Typeids of this library and of the units library.
using MissingTypeIds = std::pair<TypeIds, TypeIds>;

/// Adds to target those of the typeids that nobody knows. The schema that refers to them is about to be registered.
void collectMissing(const EngineImpl& engine, const std::string& schemaTypeId, const TypeIdViews& typeIds,
                    TypeIds& target) {
    for (const std::string_view typeId : typeIds) {
        if (typeId != schemaTypeId && !engine.isRegistered(typeId)) {
            target.emplace(typeId);
        }
    }
}

/// Keeps the document as pending if it is of the kind; whether it is. What can fail is done before the store is
/// touched.
template <class Kind>
bool storePending(EngineImpl& engine, SchemaDocument& document, std::uint32_t typeIdHash, const std::string& schemaText,
                  MissingTypeIds* missing) {
    auto body = Kind::read(document);
    if (!body) {
        return false;
    }
    if (missing != nullptr) {
        collectMissing(engine, document.typeId, Kind::dependenciesOfSchema(*body), missing->first);
        collectMissing(engine, document.typeId, Kind::unitDependenciesOfSchema(*body), missing->second);
    }
    engine.primary.addPending<Kind>(std::move(document.typeId), typeIdHash, *std::move(body), schemaText);
    return true;
}

/// Whether the document was of one of the library's kinds and is now pending.
bool takeSchema(EngineImpl& engine, const std::string& schemaText, MissingTypeIds* missing) {
    JSON::Scratch scratch;
    SchemaDocument document = readSchemaDocument(std::make_shared<ValidationExceptionFactory>(), schemaText, &scratch);
    const TypeIdKey key(document.typeId);
    engine.requireUnregistered(document.typeId, key);
    return IntakeOrder::any(
        [&](auto kind) { return storePending<decltype(kind)>(engine, document, key.hash, schemaText, missing); });
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
