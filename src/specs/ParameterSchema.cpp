#include "specs/ParameterSchema.h"

#include "base/Text.h"
#include "schema/DataModels.h"
#include "schema/Frame.h"
#include "schema/VersionedWriting.h"
#include "schema/Vocabulary.h"
#include "specs/ParameterData.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/SpecData.h"
#include "specs/SpecSchema.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/CategorySchema.h"
#include "taxonomy/DefaultTaxa.h"
#include "taxonomy/EnumerationData.h"
#include "taxonomy/EnumerationSchema.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeSchema.h"
#include "taxonomy/StringRangeData.h"
#include "taxonomy/StringRangeSchema.h"
#include "taxonomy/TaxonData.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace Parameters {

namespace {

constexpr std::string_view specKey = "spec";
constexpr std::string_view categoryKey = "category";
constexpr std::string_view dataKey = "data";

// The steps of reading a form. Each fills its part of the schema.

struct ParameterForm;
using ReadStep = void (*)(const SchemaDocument& document, const ParameterForm& form, ParameterSchema& schema);

/// A form of parameter document. A step that a form lacks is null; they run in the order of the fields.
struct ParameterForm {
    std::string_view prefix;
    std::optional<LegacyPrimitiveType> primitiveType;
    /// Spec of a document that names none; empty where it must.
    std::string_view defaultSpec;
    ReadStep readSpec;
    ReadStep readRange;
    ReadStep readData;
};

void readSpecConstant(const SchemaDocument& document, const ParameterForm& form, ParameterSchema& schema) {
    schema.spec = readTypedValueConstant(document, specKey,
                                         form.defaultSpec.empty() ? std::nullopt : std::optional(form.defaultSpec));
}

/// The category that a family type takes as an override.
std::string_view readFamilyTypeCategory(const JSON& json, std::string_view spec) {
    const JSON value = json.getMember(Frame::typedValue);
    if (!value.exists()) {
        json.report(Rule::MissingMember,
                    concat({"Inline typedValue override is required when specifying the family type base schema ", spec,
                            " in spec constant typedValue."}));
        return {};
    }
    if (!value.isObject()) {
        value.report(Rule::WrongType, "Inline typedValue override in spec constant typedValue must be an object.");
        return {};
    }
    const auto category = readTypeIdAttribute(value.getMember(categoryKey));
    if (!category) {
        value.report(Rule::MissingMember,
                     "Inline typedValue override in spec constant typedValue must specify an object with a typeid "
                     "string attribute for constant category.");
    }
    return category.value_or("");
}

/// The spec of a reference parameter, which takes a family type with its category, too.
void readReferenceSpecConstant(const SchemaDocument& document, const ParameterForm& form, ParameterSchema& schema) {
    schema.spec = form.defaultSpec;
    readMembers(
        document.constants,
        MemberHandler{specKey, [&](const JSON& json) {
                          const auto spec = readTypeIdAttribute(json);
                          if (!spec) {
                              json.report(
                                  Rule::MissingMember,
                                  concat({"Parameter schema ", document.typeId,
                                          " must specify a typeid string attribute in its spec constant typedValue."}));
                              return;
                          }
                          schema.spec = *spec;
                          if (spec->empty()) {
                              return;
                          }
                          if (!containsPrefix(*spec, Vocabulary::familyTypeSpec.prefix)) {
                              if (json.hasMember(Frame::value) || json.hasMember(Frame::typedValue)) {
                                  json.report(Rule::WrongForm,
                                              concat({"Inline value override for spec ", *spec, " is not permitted."}));
                              }
                              return;
                          }
                          if (!containsPrefix(*spec, Vocabulary::familyTypeSpec.majorPrefix)) {
                              schema.spec = form.defaultSpec;
                              json.getMember(Frame::typeId)
                                  .report(Rule::UnknownBase, "Reference parameter schema may use only major version 1 "
                                                             "of the family type base spec.");
                          }
                          schema.range = CategoryReference{readFamilyTypeCategory(json, *spec)};
                      }});
}

void readCategoryConstant(const SchemaDocument& document, const ParameterForm& /*form*/, ParameterSchema& schema) {
    schema.range = CategoryReference{readTypedValueConstant(document, categoryKey)};
}

template <class Range, const auto& inlineBases>
void readRange(const SchemaDocument& document, const ParameterForm& /*form*/, ParameterSchema& schema) {
    schema.range = readRangeConstant<Range>(document, inlineBases);
}

void readDataProperty(const SchemaDocument& document, const ParameterForm& /*form*/, ParameterSchema& schema) {
    schema.spec = readPropertyTypeId(document, dataKey);
}

/// A general parameter without "data" is an enumeration parameter.
void readDataPropertyOrEnumeration(const SchemaDocument& document, const ParameterForm& form, ParameterSchema& schema) {
    if (document.properties.find(dataKey) != nullptr) {
        readDataProperty(document, form, schema);
        return;
    }
    const auto body = readEnumerationParameterSchema(document);
    schema.spec = body.spec;
    schema.range = EnumerationReference{body.enumeration};
}

// The base schemas under which a form takes an inline range.

constexpr std::array<std::string_view, 1> legacyFloatBases = {Vocabulary::floatRange.shortFrame};
constexpr std::array<std::string_view, 2> floatBases = {Vocabulary::floatRange.shortFrame,
                                                        Vocabulary::floatRange.fullFrame};
constexpr std::array<std::string_view, 1> legacyIntBases = {Vocabulary::intRange.shortFrame};
constexpr std::array<std::string_view, 2> intBases = {Vocabulary::intRange.shortFrame, Vocabulary::intRange.fullFrame};
constexpr std::array<std::string_view, 6> stringBases = {
    Vocabulary::defaultStringRange.shortFrame, Vocabulary::setStringRange.shortFrame,
    Vocabulary::regexStringRange.shortFrame,   Vocabulary::defaultStringRange.fullFrame,
    Vocabulary::setStringRange.fullFrame,      Vocabulary::regexStringRange.fullFrame};

constexpr std::string_view noDefaultSpec;

/// In the order in which a base schema is compared with them.
constexpr ParameterForm forms[] = {
    {Vocabulary::booleanParameter.prefix, LegacyPrimitiveType::Boolean, Vocabulary::booleanSpec.typeId,
     readSpecConstant, nullptr, nullptr},
    {Vocabulary::integerParameter.prefix, LegacyPrimitiveType::Integer, Vocabulary::integerSpec.typeId,
     readSpecConstant, readRange<IntRange, legacyIntBases>, nullptr},
    {Vocabulary::measurableParameter.prefix, LegacyPrimitiveType::Float, noDefaultSpec, readSpecConstant,
     readRange<FloatRange, legacyFloatBases>, nullptr},
    {Vocabulary::referenceParameter.prefix, LegacyPrimitiveType::Reference, Vocabulary::referenceSpec.typeId,
     readReferenceSpecConstant, nullptr, nullptr},
    {Vocabulary::stringParameter.prefix, LegacyPrimitiveType::String, Vocabulary::stringSpec.typeId, readSpecConstant,
     readRange<StringRange, stringBases>, nullptr},
    {Vocabulary::categorizedParameter.prefix, std::nullopt, noDefaultSpec, nullptr, readCategoryConstant,
     readDataProperty},
    {Vocabulary::rangedFloatParameter.prefix, std::nullopt, noDefaultSpec, nullptr, readRange<FloatRange, floatBases>,
     readDataProperty},
    {Vocabulary::rangedIntParameter.prefix, std::nullopt, noDefaultSpec, nullptr, readRange<IntRange, intBases>,
     readDataProperty},
    {Vocabulary::rangedStringParameter.prefix, std::nullopt, noDefaultSpec, nullptr,
     readRange<StringRange, stringBases>, readDataProperty},
    {Vocabulary::generalParameter.prefix, std::nullopt, noDefaultSpec, nullptr, nullptr, readDataPropertyOrEnumeration},
};
static_assert(std::size(forms) == 10, "one row for each form");

Taxon resolveGroup(std::string_view typeId, const TypeIdKey& group, const StoreList<Taxon>& groupStores) {
    return isDefaultGroup(group.typeId) ? DefaultTaxa::groups().withTypeId(group.typeId)
                                        : findDependency(groupStores, typeId, group);
}

/// The range of a parameter document, by the alternative that its form gave it.
struct RangeResolution {
    std::string_view typeId;
    const ParameterStores& stores;

