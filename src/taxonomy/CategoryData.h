#pragma once

#include "base/Internals.h"
#include "base/StoreList.h"

#include <Parameters/Category.h>

#include <string>
#include <variant>
#include <vector>

namespace Parameters {

struct Category::Data {
    std::string typeId;
    std::string name;
    std::variant<MajorCategoryComponent, SubCategoryComponent> component;
    Units::SchemaFormat schemaFormat;
};

/// The way to the fields of components, of which the getters return copies.
struct CategoryInternals {
    [[nodiscard]] static const std::string& parentOf(const SubCategoryComponent& component) noexcept {
        return component.parentCategory_;
    }
    [[nodiscard]] static const Taxon& domainOf(const MajorCategoryComponent& component) noexcept {
        return component.domain_;
    }
    [[nodiscard]] static const std::vector<Taxon>& disciplinesOf(const MajorCategoryComponent& component) noexcept {
        return component.disciplines_;
    }
};

/// Whether a category has what a subcategory's parent needs.
[[nodiscard]] inline bool isMajor(const Category& category) noexcept {
    return std::holds_alternative<MajorCategoryComponent>(Internals::dataOf(category).component);
}

/// The typeid of a subcategory's parent, or null in a major category.
[[nodiscard]] const std::string* parentOf(const Category& category) noexcept;

/// Of a subcategory whose parent is missing or a subcategory itself.
[[nodiscard]] std::string parentNotMajorMessage(std::string_view parentTypeId, std::string_view typeId);
[[noreturn]] void throwParentNotMajor(const std::string& parentTypeId, const std::string& typeId);

/// A category that a caller built, rebuilt from the taxa that the engine knows; refuses one without a name, with
/// unknown taxa, or with a parent that is unknown or not major.
[[nodiscard]] Category validatedCategory(const Category& category, const StoreList<Taxon>& disciplineStores,
                                         const StoreList<Taxon>& domainStores,
                                         const StoreList<Category>& categoryStores);

} // namespace Parameters
