#include "engine/EngineImpl.h"

namespace Parameters {

namespace {

/// Stores an object that a caller built.
template <class Kind> void registerObject(EngineImpl& engine, const typename Kind::Object& object) {
    engine.primary.addObject<Kind>(engine.validatedNew<Kind>(object), {});
}

} // namespace

void ParametersEngine::registerCategory(const Category& category) { registerObject<CategoryKind>(*impl_, category); }

void ParametersEngine::registerDiscipline(const Taxon& discipline) {
    registerObject<DisciplineKind>(*impl_, discipline);
}

void ParametersEngine::registerDomain(const Taxon& domain) { registerObject<DomainKind>(*impl_, domain); }

void ParametersEngine::registerEnumeration(const Enumeration& enumeration) {
    registerObject<EnumerationKind>(*impl_, enumeration);
}

void ParametersEngine::registerFloatRange(const FloatRange& range) { registerObject<FloatRangeKind>(*impl_, range); }

void ParametersEngine::registerGroup(const Taxon& group) { registerObject<GroupKind>(*impl_, group); }

void ParametersEngine::registerIntRange(const IntRange& range) { registerObject<IntRangeKind>(*impl_, range); }

void ParametersEngine::registerParameter(const Parameter& parameter) {
    registerObject<ParameterKind>(*impl_, parameter);
}

void ParametersEngine::registerSpec(const Spec& spec) { registerObject<SpecKind>(*impl_, spec); }

void ParametersEngine::registerStringRange(const StringRange& range) { registerObject<StringRangeKind>(*impl_, range); }

} // namespace Parameters