    ParameterRange operator()(std::monostate none) const { return none; }
    ParameterRange operator()(const CategoryReference& category) const {
        return findDependency(stores.categories, typeId, category.typeId);
    }
    ParameterRange operator()(const EnumerationReference& enumeration) const {
        return findDependency(stores.enumerations, typeId, enumeration.typeId);
    }
    ParameterRange operator()(const RangeConstant<FloatRange>& range) const {
        return resolveRangeConstant(range, typeId, stores.floatRanges);
    }
    ParameterRange operator()(const RangeConstant<IntRange>& range) const {
        return resolveRangeConstant(range, typeId, stores.intRanges);
    }
    ParameterRange operator()(const RangeConstant<StringRange>& range) const {
        return resolveRangeConstant(range, typeId, stores.stringRanges);
    }
};

} // namespace

std::optional<ParameterSchema> readParameterSchema(const SchemaDocument& document) {
    const auto* form = std::find_if(std::begin(forms), std::end(forms), [&](const ParameterForm& candidate) {
        return document.isOfFamily(candidate.prefix);
    });
    if (form == std::end(forms)) {
        return std::nullopt;
    }
    ParameterSchema schema;
    schema.primitiveType = form->primitiveType;
    schema.name = readStringConstant(document, Frame::name);
    schema.description = readAnyStringConstant(document, "description", "");
    schema.sampleText = readAnyStringConstant(document, "sampleText", "");
    schema.group = readTypedValueConstant(document, "group", baseFor(Vocabulary::group, document.schemaFormat));
    schema.readOnly = readBoolConstant(document, "readOnly", false);
    for (const ReadStep step : {form->readSpec, form->readRange, form->readData}) {
        if (step != nullptr) {
            step(document, *form, schema);
        }
    }
    return schema;
}

