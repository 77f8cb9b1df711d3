#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <memory>
#include <string>

namespace Parameters {

/// A named entry of a classification: a discipline (of specs), a group (of parameters) or a domain (of major
/// categories).
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from taxon is
/// unchanged.
class PARAMETERS_EXPORT Taxon {
public:
    /// Stores what it is given and checks nothing; an empty name is refused when the taxon is registered.
    ///
    /// @param schemaFormat  form of the document that the taxon comes from, and of the one written for it.
    Taxon(const std::string& typeId, const std::string& name, Units::SchemaFormat schemaFormat);
    Taxon(const Taxon&) noexcept = default;
    Taxon& operator=(const Taxon&) noexcept = default;
    ~Taxon();

    /// A copy of the typeid, the taxon's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// A copy of the display name.
    [[nodiscard]] std::string getName() const;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const Taxon& other) const noexcept;
    [[nodiscard]] bool operator!=(const Taxon& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const Taxon& other) const noexcept;
    [[nodiscard]] bool operator>(const Taxon& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit Taxon(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
