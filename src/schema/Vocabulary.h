#pragma once

#include <Units/SchemaFormat.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Parameters {

// A typeid is opaque. These are the three questions that are asked of one; a call says by its name which it asks.

/// Whether the typeid is the constant, byte for byte.
[[nodiscard]] constexpr bool isExactly(std::string_view typeId, std::string_view constant) noexcept {
    return typeId == constant;
}

/// Whether the typeid begins with the prefix of a family.
[[nodiscard]] constexpr bool beginsWithPrefix(std::string_view typeId, std::string_view prefix) noexcept {
    // Of families that begin alike few end at the same place.
    return typeId.size() >= prefix.size() && typeId[prefix.size() - 1] == prefix.back() &&
           typeId.substr(0, prefix.size()) == prefix;
}

/// Whether the prefix of a family occurs anywhere in the typeid, with any version behind it.
[[nodiscard]] constexpr bool containsPrefix(std::string_view typeId, std::string_view prefix) noexcept {
    // Nearly all that contain it begin with it.
    return beginsWithPrefix(typeId, prefix) || typeId.find(prefix, 1) != std::string_view::npos;
}

/// A family of base schemas that is written in both frames.
struct BaseSchemas {
    /// Recognises the family, whatever the version; ends in the hyphen.
    std::string_view prefix;
    std::string_view shortFrame;
    std::string_view fullFrame;
};

/// The base schema that goes with a format.
[[nodiscard]] constexpr std::string_view baseFor(const BaseSchemas& bases, Units::SchemaFormat format) noexcept {
    return format == Units::SchemaFormat::LumarDataSchema ? bases.fullFrame : bases.shortFrame;
}

/// A family of base schemas of ranges, which also stand for inline ranges.
struct RangeBaseSchemas : BaseSchemas {
    std::string_view majorPrefix;
};

/// A family of base schemas of which one version is known.
struct BaseSchema {
    std::string_view prefix;
    std::string_view majorPrefix;
    std::string_view typeId;
};

/// A family of base schemas that is written for the oldest data model alone.
struct LegacyBaseSchema {
    std::string_view prefix;
    std::string_view typeId;
};

