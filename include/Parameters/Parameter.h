#pragma once

#include <Parameters/Category.h>
#include <Parameters/Enumeration.h>
#include <Parameters/Export.h>
#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>
#include <Parameters/Spec.h>
#include <Parameters/StringRange.h>
#include <Parameters/Taxon.h>

#include <memory>
#include <string>
#include <variant>

namespace Parameters {

/// The values that a parameter may have: any, an element of a category, a choice of an enumeration, or those in a
/// range.
using ParameterRange = std::variant<std::monostate, Category, Enumeration, FloatRange, IntRange, StringRange>;

/// What all parameters have apart from spec and range.
class PARAMETERS_EXPORT ParameterCore {
public:
    /// The group is "quovanta.parameter:group-1.0.0", named "Other", of format PropertySets.
    ParameterCore(const std::string& typeId, const std::string& name, const std::string& description,
                  const std::string& sampleText, bool readOnly);
    /// Stores what it is given and checks nothing. Description and sample text may be empty.
    ParameterCore(const std::string& typeId, const std::string& name, const Taxon& group,
                  const std::string& description, const std::string& sampleText, bool readOnly);
    ParameterCore(const ParameterCore&) = default;
    ParameterCore(ParameterCore&&) noexcept = default;
    ParameterCore& operator=(const ParameterCore&) = default;
    ParameterCore& operator=(ParameterCore&&) noexcept = default;
    ~ParameterCore();

    /// @{
    /// A copy of what the constructor was given.
    [[nodiscard]] std::string getTypeId() const;
    [[nodiscard]] std::string getName() const;
    [[nodiscard]] std::string getDescription() const;
    [[nodiscard]] std::string getSampleText() const;
    [[nodiscard]] Taxon getGroup() const;
    /// @}
    /// Whether values cannot be changed.
    [[nodiscard]] bool isReadOnly() const noexcept;

private:
    std::string typeId_;
    std::string name_;
    std::string description_;
    std::string sampleText_;
    Taxon group_;
    bool readOnly_;
};

/// A named, classified slot for a value: what a value is (its spec), which values are allowed (its range), how it is
/// shown and whether it can be changed. It holds no value, and full copies of its spec, group and range.
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from parameter
/// is unchanged. References that getters return live as long as the parameter is neither assigned to nor destroyed.
class PARAMETERS_EXPORT Parameter {
public:
    /// Stores what it is given and checks nothing; see ParametersEngine::registerParameter().
    Parameter(const std::string& typeId, const std::string& name, const Spec& spec, const Taxon& group,
              const ParameterRange& range, const std::string& description, const std::string& sampleText,
              bool readOnly);
    Parameter(const Parameter&) noexcept = default;
    Parameter& operator=(const Parameter&) noexcept = default;
    ~Parameter();

    /// The typeid, the parameter's identity.
    [[nodiscard]] const std::string& getTypeId() const noexcept;
    /// The display name.
    [[nodiscard]] const std::string& getName() const noexcept;
    /// May be empty.
    [[nodiscard]] const std::string& getDescription() const noexcept;
    /// May be empty.
    [[nodiscard]] const std::string& getSampleText() const noexcept;
    /// The group that the parameter is filed in.
    [[nodiscard]] const Taxon& getGroup() const noexcept;
    /// What a value is.
    [[nodiscard]] const Spec& getSpec() const noexcept;
    /// Which values are allowed.
    [[nodiscard]] const ParameterRange& getRange() const noexcept;
    /// Whether values cannot be changed.
    [[nodiscard]] bool isReadOnly() const noexcept;
    /// The format of the spec: a parameter has none of its own.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const Parameter& other) const noexcept;
    [[nodiscard]] bool operator!=(const Parameter& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const Parameter& other) const noexcept;
    [[nodiscard]] bool operator>(const Parameter& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit Parameter(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
