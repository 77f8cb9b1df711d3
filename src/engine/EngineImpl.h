#pragma once

#include "engine/LookupScope.h"
#include "engine/Registry.h"

#include <Parameters/ParametersEngine.h>
#include <Units/UnitsEngine.h>

#include <string>
#include <string_view>

namespace Parameters {

/// Everything that an engine knows.
struct EngineImpl {
    /// What the engine has accepted for itself. Getters read this and nothing else of this library.
    Registry primary;
    /// Finished objects copied from other engines, until the next resolution takes them over.
    Registry imported;
    Units::UnitsEngine units;
    /// Objects of contexts all of whose references are known here until the next resolution: to walk them again, for
    /// each of the many that may refer to one, would take an import quadratic time.
    ObjectSet listed;

    [[nodiscard]] bool isRegistered(const std::string& typeId) const { return isRegistered(typeId, typeId); }
    [[nodiscard]] bool isRegistered(const std::string& typeId, const TypeIdKey& key) const {
        return isKnownHere(key) || units.isRegistered(typeId);
    }

    /// Whether it is registered, or built in, without the units library.
    [[nodiscard]] bool isKnownHere(const TypeIdKey& key) const noexcept {
        return primary.contains(key) || imported.contains(key) || isBuiltInTypeId(key.typeId);
    }

    /// The check of everything that is about to be taken in. Imported objects may be registered over.
    void requireUnregistered(const std::string& typeId) const { requireUnregistered(typeId, typeId); }
    void requireUnregistered(const std::string& typeId, const TypeIdKey& key) const {
        primary.requireAbsent(key);
        if (isBuiltInTypeId(typeId) || units.isRegistered(typeId)) {
            Registry::throwAlreadyRegistered(typeId);
        }
    }

    /// What an object that a caller built is as this engine would store it, checked against finished objects alone.
    template <class Kind> [[nodiscard]] typename Kind::Object validatedNew(const typename Kind::Object& object) const {
        requireUnregistered(typeIdOf(object));
        return Kind::validated(object, LookupScope(units, primary));
    }
};

} // namespace Parameters
