#include "base/UnitsErrors.h"
#include "engine/EngineImpl.h"

#include <set>
#include <string>
#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;

/// Copies the units item if the context's units engine has it and this engine's has not; whether it did.
bool copyUnitsItem(const std::string& typeId, Units::UnitsEngine& units, const Units::UnitsEngine& source) {
    if (units.isRegistered(typeId) || !source.isRegistered(typeId)) {
        return false;
    }
    withUnitsValidation([&] { askUnits(typeId, [&] { units.copyItem(typeId, source); }); });
    return true;
}

/// Works off the typeids, and what they lead to, smallest first: units items are copied at once, and what is to be
/// copied from the context's finished objects is returned.
TypeIds closureInContext(TypeIds work, EngineImpl& engine, const ParametersEngine& contextEngine,
                         const EngineImpl& context) {
    TypeIds toCopy;
    while (!work.empty()) {
        const auto node = work.extract(work.begin());
        const std::string& typeId = node.value();
        const bool settled = copyUnitsItem(typeId, engine.units, context.units) || !context.isRegistered(typeId) ||
                             engine.isRegistered(typeId) || toCopy.find(typeId) != toCopy.end();
        if (settled) {
            continue;
        }
        work.merge(contextEngine.getDependencies(typeId));
        if (!context.primary.visitFinished(typeId, [](auto /*kind*/, const auto& /*item*/) {})) {
            throwUnknownTypeId(typeId);
        }
        toCopy.insert(typeId);
    }
    return toCopy;
}

/// Copies those of the typeids that are of the kind, with their texts, checked against all that the new engine will
/// see.
template <class Kind> void copyFromContext(const TypeIds& typeIds, EngineImpl& engine, const EngineImpl& context) {
    for (const std::string& typeId : typeIds) {
        if (const auto* item = context.primary.find<Kind>(typeId)) {
            const LookupScope scope(engine.units, engine.primary, engine.imported, context.primary);
            engine.imported.addObject<Kind>(Kind::validated(item->object, scope), item->text);
        }
    }
}

} // namespace

std::set<std::string> ParametersEngine::registerSchemaWithContext(const std::string& schemaText,
                                                                  const ParametersEngine& context) {
    const auto missing = registerSchema(schemaText);
    TypeIds unknown;
    TypeIds work;
    for (const auto* typeIds : {&missing.first, &missing.second}) {
        for (const std::string& typeId : *typeIds) {
            (context.isRegistered(typeId) ? work : unknown).insert(typeId);
        }
    }
    const TypeIds toCopy = closureInContext(std::move(work), *impl_, context, *context.impl_);
    ImportOrder::forEach([&](auto kind) { copyFromContext<decltype(kind)>(toCopy, *impl_, *context.impl_); });
    return unknown;
}

} // namespace Parameters
