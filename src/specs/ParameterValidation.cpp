#include "schema/KindNames.h"
#include "schema/Text.h"
#include "schema/Vocabulary.h"
#include "specs/ParameterData.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/EnumerationData.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/StringRangeData.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Exceptions.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace Parameters {

namespace {

[[noreturn]] void raiseNotFound(std::string_view kind, std::string_view typeId) {
    throw ValidationException(joined({"Could not find ", kind, " with typeid ", typeId, "."}));
}

/// The registered group counts, not the one that the parameter brought along.
ParameterCore coreOfParameter(const Parameter& parameter, const StoreList<Taxon>& groupStores) {
    if (parameter.getName().empty()) {
        throw ValidationException("Name must not be empty.");
    }
    const std::string& group = typeIdOf(parameter.getGroup());
    if (const Taxon* registered = groupStores.find(group)) {
        return {parameter.getTypeId(),      parameter.getName(),       *registered,
                parameter.getDescription(), parameter.getSampleText(), parameter.isReadOnly()};
    }
    if (containsPrefix(group, Vocabulary::group.prefix)) {
        return {parameter.getTypeId(), parameter.getName(), parameter.getDescription(), parameter.getSampleText(),
                parameter.isReadOnly()};
    }
    raiseNotFound(KindNames::group, group);
}

/// The registered object under the range's typeid. A range of a static base is an inline one and stands for itself
/// where none is registered.
template <class Range>
Range registeredRange(const Range& range, const StoreList<Range>& stores, std::string_view kind,
                      std::initializer_list<std::string_view> inlinePrefixes = {}) {
    const std::string& typeId = typeIdOf(range);
    if (const Range* registered = stores.find(typeId)) {
        return *registered;
    }
    const bool inlined = std::any_of(inlinePrefixes.begin(), inlinePrefixes.end(),
                                     [&](std::string_view prefix) { return containsPrefix(typeId, prefix); });
    if (!inlined) {
        raiseNotFound(kind, typeId);
    }
    return range;
}

[[noreturn]] void raiseStringBase(const std::string& typeId, std::string_view rule) {
    throw ValidationException(joined({"String range using base schema typeid ", typeId, rule}));
}

/// A range of a static base must hold what the base says.
void requireBaseRules(const StringRange& range) {
    const auto& data = Internals::dataOf(range);
    if (containsPrefix(data.typeId, Vocabulary::defaultStringRange.prefix)) {
        if (!std::holds_alternative<std::monostate>(data.component)) {
            raiseStringBase(data.typeId, " may not specify a limited range of values.");
        }
        return;
    }
    if (containsPrefix(data.typeId, Vocabulary::setStringRange.prefix) &&
        !std::holds_alternative<SetStringRangeComponent>(data.component)) {
        raiseStringBase(data.typeId, " must specify an explicit set of allowed values.");
    }
    if (containsPrefix(data.typeId, Vocabulary::regexStringRange.prefix) &&
        !std::holds_alternative<RegexStringRangeComponent>(data.component)) {
        raiseStringBase(data.typeId, " must specify a regular expression matching permitted values.");
    }
}

/// The range as the engine knows it, by the alternative that the parameter holds.
struct RangeValidation {
    const ParameterStores& stores;

    ParameterRange operator()(std::monostate none) const { return none; }
    ParameterRange operator()(const Category& category) const {
        return registeredRange(category, stores.categories, KindNames::category);
    }
    ParameterRange operator()(const Enumeration& enumeration) const {
        return registeredRange(enumeration, stores.enumerations, KindNames::enumeration);
    }
    ParameterRange operator()(const FloatRange& range) const {
        return registeredRange(range, stores.floatRanges, KindNames::floatRange, {Vocabulary::floatRange.prefix});
    }
    ParameterRange operator()(const IntRange& range) const {
        return registeredRange(range, stores.intRanges, KindNames::intRange, {Vocabulary::intRange.prefix});
    }
    ParameterRange operator()(const StringRange& range) const {
        static_cast<void>(validatedStringRange(range));
        requireBaseRules(range);
        return registeredRange(range, stores.stringRanges, KindNames::stringRange,
                               {Vocabulary::defaultStringRange.prefix, Vocabulary::setStringRange.prefix,
                                Vocabulary::regexStringRange.prefix});
    }
};

void requireFamilyTypeRules(const Parameter& parameter) {
    const std::string& spec = parameter.getSpec().getTypeId();
    if (!std::holds_alternative<Category>(parameter.getRange())) {
        throw ValidationException("Family Type parameter must specify a category.");
    }
    if (std::holds_alternative<LegacyPrimitiveType>(parameter.getSpec().getValueTypeId()) &&
        !containsPrefix(spec, Vocabulary::familyTypeSpec.majorPrefix)) {
        throw ValidationException(
            "Primitive reference parameter may use only major version 1 of the family type base spec.");
    }
}

/// The spec as the engine knows it: a legacy base spec by its typeid alone, any other as it is registered.
Spec canonicalSpecOf(const Parameter& parameter, const StoreList<Spec>& specStores) {
    const std::string& typeId = parameter.getSpec().getTypeId();
    if (containsPrefix(typeId, Vocabulary::familyTypeSpec.prefix)) {
        requireFamilyTypeRules(parameter);
    }
    if (const Spec* base = findLegacyBaseSpec(typeId)) {
        return *base;
    }
    if (const Spec* registered = specStores.find(typeId)) {
        return *registered;
    }
    raiseNotFound(KindNames::spec, typeId);
}

/// Looks at the spec and the range that the caller gave, not at the registered ones.
void requireGeneralRules(const Parameter& parameter) {
    const auto* type = std::get_if<LegacyPrimitiveType>(&parameter.getSpec().getValueTypeId());
    const bool general = type != nullptr && *type == LegacyPrimitiveType::General;
    const bool enumerated = std::holds_alternative<Enumeration>(parameter.getRange());
    if (enumerated && !general) {
        throw ValidationException("Parameter with an enumeration range must use a legacy general spec.");
    }
    if (!enumerated && general) {
        throw ValidationException("Parameter with a legacy general spec must use an enumeration range.");
    }
}

} // namespace

Parameter validatedParameter(const Parameter& parameter, const ParameterStores& stores) {
    const ParameterCore core = coreOfParameter(parameter, stores.groups);
    const ParameterRange range = std::visit(RangeValidation{stores}, parameter.getRange());
    const Spec spec = canonicalSpecOf(parameter, stores.specs);
    requireGeneralRules(parameter);
    return {core.getTypeId(),     core.getName(),   spec, core.getGroup(), range, core.getDescription(),
            core.getSampleText(), core.isReadOnly()};
}

} // namespace Parameters