/// The fixed typeids and names of the library.
namespace Vocabulary {

inline constexpr BaseSchemas discipline{"quovanta.spec:discipline-", "quovanta.spec:discipline-1.0.0",
                                        "quovanta.spec:discipline-2.0.0"};
inline constexpr BaseSchemas domain{"quovanta.talmo.category:domain-", "quovanta.talmo.category:domain-1.0.0",
                                    "quovanta.talmo.category:domain-2.0.0"};
inline constexpr BaseSchemas majorCategory{"quovanta.talmo.category:majorCategory-",
                                           "quovanta.talmo.category:majorCategory-1.0.0",
                                           "quovanta.talmo.category:majorCategory-2.0.0"};
inline constexpr BaseSchemas subCategory{"quovanta.talmo.category:subCategory-",
                                         "quovanta.talmo.category:subCategory-1.0.0",
                                         "quovanta.talmo.category:subCategory-2.0.0"};
inline constexpr BaseSchemas group{"quovanta.parameter:group-", "quovanta.parameter:group-1.0.0",
                                   "quovanta.parameter:group-2.0.0"};

inline constexpr RangeBaseSchemas floatRange{{"quovanta.range:range.float64.bounded.static-",
                                              "quovanta.range:range.float64.bounded.static-1.0.0",
                                              "quovanta.range:range.float64.bounded.static-2.0.0"},
                                             "quovanta.range:range.float64.bounded.static-1."};
inline constexpr RangeBaseSchemas intRange{{"quovanta.range:range.int64.bounded.static-",
                                            "quovanta.range:range.int64.bounded.static-1.0.0",
                                            "quovanta.range:range.int64.bounded.static-2.0.0"},
                                           "quovanta.range:range.int64.bounded.static-1."};
inline constexpr RangeBaseSchemas setStringRange{{"quovanta.range:range.string.set.static-",
                                                  "quovanta.range:range.string.set.static-1.0.0",
                                                  "quovanta.range:range.string.set.static-2.0.0"},
                                                 "quovanta.range:range.string.set.static-1."};
inline constexpr RangeBaseSchemas regexStringRange{{"quovanta.range:range.string.regex-",
                                                    "quovanta.range:range.string.regex-1.0.0",
                                                    "quovanta.range:range.string.regex-2.0.0"},
                                                   "quovanta.range:range.string.regex-1."};
/// The range that limits nothing.
inline constexpr BaseSchemas defaultStringRange{"quovanta.range:range.string-", "quovanta.range:range.string-1.0.0",
                                                "quovanta.range:range.string-2.0.0"};

/// The base of enumeration documents in the short frame: a whole word, without a version.
inline constexpr std::string_view enumeration = "Enum";

inline constexpr BaseSchemas generalSpec{"quovanta.spec:spec-", "quovanta.spec:spec-1.0.0", "quovanta.spec:spec-2.0.0"};
inline constexpr BaseSchemas measurableSpec{"quovanta.spec:spec.measurable-", "quovanta.spec:spec.measurable-2.1.0",
                                            "quovanta.spec:spec.measurable-3.0.0"};
/// The measurable spec of the oldest data model.
inline constexpr std::string_view legacyMeasurableSpec = "quovanta.spec:spec.measurable-2.0.0";
/// A value type that refers to an element.
inline constexpr std::string_view referenceDataPrefix = "quovanta.data:reference-";

inline constexpr BaseSchema booleanSpec{"quovanta.spec:spec.bool-", "quovanta.spec:spec.bool-1.",
                                        "quovanta.spec:spec.bool-1.0.0"};
inline constexpr BaseSchema integerSpec{"quovanta.spec:spec.int64-", "quovanta.spec:spec.int64-2.",
                                        "quovanta.spec:spec.int64-2.0.0"};
inline constexpr BaseSchema referenceSpec{"quovanta.spec:spec.reference-", "quovanta.spec:spec.reference-1.",
                                          "quovanta.spec:spec.reference-1.0.0"};
inline constexpr BaseSchema stringSpec{"quovanta.spec:spec.string-", "quovanta.spec:spec.string-2.",
                                       "quovanta.spec:spec.string-2.0.0"};
inline constexpr BaseSchema familyTypeSpec{"quovanta.talmo.spec:familyType-", "quovanta.talmo.spec:familyType-1.",
                                           "quovanta.talmo.spec:familyType-1.0.0"};

inline constexpr BaseSchemas generalParameter{"quovanta.parameter:parameter-", "quovanta.parameter:parameter-2.0.0",
                                              "quovanta.parameter:parameter-3.0.0"};
inline constexpr BaseSchemas categorizedParameter{"quovanta.talmo:parameter.categorized-",
                                                  "quovanta.talmo:parameter.categorized-1.0.0",
                                                  "quovanta.talmo:parameter.categorized-2.0.0"};
inline constexpr BaseSchemas rangedFloatParameter{"quovanta.parameter:parameter.ranged.float64-",
                                                  "quovanta.parameter:parameter.ranged.float64-1.0.0",
                                                  "quovanta.parameter:parameter.ranged.float64-2.0.0"};
inline constexpr BaseSchemas rangedIntParameter{"quovanta.parameter:parameter.ranged.int64-",
                                                "quovanta.parameter:parameter.ranged.int64-1.0.0",
                                                "quovanta.parameter:parameter.ranged.int64-2.0.0"};
inline constexpr BaseSchemas rangedStringParameter{"quovanta.parameter:parameter.ranged.string-",
                                                   "quovanta.parameter:parameter.ranged.string-1.0.0",
                                                   "quovanta.parameter:parameter.ranged.string-2.0.0"};

// Parameters of the oldest data model, one form for each primitive type.

inline constexpr LegacyBaseSchema booleanParameter{"quovanta.parameter:parameter.bool-",
                                                   "quovanta.parameter:parameter.bool-2.0.0"};
inline constexpr LegacyBaseSchema integerParameter{"quovanta.parameter:parameter.int64-",
                                                   "quovanta.parameter:parameter.int64-3.0.0"};
inline constexpr LegacyBaseSchema measurableParameter{"quovanta.parameter:parameter.measurable-",
                                                      "quovanta.parameter:parameter.measurable-3.0.0"};
inline constexpr LegacyBaseSchema referenceParameter{"quovanta.parameter:parameter.reference-",
                                                     "quovanta.parameter:parameter.reference-2.0.0"};
inline constexpr LegacyBaseSchema stringParameter{"quovanta.parameter:parameter.string-",
                                                  "quovanta.parameter:parameter.string-3.0.0"};

inline constexpr std::string_view defaultDisciplineName = "Common";
inline constexpr std::string_view defaultGroupName = "Other";

/// Base schemas that the library knows by itself: they are never registered.
inline constexpr std::array<std::string_view, 19> builtInTypeIds = {
    intRange.shortFrame,
    intRange.fullFrame,
    floatRange.shortFrame,
    floatRange.fullFrame,
    defaultStringRange.shortFrame,
    defaultStringRange.fullFrame,
    setStringRange.shortFrame,
    setStringRange.fullFrame,
    regexStringRange.shortFrame,
    regexStringRange.fullFrame,
    familyTypeSpec.typeId,
    booleanSpec.typeId,
    integerSpec.typeId,
    referenceSpec.typeId,
    stringSpec.typeId,
    discipline.shortFrame,
    discipline.fullFrame,
    group.shortFrame,
    group.fullFrame,
};

/// All bases that documents can have, but for those of the units library.
inline constexpr std::array documentBases = {
    discipline.shortFrame,
    discipline.fullFrame,
    domain.shortFrame,
    domain.fullFrame,
    majorCategory.shortFrame,
    majorCategory.fullFrame,
    subCategory.shortFrame,
    subCategory.fullFrame,
    group.shortFrame,
    group.fullFrame,
    floatRange.shortFrame,
    floatRange.fullFrame,
    intRange.shortFrame,
    intRange.fullFrame,
    setStringRange.shortFrame,
    setStringRange.fullFrame,
    regexStringRange.shortFrame,
    regexStringRange.fullFrame,
    enumeration,
    generalSpec.shortFrame,
    generalSpec.fullFrame,
    legacyMeasurableSpec,
    measurableSpec.shortFrame,
    measurableSpec.fullFrame,
    booleanSpec.typeId,
    integerSpec.typeId,
    referenceSpec.typeId,
    stringSpec.typeId,
    generalParameter.shortFrame,
    generalParameter.fullFrame,
    categorizedParameter.shortFrame,
    categorizedParameter.fullFrame,
    rangedFloatParameter.shortFrame,
    rangedFloatParameter.fullFrame,
    rangedIntParameter.shortFrame,
    rangedIntParameter.fullFrame,
    rangedStringParameter.shortFrame,
    rangedStringParameter.fullFrame,
    booleanParameter.typeId,
    integerParameter.typeId,
    measurableParameter.typeId,
    referenceParameter.typeId,
    stringParameter.typeId,
};

/// How the prefixes of all families, and the built-in typeids, begin. Few others do.
inline constexpr std::string_view beginning = "quovanta.";

} // namespace Vocabulary

