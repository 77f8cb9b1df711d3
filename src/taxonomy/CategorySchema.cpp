#include "taxonomy/CategorySchema.h"

#include "schema/VersionedWriting.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/TaxonData.h"

#include <stdexcept>
#include <utility>

namespace Parameters {

namespace {

MajorCategorySchema readMajorCategorySchema(const SchemaDocument& document) {
    MajorCategorySchema schema;
    schema.name = readStringConstant(document, Frame::name);
    const auto disciplines = readTypedValueArrayConstant(document, "disciplines", std::vector<std::string_view>());
    schema.disciplines.assign(disciplines.begin(), disciplines.end());
    schema.domain = readTypedValueConstant(document, "domain");
    schema.format = document.schemaFormat;
    return schema;
}

SubCategorySchema readSubCategorySchema(const SchemaDocument& document) {
    SubCategorySchema schema;
    schema.name = readStringConstant(document, Frame::name);
    schema.parent = readTypedValueConstant(document, "parent");
    schema.format = document.schemaFormat;
    return schema;
}

} // namespace

std::optional<CategorySchema> readCategorySchema(const SchemaDocument& document) {
    if (document.isOfFamily(Vocabulary::majorCategory.prefix)) {
        return readMajorCategorySchema(document);
    }
    if (document.isOfFamily(Vocabulary::subCategory.prefix)) {
        return readSubCategorySchema(document);
    }
    return std::nullopt;
}

Category resolveCategory(std::string_view typeId, const CategorySchema& schema,
                         const StoreList<Taxon>& disciplineStores, const StoreList<Taxon>& domainStores) {
    if (const auto* sub = std::get_if<SubCategorySchema>(&schema)) {
        return Internals::make<Category>(std::string(typeId), std::string(sub->name),
                                         SubCategoryComponent(std::string(sub->parent.typeId)), sub->format);
    }
    const auto& major = std::get<MajorCategorySchema>(schema);
    std::vector<Taxon> disciplines;
    disciplines.reserve(major.disciplines.size());
    for (const TypeIdKey& discipline : major.disciplines) {
        disciplines.push_back(findDependency(disciplineStores, typeId, discipline));
    }
    const Taxon domain = findDependency(domainStores, typeId, major.domain);
    return Internals::make<Category>(std::string(typeId), std::string(major.name),
                                     MajorCategoryComponent(domain, disciplines), major.format);
}

void writeCategorySchema(const Category& category, JSON::Writer& target, DataModelVersion version) {
    const auto& data = Internals::dataOf(category);
    const auto* major = std::get_if<MajorCategoryComponent>(&data.component);
    const BaseSchemas& bases = major != nullptr ? Vocabulary::majorCategory : Vocabulary::subCategory;
    const bool typed = addVersionedFrame(target, data.typeId, bases, data.schemaFormat, version);
    addConstants(target, [&] {
        createNameMember(target, data.name, typed);
        if (major == nullptr) {
            createTypedValueMember(target, "parent", *parentOf(category));
            return;
        }
        createTypedValueMember(target, "domain", typeIdOf(CategoryInternals::domainOf(*major)));
        const std::vector<Taxon>& disciplines = CategoryInternals::disciplinesOf(*major);
        if (!disciplines.empty()) {
            createTypedValueArrayMember(target, "disciplines", disciplines, typeIdOf<Taxon>);
        }
    });
}

void dependenciesOfCategory(const Category& category, DependencyCollector& result,
                            const StoreList<Category>& categoryStores) {
    const Category* major = &category;
    if (const std::string* parent = parentOf(category)) {
        result.add(*parent);
        major = categoryStores.find(*parent);
        if (major == nullptr) {
            throw std::out_of_range("Could not find parent category with typeid " + *parent + ".");
        }
        if (!isMajor(*major)) {
            throwParentNotMajor(*parent, typeIdOf(category));
        }
    }
    if (!result.beginList(*major)) {
        return;
    }
    const auto& component = std::get<MajorCategoryComponent>(Internals::dataOf(*major).component);
    result.add(typeIdOf(CategoryInternals::domainOf(component)));
    for (const Taxon& discipline : CategoryInternals::disciplinesOf(component)) {
        result.add(typeIdOf(discipline));
    }
}

} // namespace Parameters
