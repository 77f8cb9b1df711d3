#include "schema/ValidationExceptionFactory.h"

#include <Parameters/Exceptions.h>

namespace Parameters {

std::exception_ptr ValidationExceptionFactory::createException(const std::string& message) const {
    return std::make_exception_ptr(ValidationException(message));
}

} // namespace Parameters
