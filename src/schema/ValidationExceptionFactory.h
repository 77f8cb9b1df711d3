#pragma once

#include "schema/ExceptionFactory.h"

namespace Parameters {

/// Words errors as ValidationException.
class ValidationExceptionFactory final : public ExceptionFactory {
public:
    [[nodiscard]] std::exception_ptr createException(const std::string& message) const override;
};

} // namespace Parameters