Spec resolveSpecOfParameter(std::string_view typeId, const ParameterSchema& schema, const StoreList<Spec>& specStores) {
    const Spec* base = findLegacyBaseSpec(schema.spec.typeId);
    return base != nullptr ? *base : findDependency(specStores, typeId, schema.spec);
}

Parameter resolveParameter(std::string_view typeId, const ParameterSchema& schema, const ParameterStores& stores) {
    Taxon group = resolveGroup(typeId, schema.group, stores.groups);
    ParameterRange range = std::visit(RangeResolution{typeId, stores}, schema.range);
    Spec spec = resolveSpecOfParameter(typeId, schema, stores.specs);
    return Internals::make<Parameter>(std::string(typeId), std::string(schema.name), std::string(schema.description),
                                      std::string(schema.sampleText), std::move(group), std::move(spec),
                                      std::move(range), schema.readOnly);
}

void dependenciesOfParameter(const Parameter& parameter, DependencyCollector& result,
                             const Units::UnitsEngine& unitsEngine, const StoreList<Category>& categoryStores) {
    result.add(typeIdOf(parameter.getGroup()));
    result.add(parameter.getSpec().getTypeId());
    dependenciesOfSpec(parameter.getSpec(), result, unitsEngine);
    std::visit(
        [&](const auto& range) {
            using Range = std::decay_t<decltype(range)>;
            if constexpr (!std::is_same_v<Range, std::monostate>) {
                result.add(typeIdOf(range));
            }
            if constexpr (std::is_same_v<Range, Category>) {
                dependenciesOfCategory(range, result, categoryStores);
            }
        },
        parameter.getRange());
}

