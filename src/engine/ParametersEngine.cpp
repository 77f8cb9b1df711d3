#include <Parameters/ParametersEngine.h>

#include "engine/EngineImpl.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/DefaultTaxa.h"

namespace Parameters {

namespace {

template <class Kind> std::map<std::string, typename Kind::Object> allObjects(const Registry& registry) {
    std::map<std::string, typename Kind::Object> objects;
    for (const auto& item : registry.store<Kind>().finished) {
        // Catalogs often come in ascending order.
        objects.emplace_hint(objects.end(), typeIdOf(item.object), item.object);
    }
    return objects;
}

template <class Kind> const typename Kind::Object& lookupObject(const Registry& registry, const std::string& typeId) {
    const auto* item = registry.find<Kind>(typeId);
    if (item == nullptr) {
        throw UnrecognizedIdentifierException(concat({"Could not find ", Kind::name, " with typeid ", typeId, "."}));
    }
    return item->object;
}

} // namespace

ParametersEngine::ParametersEngine() : impl_(std::make_unique<EngineImpl>()) {}

ParametersEngine::ParametersEngine(const ParametersEngine& other) : impl_(std::make_unique<EngineImpl>(*other.impl_)) {}

ParametersEngine::ParametersEngine(ParametersEngine&& other) noexcept = default;

ParametersEngine& ParametersEngine::operator=(const ParametersEngine& other) {
    if (this == &other) {
        return *this;
    }
    auto copy = std::make_unique<EngineImpl>(*other.impl_);
    if (impl_) {
        // Not replaced as a whole: the units engine may be referred to. Its own assignment is the only one that can
        // fail, if a host's units library only copies.
        impl_->units = std::move(copy->units);
        impl_->primary = std::move(copy->primary);
        impl_->imported = std::move(copy->imported);
        impl_->listed = std::move(copy->listed);
    } else {
        impl_ = std::move(copy);
    }
    return *this;
}

ParametersEngine& ParametersEngine::operator=(ParametersEngine&& other) noexcept = default;

ParametersEngine::~ParametersEngine() = default;

std::map<std::string, Category> ParametersEngine::getAllCategories() const {
    return allObjects<CategoryKind>(impl_->primary);
}

std::map<std::string, Taxon> ParametersEngine::getAllDisciplines() const {
    return allObjects<DisciplineKind>(impl_->primary);
}

std::map<std::string, Taxon> ParametersEngine::getAllDomains() const { return allObjects<DomainKind>(impl_->primary); }

std::map<std::string, Enumeration> ParametersEngine::getAllEnumerations() const {
    return allObjects<EnumerationKind>(impl_->primary);
}

std::map<std::string, FloatRange> ParametersEngine::getAllFloatRanges() const {
    return allObjects<FloatRangeKind>(impl_->primary);
}

std::map<std::string, Taxon> ParametersEngine::getAllGroups() const { return allObjects<GroupKind>(impl_->primary); }

std::map<std::string, IntRange> ParametersEngine::getAllIntRanges() const {
    return allObjects<IntRangeKind>(impl_->primary);
}

std::map<std::string, Parameter> ParametersEngine::getAllParameters() const {
    return allObjects<ParameterKind>(impl_->primary);
}

std::map<std::string, Spec> ParametersEngine::getAllSpecs() const { return allObjects<SpecKind>(impl_->primary); }

std::map<std::string, StringRange> ParametersEngine::getAllStringRanges() const {
    return allObjects<StringRangeKind>(impl_->primary);
}

Category ParametersEngine::getCategory(const std::string& typeId) const {
    return lookupObject<CategoryKind>(impl_->primary, typeId);
}

Taxon ParametersEngine::getDiscipline(const std::string& typeId) const {
    if (containsPrefix(typeId, Vocabulary::discipline.prefix)) {
        return DefaultTaxa::disciplines().withTypeId(typeId);
    }
    return lookupObject<DisciplineKind>(impl_->primary, typeId);
}

Taxon ParametersEngine::getDomain(const std::string& typeId) const {
    return lookupObject<DomainKind>(impl_->primary, typeId);
}

Enumeration ParametersEngine::getEnumeration(const std::string& typeId) const {
    return lookupObject<EnumerationKind>(impl_->primary, typeId);
}

FloatRange ParametersEngine::getFloatRange(const std::string& typeId) const {
    return lookupObject<FloatRangeKind>(impl_->primary, typeId);
}

Taxon ParametersEngine::getGroup(const std::string& typeId) const {
    if (containsPrefix(typeId, Vocabulary::group.prefix)) {
        return DefaultTaxa::groups().withTypeId(typeId);
    }
    return lookupObject<GroupKind>(impl_->primary, typeId);
}

IntRange ParametersEngine::getIntRange(const std::string& typeId) const {
    return lookupObject<IntRangeKind>(impl_->primary, typeId);
}

Parameter ParametersEngine::getParameter(const std::string& typeId) const {
    return lookupObject<ParameterKind>(impl_->primary, typeId);
}

Spec ParametersEngine::getSpec(const std::string& typeId) const {
    // The family type base spec can be used by parameters but not asked for.
    const Spec* base = findLegacyBaseSpec(typeId);
    if (base != nullptr && !isExactly(typeId, Vocabulary::familyTypeSpec.typeId)) {
        return *base;
    }
    return lookupObject<SpecKind>(impl_->primary, typeId);
}

StringRange ParametersEngine::getStringRange(const std::string& typeId) const {
    return lookupObject<StringRangeKind>(impl_->primary, typeId);
}

bool ParametersEngine::isRegistered(const std::string& typeId) const { return impl_->isRegistered(typeId); }

Units::UnitsEngine& ParametersEngine::getUnitsEngine() { return impl_->units; }

const Units::UnitsEngine& ParametersEngine::getUnitsEngine() const { return impl_->units; }

} // namespace Parameters
