#pragma once

#include "engine/StoreList.h"
#include "taxonomy/Internals.h"

#include <Parameters/Category.h>

#include <variant>

namespace Parameters {

struct Category::Data {
    std::string typeId;
    std::string name;
    std::variant<MajorCategoryComponent, SubCategoryComponent> component;
    Units::SchemaFormat schemaFormat;
};

/// Whether a category has what a subcategory's parent needs.
[[nodiscard]] inline bool isMajor(const Category& category) noexcept {
    return std::holds_alternative<MajorCategoryComponent>(Internals::dataOf(category).component);
}

/// The typeid of a subcategory's parent, or null in a major category.
[[nodiscard]] const std::string* parentOf(const Category& category) noexcept;

/// Of a subcategory whose parent is missing or a subcategory itself.
[[noreturn]] void raiseParentNotMajor(const std::string& parentTypeId, const std::string& typeId);

/// A category that a caller built, rebuilt from the taxa that the engine knows; refuses one without a name, with
/// unknown taxa, or with a parent that is unknown or not major.
[[nodiscard]] Category validatedCategory(const Category& category, const StoreList<Taxon>& disciplineStores,
                                         const StoreList<Taxon>& domainStores,
                                         const StoreList<Category>& categoryStores);

} // namespace Parameters
