#pragma once

#include "engine/EngineImpl.h"

namespace Parameters {

/// Collects the typeids that a finished object of an engine depends on.
template <class Kind>
void collectDependencies(const typename Kind::Object& object, const EngineImpl& engine, DependencyCollector& result) {
    Kind::addDependencies(object, result, engine.units,
                          LookupScope(engine.units, engine.primary).stores<CategoryKind>());
}

} // namespace Parameters
