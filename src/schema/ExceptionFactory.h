#pragma once

#include <exception>
#include <string>

namespace Parameters {

class ReadingObserver;

/// Words an error of the JSON layer in the exception type of whoever had the text parsed.
class ExceptionFactory {
public:
    virtual ~ExceptionFactory() = default;

    /// Returns an exception that carries the message. It does not throw; the caller rethrows what it receives.
    [[nodiscard]] virtual std::exception_ptr createException(const std::string& message) const = 0;

    /// Who is told of faults instead, or null. No virtual function: it is asked at each look-up.
    [[nodiscard]] ReadingObserver* observer() const noexcept { return observer_; }

protected:
    explicit ExceptionFactory(ReadingObserver* observer = nullptr) noexcept : observer_(observer) {}

private:
    ReadingObserver* observer_;
};

} // namespace Parameters

using Parameters::ExceptionFactory;
