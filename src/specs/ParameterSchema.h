#pragma once

#include "engine/KindList.h"
#include "schema/SchemaDocument.h"
#include "specs/ParameterStores.h"
#include "specs/RangeConstant.h"

#include <Parameters/Parameter.h>
#include <Units/UnitsEngine.h>

#include <optional>
#include <set>
#include <string>
#include <variant>

namespace Parameters {

/// The typeid of a category that limits a parameter.
struct CategoryReference {
    std::string typeId;
};

/// The typeid of an enumeration that limits a parameter.
struct EnumerationReference {
    std::string typeId;
};

/// A parameter document of any form that has been read and not yet resolved.
struct ParameterSchema {
    std::string name;
    std::string description;
    std::string sampleText;
    std::string group;
    /// Wherever the form names it.
    std::string spec;
    std::variant<std::monostate, CategoryReference, EnumerationReference, RangeConstant<FloatRange>,
                 RangeConstant<IntRange>, RangeConstant<StringRange>>
        range;
    /// The type of a form that stands for one; the others have that of their spec.
    std::optional<LegacyPrimitiveType> primitiveType;
    bool readOnly = false;
};

/// No value if the document is no parameter.
[[nodiscard]] std::optional<ParameterSchema> readParameterSchema(const SchemaDocument& document);

[[nodiscard]] Parameter resolveParameter(const std::string& typeId, ParameterSchema schema,
                                         const ParameterStores& stores);

/// The spec that a parameter document names: a legacy base spec by its typeid alone, any other as it is registered.
[[nodiscard]] Spec resolveSpecOfParameter(const std::string& typeId, const ParameterSchema& schema,
                                          const StoreList<Spec>& specStores);

/// Typeids that the schema waits for.
[[nodiscard]] TypeIdViews dependenciesOfParameterSchema(const ParameterSchema& schema);

/// Adds the typeids that a finished parameter depends on, those of its spec and its category included.
void dependenciesOfParameter(const Parameter& parameter, std::set<std::string>& result,
                             const Units::UnitsEngine& unitsEngine, const StoreList<Category>& categoryStores);

} // namespace Parameters