namespace {

using V = DataModelVersion;

void addCommonParameterConstants(JSON::Writer& target, const Parameter& parameter, DataModelVersion version) {
    const bool typed = usesFullFrame(parameter.getSchemaFormat(), version);
    createNameMember(target, parameter.getName(), typed);
    if (!parameter.getDescription().empty()) {
        createStringMember(target, "description", parameter.getDescription(), typed);
    }
    if (!parameter.getSampleText().empty()) {
        createStringMember(target, "sampleText", parameter.getSampleText(), typed);
    }
    const std::string& group = typeIdOf(parameter.getGroup());
    if (!isDefaultGroup(group)) {
        createTypedValueMember(target, "group", group);
    }
    if (parameter.isReadOnly()) {
        createBoolMember(target, "readOnly", true, typed);
    }
}

/// The property {"id":id,"typeid":typeId}, alone in its section.
void addTypeIdProperty(JSON::Writer& target, std::string_view id, std::string_view typeId) {
    addProperties(target, [&] { createMember(target, id, [&] { addTypeId(target, typeId); }); });
}

/// The base schemas of a parameter by what limits it, and the format that decides the frame: that of the range where
/// there is one.
struct CurrentForm {
    BaseSchemas bases;
    Units::SchemaFormat format;
};

struct CurrentFormOf {
    const Parameter& parameter;

    CurrentForm operator()(std::monostate /*none*/) const {
        return {Vocabulary::generalParameter, parameter.getSchemaFormat()};
    }
    CurrentForm operator()(const Enumeration& /*enumeration*/) const { return (*this)(std::monostate()); }
    CurrentForm operator()(const Category& category) const {
        return {Vocabulary::categorizedParameter, category.getSchemaFormat()};
    }
    CurrentForm operator()(const FloatRange& range) const {
        return {Vocabulary::rangedFloatParameter, range.getSchemaFormat()};
    }
    CurrentForm operator()(const IntRange& range) const {
        return {Vocabulary::rangedIntParameter, range.getSchemaFormat()};
    }
    CurrentForm operator()(const StringRange& range) const {
        return {Vocabulary::rangedStringParameter, range.getSchemaFormat()};
    }
};

/// Creates the constant that limits the parameter, if there is one.
struct LimitConstant {
    JSON::Writer& target;
    DataModelVersion version;

