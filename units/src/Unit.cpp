#include <Units/Unit.h>

namespace Units {

struct Unit::Data {
    std::string typeId;
    std::string name;
    std::optional<std::string> dimension;
};

Unit::Unit(const std::string& typeId, const std::string& name, const std::optional<std::string>& dimension)
    : data_(std::make_shared<const Data>(Data{typeId, name, dimension})) {}

Unit::~Unit() = default;

std::string Unit::getTypeId() const { return data_->typeId; }

const std::string& Unit::getName() const noexcept { return data_->name; }

const std::optional<std::string>& Unit::getDimension() const noexcept { return data_->dimension; }

} // namespace Units
