#include <Parameters/Exceptions.h>

namespace Parameters {

ValidationException::ValidationException(const std::string& message) : std::logic_error(message) {}

// Defined here and not in the header, so that all libraries of a process share one type to catch.
ValidationException::~ValidationException() = default;

UnrecognizedIdentifierException::UnrecognizedIdentifierException(const std::string& message)
    : std::logic_error(message) {}

UnrecognizedIdentifierException::~UnrecognizedIdentifierException() = default;

} // namespace Parameters
