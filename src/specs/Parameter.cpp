#include <Parameters/Parameter.h>

#include "base/Text.h"
#include "schema/Vocabulary.h"
#include "specs/ParameterData.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/EnumerationData.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/StringRangeData.h"
#include "taxonomy/TaxonData.h"

#include <Parameters/Defaults.h>
#include <Parameters/Exceptions.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace Parameters {

ParameterCore::ParameterCore(const std::string& typeId, const std::string& name, const std::string& description,
                             const std::string& sampleText, bool readOnly)
    : ParameterCore(typeId, name, Defaults::CreateDefaultGroup(Units::SchemaFormat::PropertySets), description,
                    sampleText, readOnly) {}

ParameterCore::ParameterCore(const std::string& typeId, const std::string& name, const Taxon& group,
                             const std::string& description, const std::string& sampleText, bool readOnly)
    : typeId_(typeId), name_(name), description_(description), sampleText_(sampleText), group_(group),
      readOnly_(readOnly) {}

ParameterCore::~ParameterCore() = default;

std::string ParameterCore::getTypeId() const { return typeId_; }

std::string ParameterCore::getName() const { return name_; }

std::string ParameterCore::getDescription() const { return description_; }

std::string ParameterCore::getSampleText() const { return sampleText_; }

Taxon ParameterCore::getGroup() const { return group_; }

bool ParameterCore::isReadOnly() const noexcept { return readOnly_; }

Parameter::Parameter(const std::string& typeId, const std::string& name, const Spec& spec, const Taxon& group,
                     const ParameterRange& range, const std::string& description, const std::string& sampleText,
                     bool readOnly)
    : Parameter(
          std::make_shared<const Data>(Data{typeId, name, description, sampleText, group, spec, range, readOnly})) {}

Parameter::Parameter(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Parameter::~Parameter() = default;

const std::string& Parameter::getTypeId() const noexcept { return data_->typeId; }

const std::string& Parameter::getName() const noexcept { return data_->name; }

const std::string& Parameter::getDescription() const noexcept { return data_->description; }

const std::string& Parameter::getSampleText() const noexcept { return data_->sampleText; }

const Taxon& Parameter::getGroup() const noexcept { return data_->group; }

const Spec& Parameter::getSpec() const noexcept { return data_->spec; }

const ParameterRange& Parameter::getRange() const noexcept { return data_->range; }

bool Parameter::isReadOnly() const noexcept { return data_->readOnly; }

Units::SchemaFormat Parameter::getSchemaFormat() const noexcept { return data_->spec.getSchemaFormat(); }

bool Parameter::operator==(const Parameter& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Parameter::operator<(const Parameter& other) const noexcept { return data_->typeId < other.data_->typeId; }

namespace {

[[noreturn]] void throwNotFound(std::string_view kind, std::string_view typeId) {
    throw ValidationException(concat({"Could not find ", kind, " with typeid ", typeId, "."}));
}

/// The registered group counts, not the one that the parameter brought along, and of the default ones that of the older
/// format.
Taxon registeredGroup(const Parameter& parameter, const StoreList<Taxon>& groupStores) {
    const std::string& group = typeIdOf(parameter.getGroup());
    if (const Taxon* registered = groupStores.find(group)) {
        return *registered;
    }
    if (!containsPrefix(group, Vocabulary::group.prefix)) {
        throwNotFound(KindNames::group, group);
    }
    return Defaults::CreateDefaultGroup(Units::SchemaFormat::PropertySets);
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
        throwNotFound(kind, typeId);
    }
    return range;
}

[[noreturn]] void throwStringBase(const std::string& typeId, std::string_view rule) {
    throw ValidationException(concat({"String range using base schema typeid ", typeId, rule}));
}

/// A range of a static base must hold what the base says.
void requireBaseRules(const StringRange& range) {
    const auto& data = Internals::dataOf(range);
    if (containsPrefix(data.typeId, Vocabulary::defaultStringRange.prefix)) {
        if (!std::holds_alternative<std::monostate>(data.component)) {
            throwStringBase(data.typeId, " may not specify a limited range of values.");
        }
        return;
    }
    if (containsPrefix(data.typeId, Vocabulary::setStringRange.prefix) &&
        !std::holds_alternative<SetStringRangeComponent>(data.component)) {
        throwStringBase(data.typeId, " must specify an explicit set of allowed values.");
    }
    if (containsPrefix(data.typeId, Vocabulary::regexStringRange.prefix) &&
        !std::holds_alternative<RegexStringRangeComponent>(data.component)) {
        throwStringBase(data.typeId, " must specify a regular expression matching permitted values.");
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
    throwNotFound(KindNames::spec, typeId);
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
    if (parameter.getName().empty()) {
        throw ValidationException("Name must not be empty.");
    }
    Taxon group = registeredGroup(parameter, stores.groups);
    ParameterRange range = std::visit(RangeValidation{stores}, parameter.getRange());
    Spec spec = canonicalSpecOf(parameter, stores.specs);
    requireGeneralRules(parameter);
    return Internals::changed(parameter, [&](auto& changed) {
        changed.group = std::move(group);
        changed.range = std::move(range);
        changed.spec = std::move(spec);
    });
}

} // namespace Parameters
