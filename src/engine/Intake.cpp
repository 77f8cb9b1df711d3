#include "engine/EngineImpl.h"
#include "schema/UnitsErrors.h"
#include "schema/ValidationExceptionFactory.h"

#include <memory>
#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;

/// Adds to target those of the typeids that nobody knows. The schema that refers to them is about to be registered.
void collectMissing(const EngineImpl& engine, const std::string& schemaTypeId, const TypeIdViews& typeIds,
                    TypeIds& target) {
    for (const std::string_view view : typeIds) {
        std::string typeId(view);
        if (typeId != schemaTypeId && !engine.isRegistered(typeId)) {
            target.insert(std::move(typeId));
        }
    }
}

/// Keeps the document as pending if it is of the kind; whether it is. What can fail is done before the store is
/// touched.
template <class Kind>
bool storePending(EngineImpl& engine, SchemaDocument& document, const std::string& schemaText, TypeIds& first,
                  TypeIds& second) {
    auto body = Kind::read(document);
    if (!body) {
        return false;
    }
    collectMissing(engine, document.typeId, Kind::dependenciesOfSchema(*body), first);
    collectMissing(engine, document.typeId, Kind::unitDependenciesOfSchema(*body), second);
    engine.primary.store<Kind>().pending.insert(std::move(document.typeId), {*std::move(body), schemaText});
    return true;
}

/// Whether the document was of one of the library's kinds and is now pending.
bool takeSchema(EngineImpl& engine, const std::string& schemaText, TypeIds& first, TypeIds& second) {
    JSON::Scratch scratch;
    SchemaDocument document = readSchemaDocument(std::make_shared<ValidationExceptionFactory>(), schemaText, &scratch);
    engine.requireUnregistered(document.typeId);
    return IntakeOrder::any(
        [&](auto kind) { return storePending<decltype(kind)>(engine, document, schemaText, first, second); });
}

} // namespace

std::pair<TypeIds, TypeIds> ParametersEngine::registerSchema(const std::string& schemaText) {
    std::pair<TypeIds, TypeIds> missing;
    if (!takeSchema(*impl_, schemaText, missing.first, missing.second)) {
        missing.second = withUnitsValidation([&] { return impl_->units.registerSchema(schemaText); });
    }
    return missing;
}

void ParametersEngine::registerSchemas(const std::map<std::string, std::string>& schemas) {
    for (const auto& [typeId, schemaText] : schemas) {
        if (!impl_->isRegistered(typeId)) {
            registerSchema(schemaText);
        }
    }
    resolveSchemas();
}

} // namespace Parameters
