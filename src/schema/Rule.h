#pragma once

namespace Parameters {

/// What a document can break, by the names that a diagnosis gives them.
enum class Rule {
    // Faults: the document is refused.
    InvalidJson,
    WrongType,
    WrongForm,
    EmptyValue,
    MissingMember,
    MissingConstant,
    MissingProperty,
    UnsupportedSpecification,
    RepeatedId,
    RepeatedValue,
    RepeatedTypeId,
    UnknownBase,
    RefusedByUnits,
    MissingReference,
    WrongKind,
    CircularReference,
    /// No fault of its own.
    Blocked,
    // What is taken, but can hardly be meant.
    UnknownMember,
    UnknownConstant,
    UnknownProperty,
    IgnoredConstant,
    RepeatedName,
    UnknownBaseVersion,
    MissingBoundary,
    CrossedBoundaries,
    UnknownValueType,
    InvalidPattern,
    TypeIdWithoutVersion,
    RepeatedNumber,
    OtherDimension,
    UnusedEnumeration,
};

} // namespace Parameters
