// Exceptions between a host and the libraries: each has to be one type on both sides.

#include <Parameters/ParametersEngine.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

namespace {

/// Thrown by the host below the libraries, where they ask for memory.
class HostOutOfMemory : public std::bad_alloc {};

bool isMemoryExhausted = false;

/// Whether the call throws just this class, and a base of it is caught as well.
template <typename Exception, typename Base, typename Call> bool throwsAcross(const std::string& name, Call call) {
    try {
        try {
            call();
        } catch (const Exception&) {
            isMemoryExhausted = false;
            throw;
        }
    } catch (const Base& error) {
        if (typeid(error) == typeid(Exception)) {
            return true;
        }
        std::cout << name << " is another type in the host: " << typeid(error).name() << '\n';
        return false;
    } catch (...) {
    }
    isMemoryExhausted = false;
    std::cout << name << " is not caught as what it is.\n";
    return false;
}

} // namespace

void* operator new(std::size_t size) {
    void* memory = isMemoryExhausted ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw HostOutOfMemory();
    }
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

int main() {
    Parameters::ParametersEngine engine;
    Units::UnitsEngine units;
    const std::string typeId = "acme.units:unit.unheardOf-1.0.0";

    bool holds = throwsAcross<Parameters::ValidationException, std::logic_error>("Parameters::ValidationException",
                                                                                 [&] { engine.registerSchema("{"); });
    holds &= throwsAcross<Parameters::UnrecognizedIdentifierException, std::exception>(
        "Parameters::UnrecognizedIdentifierException", [&] { static_cast<void>(engine.getSpec(typeId)); });
    holds &= throwsAcross<Units::ValidationException, std::logic_error>("Units::ValidationException",
                                                                        [&] { units.registerSchema("{"); });
    holds &= throwsAcross<Units::UnrecognizedIdentifierException, std::exception>(
        "Units::UnrecognizedIdentifierException", [&] { static_cast<void>(units.getUnit(typeId)); });
    holds &= throwsAcross<HostOutOfMemory, std::bad_alloc>("std::bad_alloc", [&] {
        isMemoryExhausted = true;
        engine.registerSchema("{}");
    });
    return holds ? EXIT_SUCCESS : EXIT_FAILURE;
}
