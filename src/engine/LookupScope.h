#pragma once

#include "engine/Registry.h"

#include <Units/UnitsEngine.h>

#include <array>
#include <cstddef>

namespace Parameters {

/// Where an operation looks references up: the finished and the staged objects of up to three registries, searched
/// front to back, and the units.
class LookupScope {
public:
    template <class... Registries>
    explicit LookupScope(const Units::UnitsEngine& units, const Registries&... registries)
        : units_(units), registries_{&registries...} {
        static_assert(sizeof...(Registries) <= capacity);
    }

    template <class Kind> [[nodiscard]] StoreList<typename Kind::Object> stores() const noexcept {
        StoreList<typename Kind::Object> list;
        for (const Registry* registry : registries_) {
            if (registry != nullptr) {
                registry->addTo<Kind>(list);
            }
        }
        return list;
    }

    [[nodiscard]] const Units::UnitsEngine& units() const noexcept { return units_; }

private:
    static constexpr std::size_t capacity = StoreList<int>::capacity;

    const Units::UnitsEngine& units_;
    std::array<const Registry*, capacity> registries_;
};

} // namespace Parameters
