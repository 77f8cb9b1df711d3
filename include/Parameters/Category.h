#pragma once

#include <Parameters/Export.h>
#include <Parameters/Taxon.h>

#include <Units/SchemaFormat.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Parameters {

/// What makes a category a subcategory: its parent.
class PARAMETERS_EXPORT SubCategoryComponent {
public:
    /// Implicit, so that a typeid alone makes a subcategory.
    ///
    /// @param parentCategory  typeid of the parent, which must be a major category.
    // NOLINTNEXTLINE(google-explicit-constructor)
    SubCategoryComponent(const std::string& parentCategory);
    SubCategoryComponent(const SubCategoryComponent&) = default;
    SubCategoryComponent(SubCategoryComponent&&) noexcept = default;
    SubCategoryComponent& operator=(const SubCategoryComponent&) = default;
    SubCategoryComponent& operator=(SubCategoryComponent&&) noexcept = default;
    ~SubCategoryComponent();

    /// A copy of the parent's typeid.
    [[nodiscard]] std::string getParentCategory() const;

private:
    friend struct CategoryInternals;
    std::string parentCategory_;
};

/// What makes a category a major category: its domain, and the disciplines that it concerns.
class PARAMETERS_EXPORT MajorCategoryComponent {
public:
    /// @param disciplines  kept in this order; may be empty.
    MajorCategoryComponent(const Taxon& domain, const std::vector<Taxon>& disciplines);
    MajorCategoryComponent(const MajorCategoryComponent&) = default;
    MajorCategoryComponent(MajorCategoryComponent&&) noexcept = default;
    MajorCategoryComponent& operator=(const MajorCategoryComponent&) = default;
    MajorCategoryComponent& operator=(MajorCategoryComponent&&) noexcept = default;
    ~MajorCategoryComponent();

    /// A copy of the domain.
    [[nodiscard]] Taxon getDomain() const;
    /// A copy of the disciplines, in the order given; may be empty.
    [[nodiscard]] std::vector<Taxon> getDisciplines() const;

private:
    friend struct CategoryInternals;
    Taxon domain_;
    std::vector<Taxon> disciplines_;
};

/// An entry of a classification with two levels. It can serve as the range of a parameter.
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from category is
/// unchanged.
class PARAMETERS_EXPORT Category {
public:
    /// @{
    /// Stores what it is given and checks nothing; registration checks the name and looks the references up.
    Category(const std::string& typeId, const std::string& name, const MajorCategoryComponent& component,
             Units::SchemaFormat schemaFormat);
    Category(const std::string& typeId, const std::string& name, const SubCategoryComponent& component,
             Units::SchemaFormat schemaFormat);
    /// @}
    Category(const Category&) noexcept = default;
    Category& operator=(const Category&) noexcept = default;
    ~Category();

    /// A copy of the typeid, the category's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// A copy of the display name.
    [[nodiscard]] std::string getName() const;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;
    /// A copy of the component, if the category is a major one.
    [[nodiscard]] std::optional<MajorCategoryComponent> getMajorCategoryComponent() const;
    /// A copy of the component, if the category is a subcategory.
    [[nodiscard]] std::optional<SubCategoryComponent> getSubCategoryComponent() const;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const Category& other) const noexcept;
    [[nodiscard]] bool operator!=(const Category& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const Category& other) const noexcept;
    [[nodiscard]] bool operator>(const Category& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit Category(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
