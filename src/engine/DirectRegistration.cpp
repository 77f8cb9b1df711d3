#include "engine/EngineImpl.h"

namespace Parameters {

namespace {

/// Stores an object that a caller built, after a check against finished objects alone.
template <class Kind> void registerObject(EngineImpl& engine, const typename Kind::Object& object) {
    engine.requireUnregistered(typeIdOf(object));
    const LookupScope scope(engine.units, engine.primary);
    engine.primary.addObject<Kind>({Kind::validated(object, scope), std::nullopt});
}

} // namespace

void ParametersEngine::registerDiscipline(const Taxon& discipline) {
    registerObject<DisciplineKind>(*impl_, discipline);
}

void ParametersEngine::registerDomain(const Taxon& domain) { registerObject<DomainKind>(*impl_, domain); }

void ParametersEngine::registerGroup(const Taxon& group) { registerObject<GroupKind>(*impl_, group); }

} // namespace Parameters
