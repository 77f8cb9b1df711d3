#pragma once

#include "base/DependencyCollector.h"
#include "base/StoreList.h"
#include "schema/JSONWriter.h"
#include "schema/ReferenceTo.h"
#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"

#include <Parameters/Category.h>
#include <Parameters/DataModelVersion.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Parameters {

/// A document of a major category that has been read and not yet resolved.
struct MajorCategorySchema {
    std::string_view name;
    std::vector<TypeIdKey> disciplines;
    TypeIdKey domain;
    Units::SchemaFormat format;
};

/// A document of a subcategory that has been read and not yet resolved.
struct SubCategorySchema {
    std::string_view name;
    TypeIdKey parent;
    Units::SchemaFormat format;
};

/// Texts are views into the document until they are kept elsewhere.
using CategorySchema = std::variant<MajorCategorySchema, SubCategorySchema>;

/// No value if the document is no category.
[[nodiscard]] std::optional<CategorySchema> readCategorySchema(const SchemaDocument& document);

/// The parent of a subcategory is not looked up: it may be resolved later in the same go.
[[nodiscard]] Category resolveCategory(std::string_view typeId, const CategorySchema& schema,
                                       const StoreList<Taxon>& disciplineStores, const StoreList<Taxon>& domainStores);

void writeCategorySchema(const Category& category, JSON::Writer& target, DataModelVersion version);

/// Calls visit with each typeid that the schema waits for, and what it is to refer to.
template <class Visit> void dependenciesOfCategorySchema(CategorySchema& schema, const Visit& visit) {
    if (auto* sub = std::get_if<SubCategorySchema>(&schema)) {
        visit(ReferenceTo{KindNames::category, isNeverBuiltIn}, sub->parent);
        return;
    }
    auto& major = std::get<MajorCategorySchema>(schema);
    for (TypeIdKey& discipline : major.disciplines) {
        visit(ReferenceTo{KindNames::discipline, isNeverBuiltIn}, discipline);
    }
    visit(ReferenceTo{KindNames::domain, isNeverBuiltIn}, major.domain);
}

/// Calls visit with each text of the schema, which visit may replace by an equal one.
template <class Visit> void visitTexts(CategorySchema& schema, const Visit& visit) {
    std::visit([&](auto& shape) { visit(shape.name); }, schema);
    dependenciesOfCategorySchema(schema, [&](ReferenceTo /*target*/, TypeIdKey& typeId) { visit(typeId.typeId); });
}

/// Adds the typeids that a finished category depends on, those of a subcategory's parent included. A parent that the
/// store does not hold gives std::out_of_range.
void dependenciesOfCategory(const Category& category, DependencyCollector& result,
                            const StoreList<Category>& categoryStores);

} // namespace Parameters
