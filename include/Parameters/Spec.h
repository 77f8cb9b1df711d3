#pragma once

#include <Parameters/Export.h>
#include <Parameters/Taxon.h>

#include <Units/SchemaFormat.h>
#include <Units/Unit.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Parameters {

/// Value types of the oldest data model. A spec that has one is of format PropertySets.
enum class LegacyPrimitiveType : std::int32_t {
    /// A parameter with such a spec has an enumeration as its range.
    General = 0,
    Boolean = 1,
    Integer = 2,
    /// A spec with this type carries units.
    Float = 3,
    Reference = 4,
    String = 5,
};

/// The shape of a value.
enum class Context : std::int32_t {
    Single = 0,
    Array = 1,
    Map = 2,
};

/// A value type that accepts anything derived from one base.
class PARAMETERS_EXPORT AnyOf {
public:
    /// Implicit, so that a typeid alone is accepted.
    ///
    /// @param baseTypeId  any typeid: it need not be known to an engine.
    // NOLINTNEXTLINE(google-explicit-constructor)
    AnyOf(const std::string& baseTypeId);
    AnyOf(const AnyOf&) = default;
    AnyOf(AnyOf&&) noexcept = default;
    AnyOf& operator=(const AnyOf&) = default;
    AnyOf& operator=(AnyOf&&) noexcept = default;
    ~AnyOf();

    /// The typeid of the base; lives as long as this object is unchanged.
    [[nodiscard]] const std::string& getBaseTypeId() const noexcept;

private:
    std::string baseTypeId_;
};

/// A value type that accepts one of a list of types.
class PARAMETERS_EXPORT OneOf {
public:
    /// Implicit, so that a list of typeids alone is accepted.
    ///
    /// @param typeIds  any typeids, kept in this order; registration refuses an empty list.
    // NOLINTNEXTLINE(google-explicit-constructor)
    OneOf(const std::vector<std::string>& typeIds);
    OneOf(const OneOf&) = default;
    OneOf(OneOf&&) noexcept = default;
    OneOf& operator=(const OneOf&) = default;
    OneOf& operator=(OneOf&&) noexcept = default;
    ~OneOf();

    /// The typeids, in the order given; live as long as this object is unchanged.
    [[nodiscard]] const std::vector<std::string>& getTypeIds() const noexcept;

private:
    std::vector<std::string> typeIds_;
};

/// What a value is: a type by its name (a typeid or one of the names of Defaults), a primitive of the oldest data
/// model, or a polymorphic choice.
using ValueTypeId = std::variant<std::string, LegacyPrimitiveType, AnyOf, OneOf>;

/// The units of a spec.
class PARAMETERS_EXPORT Measurable {
public:
    /// @param applicableUnits  units in which a value may be given; may be empty.
    /// @param storageUnit      unit in which a value is stored; need not be among the applicable ones.
    Measurable(const std::vector<Units::Unit>& applicableUnits, const Units::Unit& storageUnit);
    Measurable(const Measurable&) = default;
    Measurable(Measurable&&) noexcept = default;
    Measurable& operator=(const Measurable&) = default;
    Measurable& operator=(Measurable&&) noexcept = default;
    ~Measurable();

    /// The units in which a value may be given, in their order; live as long as this object is unchanged.
    [[nodiscard]] const std::vector<Units::Unit>& getApplicableUnits() const noexcept;
    /// The unit in which a value is stored; lives as long as this object is unchanged.
    [[nodiscard]] const Units::Unit& getStorageUnit() const noexcept;

private:
    std::vector<Units::Unit> applicableUnits_;
    Units::Unit storageUnit_;
};

/// The part of a spec that every spec has.
class PARAMETERS_EXPORT SpecCore {
public:
    /// The discipline is "quovanta.spec:discipline-1.0.0", named "Common", of format PropertySets.
    SpecCore(const std::string& typeId, const std::string& name);
    /// Stores what it is given and checks nothing.
    SpecCore(const std::string& typeId, const std::string& name, const Taxon& discipline);
    SpecCore(const SpecCore&) = default;
    SpecCore(SpecCore&&) noexcept = default;
    SpecCore& operator=(const SpecCore&) = default;
    SpecCore& operator=(SpecCore&&) noexcept = default;
    ~SpecCore();

    /// @{
    /// A copy of what the constructor was given.
    [[nodiscard]] std::string getTypeId() const;
    [[nodiscard]] std::string getName() const;
    [[nodiscard]] Taxon getDiscipline() const;
    /// @}

private:
    std::string typeId_;
    std::string name_;
    Taxon discipline_;
};

/// The description of a value type: what a value is, alone or in an array or a map, in which units it is given, and the
/// discipline that it is filed in. It holds no value.
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from spec is
/// unchanged. References that getters return live as long as the spec is neither assigned to nor destroyed.
class PARAMETERS_EXPORT Spec {
public:
    /// Stores what it is given and checks nothing; see ParametersEngine::registerSpec(). The context is Single.
    Spec(const std::string& typeId, const std::string& name, const ValueTypeId& valueTypeId,
         const std::optional<Measurable>& measurable, Units::SchemaFormat schemaFormat, const Taxon& discipline);
    /// The same with a context.
    Spec(const std::string& typeId, const std::string& name, const ValueTypeId& valueTypeId,
         const std::optional<Measurable>& measurable, Units::SchemaFormat schemaFormat, const Taxon& discipline,
         Context context);
    Spec(const Spec&) noexcept = default;
    Spec& operator=(const Spec&) noexcept = default;
    ~Spec();

    /// The typeid, the spec's identity.
    [[nodiscard]] const std::string& getTypeId() const noexcept;
    /// The display name.
    [[nodiscard]] const std::string& getName() const noexcept;
    /// What a value is.
    [[nodiscard]] const ValueTypeId& getValueTypeId() const noexcept;
    /// The units, if values have any.
    [[nodiscard]] const std::optional<Measurable>& getMeasurable() const noexcept;
    /// The discipline that the spec is filed in.
    [[nodiscard]] const Taxon& getDiscipline() const noexcept;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;
    /// Whether a value stands alone, in an array or in a map.
    [[nodiscard]] Context getContext() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const Spec& other) const noexcept;
    [[nodiscard]] bool operator!=(const Spec& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const Spec& other) const noexcept;
    [[nodiscard]] bool operator>(const Spec& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit Spec(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
