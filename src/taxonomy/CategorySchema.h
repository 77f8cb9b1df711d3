#pragma once

#include "engine/KindList.h"
#include "engine/StoreList.h"
#include "schema/SchemaDocument.h"

#include <Parameters/Category.h>
#include <Parameters/DataModelVersion.h>

#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace Parameters {

/// A document of a major category that has been read and not yet resolved.
struct MajorCategorySchema {
    std::string name;
    std::vector<std::string> disciplines;
    std::string domain;
    Units::SchemaFormat format;
};

/// A document of a subcategory that has been read and not yet resolved.
struct SubCategorySchema {
    std::string name;
    std::string parent;
    Units::SchemaFormat format;
};

using CategorySchema = std::variant<MajorCategorySchema, SubCategorySchema>;

/// No value if the document is no category.
[[nodiscard]] std::optional<CategorySchema> readCategorySchema(const SchemaDocument& document);

/// The parent of a subcategory is not looked up: it may be resolved later in the same go.
[[nodiscard]] Category resolveCategory(const std::string& typeId, CategorySchema schema,
                                       const StoreList<Taxon>& disciplineStores, const StoreList<Taxon>& domainStores);

void writeCategorySchema(const Category& category, JSON& target, DataModelVersion version);

/// Typeids that the schema waits for.
[[nodiscard]] TypeIdViews dependenciesOfCategorySchema(const CategorySchema& schema);

/// Adds the typeids that a finished category depends on, those of a subcategory's parent included. A parent that the
/// store does not hold gives std::out_of_range.
void dependenciesOfCategory(const Category& category, std::set<std::string>& result,
                            const StoreList<Category>& categoryStores);

} // namespace Parameters