    void operator()(std::monostate /*none*/) const {}
    void operator()(const Enumeration& /*enumeration*/) const {}
    void operator()(const Category& category) const { createTypedValueMember(target, "category", typeIdOf(category)); }
    template <class NumericRange> void operator()(const NumericRange& range) const {
        writeNumericRangeConstant(target, range, version);
    }
    void operator()(const StringRange& range) const { writeStringRangeConstant(target, range, version); }
};

/// For V2 and V3: the base schema says how the parameter is limited, a property names its spec.
void writeCurrentParameterSchema(const Parameter& parameter, JSON::Writer& target, DataModelVersion version) {
    const CurrentForm form = std::visit(CurrentFormOf{parameter}, parameter.getRange());
    addVersionedFrame(target, parameter.getTypeId(), form.bases, form.format, version);
    addConstants(target, [&] {
        addCommonParameterConstants(target, parameter, version);
        std::visit(LimitConstant{target, version}, parameter.getRange());
    });
    addTypeIdProperty(target, "data", parameter.getSpec().getTypeId());
}

/// What limits the parameter, if it is of the kind that its spec asks for.
template <class Range> const Range& requiredRange(const Parameter& parameter) {
    const auto* range = std::get_if<Range>(&parameter.getRange());
    if (range == nullptr) {
        throw NotRepresentable{"What limits the values is not of the kind that the spec asks for."};
    }
    return *range;
}

void createPlainSpecMember(JSON::Writer& target, const Parameter& parameter) {
    createTypedValueMember(target, "spec", parameter.getSpec().getTypeId());
}

/// The member of an enumeration parameter, whose own "typeid" names the spec.
void createGeneralSpecMember(JSON::Writer& target, const Parameter& parameter) {
    createMember(target, "spec", [&] {
        addTypeId(target, parameter.getSpec().getTypeId());
        target.addObject(Frame::value, [] {});
    });
}

/// A family type takes the category as an inline override.
void createReferenceSpecMember(JSON::Writer& target, const Parameter& parameter) {
    const std::string& spec = parameter.getSpec().getTypeId();
    const auto& family = Vocabulary::familyTypeSpec;
    if (!containsPrefix(spec, family.prefix)) {
        createPlainSpecMember(target, parameter);
        return;
    }
    const std::string_view base = containsPrefix(spec, family.majorPrefix) ? spec : family.typeId;
    const std::string& category = typeIdOf(requiredRange<Category>(parameter));
    const auto addCategory = [&] { target.addObject("category", [&] { addTypeId(target, category); }); };
    createMember(target, "spec", [&] {
        target.addObject(Frame::typedValue, [&] {
            addTypeId(target, base);
            target.addObject(Frame::typedValue, addCategory);
        });
    });
}

bool takesNone(const ParameterRange& /*range*/) { return false; }
template <class Range> bool takes(const ParameterRange& range) { return std::holds_alternative<Range>(range); }

/// A parameter document of V1, by the primitive type of the spec.
struct LegacyForm {
    LegacyPrimitiveType type;
    std::string_view base;
    /// The spec that needs no constant.
    std::string_view defaultSpec;
    void (*createSpecMember)(JSON::Writer& target, const Parameter& parameter);
    /// Whether the document can hold the range.
    bool (*takesRange)(const ParameterRange& range);
};

constexpr std::array<LegacyForm, 6> legacyForms = {{
    {LegacyPrimitiveType::General, Vocabulary::generalParameter.shortFrame, {}, createGeneralSpecMember, takesNone},
    {LegacyPrimitiveType::Boolean, Vocabulary::booleanParameter.typeId, Vocabulary::booleanSpec.typeId,
     createPlainSpecMember, takesNone},
    {LegacyPrimitiveType::Integer, Vocabulary::integerParameter.typeId, Vocabulary::integerSpec.typeId,
     createPlainSpecMember, takes<IntRange>},
    {LegacyPrimitiveType::Float, Vocabulary::measurableParameter.typeId, {}, createPlainSpecMember, takes<FloatRange>},
    {LegacyPrimitiveType::Reference, Vocabulary::referenceParameter.typeId, Vocabulary::referenceSpec.typeId,
     createReferenceSpecMember, takesNone},
    {LegacyPrimitiveType::String, Vocabulary::stringParameter.typeId, Vocabulary::stringSpec.typeId,
     createPlainSpecMember, takes<StringRange>},
}};

/// For V1: the base schema says the primitive type, constants name the spec and the range.
void writeLegacyParameterSchema(const Parameter& parameter, JSON::Writer& target, LegacyPrimitiveType type) {
    const auto* form = std::find_if(legacyForms.begin(), legacyForms.end(),
                                    [type](const LegacyForm& candidate) { return candidate.type == type; });
    if (form == legacyForms.end()) {
        throw NotRepresentable{"Data model 1.0.0 has no parameters on such specs."};
    }
    addShortFrame(target, parameter.getTypeId(), form->base);
    addConstants(target, [&] {
        addCommonParameterConstants(target, parameter, V::V1);
        if (!isExactly(parameter.getSpec().getTypeId(), form->defaultSpec)) {
            form->createSpecMember(target, parameter);
        }
        if (form->takesRange(parameter.getRange())) {
            std::visit(LimitConstant{target, V::V1}, parameter.getRange());
        }
    });
    if (type == LegacyPrimitiveType::General) {
        addTypeIdProperty(target, Frame::value, typeIdOf(requiredRange<Enumeration>(parameter)));
    }
}

} // namespace

void writeParameterSchema(const Parameter& parameter, JSON::Writer& target, DataModelVersion version) {
    const auto type = primitiveTypeOf(parameter.getSpec().getValueTypeId());
    if (version == V::V1 && type) {
        writeLegacyParameterSchema(parameter, target, *type);
    } else {
        writeCurrentParameterSchema(parameter, target, version);
    }
}

} // namespace Parameters
