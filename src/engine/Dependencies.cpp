#include "base/UnitsErrors.h"
#include "engine/EngineImpl.h"

#include <set>
#include <string>

namespace Parameters {

namespace {

void dropBuiltIns(std::set<std::string>& typeIds) {
    for (const std::string_view builtIn : Vocabulary::builtInTypeIds) {
        typeIds.erase(std::string(builtIn));
    }
}

template <class Kind>
std::set<std::string> dependenciesOf(const typename Kind::Object& object, const EngineImpl& engine) {
    std::set<std::string> typeIds;
    Kind::addDependencies(object, typeIds, engine.units,
                          LookupScope(engine.units, engine.primary).stores<CategoryKind>());
    dropBuiltIns(typeIds);
    return typeIds;
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
