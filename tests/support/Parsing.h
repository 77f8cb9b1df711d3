#pragma once

#include "schema/JSON.h"
#include "schema/SchemaDocument.h"
#include "schema/ValidationExceptionFactory.h"

#include <memory>
#include <string>

namespace Parameters {

// Both raise their errors as ValidationException.

inline JSON parsed(const std::string& text) {
    return JSON::parse(std::make_shared<ValidationExceptionFactory>(), text);
}

inline SchemaDocument documentFrom(const std::string& text) {
    return readSchemaDocument(std::make_shared<ValidationExceptionFactory>(), text);
}

} // namespace Parameters
