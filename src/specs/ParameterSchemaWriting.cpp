#include "specs/ParameterSchemaWriting.h"

#include "schema/Conversion.h"
#include "schema/Frame.h"
#include "schema/Prefetch.h"
#include "schema/VersionedFrame.h"
#include "specs/ParameterData.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/SpecData.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/EnumerationData.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeSchema.h"
#include "taxonomy/StringRangeData.h"
#include "taxonomy/StringRangeSchema.h"
#include "taxonomy/TaxonData.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <type_traits>
#include <variant>

namespace Parameters {

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
    if (!containsPrefix(group, Vocabulary::group.prefix)) {
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
        raiseNotRepresentable();
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
        raiseNotRepresentable();
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

/// Calls visit with each object that the parameter refers to.
template <class Visit> void visitReferences(const Parameter& parameter, const Visit& visit) {
    visit(parameter.getSpec());
    visit(parameter.getGroup());
    std::visit(
        [&](const auto& range) {
            if constexpr (!std::is_same_v<decltype(range), const std::monostate&>) {
                visit(range);
            }
        },
        parameter.getRange());
}

} // namespace

void prefetchForWriting(const Parameter& parameter) {
    visitReferences(parameter, [](const auto& object) {
        const auto& data = Internals::dataOf(object);
        prefetch(&data, sizeof(data));
    });
    const auto& data = Internals::dataOf(parameter);
    prefetch(data.typeId);
    prefetch(data.name);
    prefetch(data.description);
}

void writeParameterSchema(const Parameter& parameter, JSON::Writer& target, DataModelVersion version) {
    visitReferences(parameter, [](const auto& object) { prefetch(typeIdOf(object)); });
    const auto type = primitiveTypeOf(parameter.getSpec().getValueTypeId());
    if (version == V::V1 && type) {
        writeLegacyParameterSchema(parameter, target, *type);
    } else {
        writeCurrentParameterSchema(parameter, target, version);
    }
}

} // namespace Parameters
