#include "base/UnitsErrors.h"
#include "engine/Dependencies.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {

namespace {

using TypeIds = std::set<std::string>;

/// Finds what is to be copied from a context's finished objects, and copies it. Units items are copied at once.
class ContextImport {
public:
    ContextImport(EngineImpl& engine, const EngineImpl& context) : engine_(engine), context_(context) {
        dependencies_.skipped = &engine.listed;
    }

    /// Works off the typeids, and what they lead to, smallest first.
    void findClosure(TypeIds work) {
        while (!work.empty()) {
            const auto worked = worked_.insert(work.extract(work.begin()));
            const std::string& typeId = *worked.position;
            const TypeIdKey key(typeId);
            const bool settled = !worked.inserted || copyUnitsItem(typeId) || !context_.isRegistered(typeId, key) ||
                                 engine_.isRegistered(typeId, key);
            if (settled) {
                continue;
            }
            const ItemLocation* location = context_.primary.findFinished(key);
            if (location == nullptr) {
                throwUnknownTypeId(typeId);
            }
            context_.primary.visitAt(*location, [&](auto kind, const auto& item) {
                collectDependencies<decltype(kind)>(item.object, context_, dependencies_);
            });
            work.merge(std::exchange(dependencies_.typeIds, {}));
            toCopy_.emplace(typeId, location);
        }
    }

    void copyFoundObjects() {
        ImportOrder::forEach([&](auto kind) { copyObjects<decltype(kind)>(); });
        if (!dependencies_.listed.empty() &&
            std::all_of(worked_.begin(), worked_.end(),
                        [&](const std::string& typeId) { return isHereToStay(typeId); })) {
            engine_.listed.merge(dependencies_.listed);
        }
    }

private:
    /// Copies the units item if the context's units engine has it and this engine's has not; whether it did.
    bool copyUnitsItem(const std::string& typeId) {
        if (engine_.units.isRegistered(typeId) || !context_.units.isRegistered(typeId)) {
            return false;
        }
        withUnitsValidation([&] { askUnits(typeId, [&] { engine_.units.copyItem(typeId, context_.units); }); });
        return true;
    }

    /// Copies those of the objects found that are of the kind, with their texts, checked against all that the new
    /// engine will see.
    template <class Kind> void copyObjects() {
        const LookupScope scope(engine_.units, engine_.primary, engine_.imported, context_.primary);
        for (const auto& [typeId, location] : toCopy_) {
            if (location->kind == kindNumber<Kind>) {
                const auto& item = context_.primary.store<Kind>().finished[location->position];
                engine_.imported.addObject<Kind>(Kind::validated(item.object, scope), item.text);
            }
        }
    }

    /// Whether the engine knows the typeid until its next resolution: a pending units item a host may drop before.
    [[nodiscard]] bool isHereToStay(const std::string& typeId) const {
        if (engine_.isKnownHere(typeId)) {
            return true;
        }
        try {
            static_cast<void>(engine_.units.getDependencies(typeId));
            return true;
        } catch (const Units::UnrecognizedIdentifierException&) {
            return false;
        }
    }

    EngineImpl& engine_;
    const EngineImpl& context_;
    TypeIds worked_;
    /// By their typeids, which stand among those worked off.
    std::map<std::string_view, const ItemLocation*> toCopy_;
    DependencyCollector dependencies_{isBuiltInTypeId};
};

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
    ContextImport import(*impl_, *context.impl_);
    import.findClosure(std::move(work));
    import.copyFoundObjects();
    return unknown;
}

} // namespace Parameters
