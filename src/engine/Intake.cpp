#include "base/UnitsErrors.h"
#include "engine/EngineImpl.h"
#include "engine/ValidationExceptionFactory.h"

#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;
/// Typeids of this library and of the units library.
using MissingTypeIds = std::pair<TypeIds, TypeIds>;

/// Tells which of the typeids that a schema refers to nobody knows. The schema is about to be registered.
class MissingSearch {
public:
    MissingSearch(const EngineImpl& engine, const TypeIdKey& schemaTypeId) noexcept
        : engine_(engine), schemaTypeId_(schemaTypeId) {}

    /// Adds the typeid to target if nobody knows it.
    void addMissing(const TypeIdKey& typeId, TypeIds& target) {
        if (typeId.typeId == schemaTypeId_.typeId || engine_.isKnownHere(typeId)) {
            return;
        }
        asked_.assign(typeId.typeId);
        if (!engine_.units.isRegistered(asked_)) {
            target.insert(asked_);
        }
    }

private:
    const EngineImpl& engine_;
    const TypeIdKey& schemaTypeId_;
    /// The units library is asked by strings. One serves all, so that most cost no allocation.
    std::string asked_;
};

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
        MissingSearch search(engine, key);
        Kind::dependenciesOfSchema(
            *body, [&](ReferenceTo /*target*/, const TypeIdKey& typeId) { search.addMissing(typeId, missing->first); });
        Kind::unitDependenciesOfSchema(*body,
                                       [&](const TypeIdKey& typeId) { search.addMissing(typeId, missing->second); });
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
