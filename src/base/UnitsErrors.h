#pragma once

#include "base/Text.h"

#include <Parameters/Exceptions.h>
#include <Units/Exceptions.h>

#include <string_view>

namespace Parameters {

// Faults that the units library finds reach a host in this library's exceptions.

/// The answer to a typeid that neither this library nor the units library knows.
[[noreturn]] inline void throwUnknownTypeId(std::string_view typeId) {
    throw UnrecognizedIdentifierException(concat({"Could not find any object with typeid ", typeId, "."}));
}

/// Asks the units library about a typeid that it may not know.
template <class Ask> auto askUnits(std::string_view typeId, Ask ask) {
    try {
        return ask();
    } catch (const Units::UnrecognizedIdentifierException&) {
        throwUnknownTypeId(typeId);
    }
}

/// Makes a call in which the units library may find a schema invalid.
template <class Call> auto withUnitsValidation(Call call) {
    try {
        return call();
    } catch (const Units::ValidationException& exception) {
        throw ValidationException(exception.what());
    }
}

} // namespace Parameters
