#pragma once

#include <exception>
#include <string>

namespace Parameters {

/// Words an error of the JSON layer in the exception type of whoever had the text parsed.
class ExceptionFactory {
public:
    virtual ~ExceptionFactory() = default;

    /// Returns an exception that carries the message. It does not throw; the caller rethrows what it receives.
    [[nodiscard]] virtual std::exception_ptr createException(const std::string& message) const = 0;
};

} // namespace Parameters

using Parameters::ExceptionFactory;
