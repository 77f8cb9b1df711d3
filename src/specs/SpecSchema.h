#pragma once

#include "engine/KindList.h"
#include "engine/StoreList.h"
#include "schema/SchemaDocument.h"

#include <Parameters/Spec.h>
#include <Units/UnitsEngine.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace Parameters {

/// What a measurable spec document adds: typeids of units.
struct MeasurableSpecSchema {
    std::vector<std::string> applicableUnits;
    std::string storageUnit;
};

/// What a complex spec document adds: a value type, if it declares one.
struct ComplexSpecSchema {
    std::optional<ValueTypeId> value;
    Context context = Context::Single;
};

/// A spec document that has been read and not yet resolved. A simple spec adds nothing to its base schema but a name.
struct SpecSchema {
    std::string name;
    std::string discipline;
    std::string baseSchema;
    Units::SchemaFormat schemaFormat;
    std::variant<std::monostate, MeasurableSpecSchema, ComplexSpecSchema> shape;
};

/// No value if the document is no spec.
[[nodiscard]] std::optional<SpecSchema> readSpecSchema(const SchemaDocument& document);

[[nodiscard]] Spec resolveSpec(const std::string& typeId, SpecSchema schema, const StoreList<Taxon>& disciplineStores,
                               const std::map<std::string, Units::Unit>& allUnits);

/// Typeids that the schema waits for in this library.
[[nodiscard]] TypeIdViews dependenciesOfSpecSchema(const SpecSchema& schema);
/// Typeids that the schema waits for in the units library.
[[nodiscard]] TypeIdViews unitDependenciesOfSpecSchema(const SpecSchema& schema);

/// Adds the typeids that a finished spec depends on.
void dependenciesOfSpec(const Spec& spec, std::set<std::string>& result, const Units::UnitsEngine& unitsEngine);

} // namespace Parameters
