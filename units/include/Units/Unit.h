#pragma once

#include <Units/Export.h>

#include <memory>
#include <optional>
#include <string>

namespace Units {

/// A unit of measurement. A value: copying it allocates nothing, and copies may be used from several threads.
class UNITS_EXPORT Unit {
public:
    /// @param dimension  typeid of the unit's dimension, if it has one.
    Unit(const std::string& typeId, const std::string& name, const std::optional<std::string>& dimension);
    Unit(const Unit&) noexcept = default;
    Unit& operator=(const Unit&) noexcept = default;
    ~Unit();

    /// A copy of the typeid, the unit's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// The display name; the reference lives as long as this unit is neither assigned to nor destroyed.
    [[nodiscard]] const std::string& getName() const noexcept;
    /// The typeid of the dimension, if there is one; lives as long as the name.
    [[nodiscard]] const std::optional<std::string>& getDimension() const noexcept;

private:
    struct Data;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Units
