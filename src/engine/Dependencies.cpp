#include "engine/Dependencies.h"
#include "base/UnitsErrors.h"

#include <set>
#include <string>

namespace Parameters {

namespace {

template <class Kind>
std::set<std::string> dependenciesOf(const typename Kind::Object& object, const EngineImpl& engine) {
    DependencyCollector result(isBuiltInTypeId);
    collectDependencies<Kind>(object, engine, result);
    return std::move(result.typeIds);
}

} // namespace

std::set<std::string> ParametersEngine::getDependencies(const std::string& typeId) const {
    std::set<std::string> typeIds;
    const bool found = impl_->primary.visitFinished(
        typeId, [&](auto kind, const auto& item) { typeIds = dependenciesOf<decltype(kind)>(item.object, *impl_); });
    if (found || isBuiltInTypeId(typeId)) {
        return typeIds;
    }
    return askUnits(typeId, [&] { return impl_->units.getDependencies(typeId); });
}

std::set<std::string> ParametersEngine::getDependencies(const Parameter& parameter) const {
    return dependenciesOf<ParameterKind>(impl_->validatedNew<ParameterKind>(parameter), *impl_);
}

} // namespace Parameters
