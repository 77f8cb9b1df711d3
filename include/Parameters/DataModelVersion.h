#pragma once

#include <cstdint>

namespace Parameters {

/// Generation of the data model that a schema text conforms to.
///
/// A document does not name its version. Documents with "schemaSpecification" belong to V3, those without it to V2 or
/// V1.
enum class DataModelVersion : std::int32_t {
    /// "1.0.0"
    V1 = 0,
    /// "2.0.0"
    V2 = 1,
    /// "3.0.0"
    V3 = 2,
};

} // namespace Parameters