/// Whether the typeid is one of those that stand for themselves and are never registered.
[[nodiscard]] inline bool isBuiltInTypeId(std::string_view typeId) noexcept {
    const auto& builtIn = Vocabulary::builtInTypeIds;
    return beginsWithPrefix(typeId, Vocabulary::beginning) &&
           std::find(builtIn.begin(), builtIn.end(), typeId) != builtIn.end();
}

} // namespace Parameters

/// The words for the kinds in messages.
namespace Parameters::KindNames {

inline constexpr std::string_view enumeration = "enumeration";
inline constexpr std::string_view floatRange = "floating-point range";
inline constexpr std::string_view intRange = "integer range";
inline constexpr std::string_view stringRange = "string range";
inline constexpr std::string_view discipline = "discipline";
inline constexpr std::string_view spec = "spec";
inline constexpr std::string_view group = "group";
inline constexpr std::string_view parameter = "parameter";
inline constexpr std::string_view domain = "domain";
inline constexpr std::string_view category = "category";
/// Of the units library.
inline constexpr std::string_view unit = "unit";

} // namespace Parameters::KindNames

/// Names of the primitive types, as value types of specs and on the members of documents.
namespace Parameters::PrimitiveTypeNames {

inline constexpr std::string_view boolean = "Bool";
inline constexpr std::string_view integer = "Int64";
inline constexpr std::string_view floatingPoint = "Float64";
inline constexpr std::string_view reference = "Reference";
inline constexpr std::string_view string = "String";

} // namespace Parameters::PrimitiveTypeNames
