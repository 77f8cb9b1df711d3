#pragma once

#include "base/DependencyCollector.h"
#include "schema/DataModels.h"
#include "schema/JSONWriter.h"
#include "schema/SchemaDocument.h"
#include "specs/ParameterData.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/RangeConstant.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Parameter.h>
#include <Units/UnitsEngine.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace Parameters {

/// The typeid of a category that limits a parameter.
struct CategoryReference {
    TypeIdKey typeId;

    [[nodiscard]] ReferenceTo target() const noexcept { return {KindNames::category, isNeverBuiltIn}; }
};

/// The typeid of an enumeration that limits a parameter.
struct EnumerationReference {
    TypeIdKey typeId;

    [[nodiscard]] ReferenceTo target() const noexcept { return {KindNames::enumeration, isNeverBuiltIn}; }
};

/// A parameter document of any form that has been read and not yet resolved. Its texts are views into the document
/// until they are kept elsewhere.
struct ParameterSchema {
    std::string_view name;
    std::string_view description;
    std::string_view sampleText;
    TypeIdKey group;
    /// Wherever the form names it.
    TypeIdKey spec;
    std::variant<std::monostate, CategoryReference, EnumerationReference, RangeConstant<FloatRange>,
                 RangeConstant<IntRange>, RangeConstant<StringRange>>
        range;
    /// The type of a form that stands for one; the others have that of their spec.
    std::optional<LegacyPrimitiveType> primitiveType;
    bool readOnly = false;
};

/// No value if the document is no parameter.
[[nodiscard]] std::optional<ParameterSchema> readParameterSchema(const SchemaDocument& document);

[[nodiscard]] Parameter resolveParameter(std::string_view typeId, const ParameterSchema& schema,
                                         const ParameterStores& stores);

/// The spec that a parameter document names: a legacy base spec by its typeid alone, any other as it is registered.
[[nodiscard]] Spec resolveSpecOfParameter(std::string_view typeId, const ParameterSchema& schema,
                                          const StoreList<Spec>& specStores);

/// Whether parameters may name the group without its being registered.
[[nodiscard]] inline bool isDefaultGroup(std::string_view typeId) noexcept {
    return containsPrefix(typeId, Vocabulary::group.prefix);
}

/// Whether parameters may name the spec without its being registered.
[[nodiscard]] inline bool isLegacyBaseSpec(std::string_view typeId) { return findLegacyBaseSpec(typeId) != nullptr; }

/// Calls visit with each typeid that the schema waits for, and what it is to refer to.
template <class Visit> void dependenciesOfParameterSchema(ParameterSchema& schema, const Visit& visit) {
    visit(ReferenceTo{KindNames::group, isDefaultGroup}, schema.group);
    visit(ReferenceTo{KindNames::spec, isLegacyBaseSpec}, schema.spec);
    std::visit(
        [&](auto& range) {
            if constexpr (!std::is_same_v<decltype(range), std::monostate&>) {
                if (!range.typeId.typeId.empty()) {
                    visit(range.target(), range.typeId);
                }
            }
        },
        schema.range);
}

/// Calls visit with each text of the schema, which visit may replace by an equal one.
template <class Visit> void visitTexts(ParameterSchema& schema, const Visit& visit) {
    visit(schema.name);
    visit(schema.description);
    visit(schema.sampleText);
    dependenciesOfParameterSchema(schema, [&](ReferenceTo /*target*/, TypeIdKey& typeId) { visit(typeId.typeId); });
}

/// Adds the typeids that a finished parameter depends on, those of its spec and its category included.
void dependenciesOfParameter(const Parameter& parameter, DependencyCollector& result,
                             const Units::UnitsEngine& unitsEngine, const StoreList<Category>& categoryStores);

void writeParameterSchema(const Parameter& parameter, JSON::Writer& target, DataModelVersion version);

} // namespace Parameters
