#pragma once

#include <Units/Export.h>

#include <stdexcept>
#include <string>

namespace Units {

/// Something in a schema is invalid. what() is the whole message.
class UNITS_EXPORT ValidationException : public std::logic_error {
public:
    /// @param message  what what() gives.
    explicit ValidationException(const std::string& message);
    ValidationException(const ValidationException&) noexcept = default;
    ValidationException& operator=(const ValidationException&) noexcept = default;
    ~ValidationException() override;
};

/// A query named a typeid that the engine does not know. what() is the whole message.
class UNITS_EXPORT UnrecognizedIdentifierException : public std::logic_error {
public:
    /// @param message  what what() gives.
    explicit UnrecognizedIdentifierException(const std::string& message);
    UnrecognizedIdentifierException(const UnrecognizedIdentifierException&) noexcept = default;
    UnrecognizedIdentifierException& operator=(const UnrecognizedIdentifierException&) noexcept = default;
    ~UnrecognizedIdentifierException() override;
};

} // namespace Units
