#include "taxonomy/CategoryData.h"
#include "taxonomy/TaxonData.h"

#include <utility>

namespace Parameters {

SubCategoryComponent::SubCategoryComponent(const std::string& parentCategory) : parentCategory_(parentCategory) {}

SubCategoryComponent::~SubCategoryComponent() = default;

std::string SubCategoryComponent::getParentCategory() const { return parentCategory_; }

MajorCategoryComponent::MajorCategoryComponent(const Taxon& domain, const std::vector<Taxon>& disciplines)
    : domain_(domain), disciplines_(disciplines) {}

MajorCategoryComponent::~MajorCategoryComponent() = default;

Taxon MajorCategoryComponent::getDomain() const { return domain_; }

std::vector<Taxon> MajorCategoryComponent::getDisciplines() const { return disciplines_; }

Category::Category(const std::string& typeId, const std::string& name, const MajorCategoryComponent& component,
                   Units::SchemaFormat schemaFormat)
    : Category(std::make_shared<const Data>(Data{typeId, name, component, schemaFormat})) {}

Category::Category(const std::string& typeId, const std::string& name, const SubCategoryComponent& component,
                   Units::SchemaFormat schemaFormat)
    : Category(std::make_shared<const Data>(Data{typeId, name, component, schemaFormat})) {}

Category::Category(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

Category::~Category() = default;

std::string Category::getTypeId() const { return data_->typeId; }

std::string Category::getName() const { return data_->name; }

Units::SchemaFormat Category::getSchemaFormat() const noexcept { return data_->schemaFormat; }

std::optional<MajorCategoryComponent> Category::getMajorCategoryComponent() const {
    const auto* component = std::get_if<MajorCategoryComponent>(&data_->component);
    return component != nullptr ? std::optional(*component) : std::nullopt;
}

std::optional<SubCategoryComponent> Category::getSubCategoryComponent() const {
    const auto* component = std::get_if<SubCategoryComponent>(&data_->component);
    return component != nullptr ? std::optional(*component) : std::nullopt;
}

bool Category::operator==(const Category& other) const noexcept { return data_->typeId == other.data_->typeId; }

bool Category::operator<(const Category& other) const noexcept { return data_->typeId < other.data_->typeId; }

const std::string* parentOf(const Category& category) noexcept {
    const auto* component = std::get_if<SubCategoryComponent>(&Internals::dataOf(category).component);
    return component != nullptr ? &CategoryInternals::parentOf(*component) : nullptr;
}

std::string parentNotMajorMessage(std::string_view parentTypeId, std::string_view typeId) {
    return concat({"Parent ", parentTypeId, " of subcategory ", typeId, " is not a major category."});
}

void throwParentNotMajor(const std::string& parentTypeId, const std::string& typeId) {
    throw ValidationException(parentNotMajorMessage(parentTypeId, typeId));
}

namespace {

/// What a category refers to, as it is registered. Unlike those of other kinds, the message has no full stop.
template <class Object>
const Object& registered(const StoreList<Object>& stores, std::string_view kind, const std::string& typeId) {
    const Object* object = stores.find(typeId);
    if (object == nullptr) {
        throw ValidationException(concat({"Could not find ", kind, " with typeid ", typeId}));
    }
    return *object;
}

MajorCategoryComponent registeredComponent(const MajorCategoryComponent& component,
                                           const StoreList<Taxon>& disciplineStores,
                                           const StoreList<Taxon>& domainStores) {
    const Taxon& domain = registered(domainStores, "domain", typeIdOf(CategoryInternals::domainOf(component)));
    std::vector<Taxon> disciplines;
    for (const Taxon& discipline : CategoryInternals::disciplinesOf(component)) {
        disciplines.push_back(registered(disciplineStores, "discipline", typeIdOf(discipline)));
    }
    return {domain, disciplines};
}

} // namespace

Category validatedCategory(const Category& category, const StoreList<Taxon>& disciplineStores,
                           const StoreList<Taxon>& domainStores, const StoreList<Category>& categoryStores) {
    const auto& data = Internals::dataOf(category);
    if (data.name.empty()) {
        throw ValidationException("Name must not be empty.");
    }
    if (const auto* major = std::get_if<MajorCategoryComponent>(&data.component)) {
        MajorCategoryComponent component = registeredComponent(*major, disciplineStores, domainStores);
        return Internals::changed(category, [&](auto& changed) { changed.component = std::move(component); });
    }
    const std::string& parent = *parentOf(category);
    if (!isMajor(registered(categoryStores, "category", parent))) {
        throwParentNotMajor(parent, data.typeId);
    }
    return category;
}

} // namespace Parameters
