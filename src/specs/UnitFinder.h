#pragma once

#include "base/TypeIdMap.h"

#include <Units/UnitsEngine.h>

#include <string>

namespace Parameters {

/// Finds units by typeid, as long as the units engine does not change, and remembers what it has found: specs have many
/// units in common, and a search in a large map takes a while.
class UnitFinder {
public:
    explicit UnitFinder(const Units::UnitsEngine& engine) noexcept : engine_(engine) {}

    /// The unit, which holds until the next call, or null.
    [[nodiscard]] const Units::Unit* find(const TypeIdKey& key) {
        if (const Units::Unit* unit = found_.find(key)) {
            return unit;
        }
        const auto& units = engine_.getAllUnits();
        const auto unit = units.find(std::string(key.typeId));
        if (unit == units.end()) {
            return nullptr;
        }
        found_.insert(key, unit->second);
        return &unit->second;
    }

    /// What has been found so far.
    [[nodiscard]] const TypeIdMap<Units::Unit>& found() const noexcept { return found_; }

private:
    const Units::UnitsEngine& engine_;
    TypeIdMap<Units::Unit> found_;
};

} // namespace Parameters
