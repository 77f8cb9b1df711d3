#pragma once

#include "base/DependencyCollector.h"
#include "base/StoreList.h"
#include "schema/DataModels.h"
#include "schema/JSONWriter.h"
#include "schema/ReferenceTo.h"
#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"
#include "specs/UnitFinder.h"

#include <Parameters/DataModelVersion.h>
#include <Parameters/Spec.h>
#include <Units/UnitsEngine.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Parameters {

/// What a measurable spec document adds: typeids of units.
struct MeasurableSpecSchema {
    std::vector<TypeIdKey> applicableUnits;
    TypeIdKey storageUnit;
};

/// What a complex spec document adds: a value type, if it declares one.
struct ComplexSpecSchema {
    std::optional<ValueTypeId> value;
    Context context = Context::Single;
};

/// A spec document that has been read and not yet resolved. A simple spec adds nothing to its base schema but a name.
/// Its texts are views into the document until they are kept elsewhere.
struct SpecSchema {
    std::string_view name;
    TypeIdKey discipline;
    std::string_view baseSchema;
    Units::SchemaFormat schemaFormat;
    std::variant<std::monostate, MeasurableSpecSchema, ComplexSpecSchema> shape;
};

/// No value if the document is no spec.
[[nodiscard]] std::optional<SpecSchema> readSpecSchema(const SchemaDocument& document);

/// Why resolveSpec() will refuse the schema, whatever is registered; null if it will not.
[[nodiscard]] const char* faultOfValueType(const SpecSchema& schema);

[[nodiscard]] Spec resolveSpec(std::string_view typeId, SpecSchema schema, const StoreList<Taxon>& disciplineStores,
                               UnitFinder& units);

/// Whether specs may name the discipline without its being registered.
[[nodiscard]] inline bool isDefaultDiscipline(std::string_view typeId) noexcept {
    return containsPrefix(typeId, Vocabulary::discipline.prefix);
}

/// Calls visit with each typeid that the schema waits for in this library, and what it is to refer to.
template <class Visit> void dependenciesOfSpecSchema(SpecSchema& schema, const Visit& visit) {
    visit(ReferenceTo{KindNames::discipline, isDefaultDiscipline}, schema.discipline);
}

/// Calls visit with each typeid that the schema waits for in the units library.
template <class Visit> void unitDependenciesOfSpecSchema(SpecSchema& schema, const Visit& visit) {
    if (auto* body = std::get_if<MeasurableSpecSchema>(&schema.shape)) {
        for (TypeIdKey& unit : body->applicableUnits) {
            visit(unit);
        }
        visit(body->storageUnit);
    }
}

/// Calls visit with each text of the schema that is a view, which visit may replace by an equal one.
template <class Visit> void visitTexts(SpecSchema& schema, const Visit& visit) {
    visit(schema.name);
    visit(schema.baseSchema);
    const auto visitTypeId = [&](TypeIdKey& typeId) { visit(typeId.typeId); };
    dependenciesOfSpecSchema(schema, [&](ReferenceTo /*target*/, TypeIdKey& typeId) { visitTypeId(typeId); });
    unitDependenciesOfSpecSchema(schema, visitTypeId);
}

/// Adds the typeids that a finished spec depends on.
void dependenciesOfSpec(const Spec& spec, DependencyCollector& result, const Units::UnitsEngine& unitsEngine);

/// The versions of a spec as a parameter on it sees them.
[[nodiscard]] Conversion conversionOfSpec(const Spec& spec);

/// The versions of the spec itself: those of the built-in primitive types have no document in V1.
[[nodiscard]] Conversion conversionOfSpecItself(const Spec& spec);

void writeSpecSchema(const Spec& spec, JSON::Writer& target, DataModelVersion version);

} // namespace Parameters
