#pragma once

#include <cstdint>

namespace Units {

/// The outer form of a schema document.
enum class SchemaFormat : std::int32_t {
    /// A document without "schemaSpecification".
    PropertySets = 0,
    /// A document with "schemaSpecification": "lumar-data-schema-2.0.0".
    LumarDataSchema = 1,
};

} // namespace Units
