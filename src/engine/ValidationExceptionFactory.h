#pragma once

#include "schema/ExceptionFactory.h"

#include <Parameters/Exceptions.h>

namespace Parameters {

/// Words errors as ValidationException.
class ValidationExceptionFactory final : public ExceptionFactory {
public:
    [[nodiscard]] std::exception_ptr createException(const std::string& message) const override {
        return std::make_exception_ptr(ValidationException(message));
    }
};

} // namespace Parameters
