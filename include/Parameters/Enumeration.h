#pragma once

#include <Parameters/Export.h>

#include <Units/SchemaFormat.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Parameters {

/// A closed list of named 64-bit integers: the range of parameters that hold one of a fixed set of choices.
///
/// A value: copies are cheap, independent of the engine, and may be used from several threads. A moved-from enumeration
/// is unchanged.
class PARAMETERS_EXPORT Enumeration {
public:
    /// Stores what it is given and checks nothing; registration refuses an empty list, empty ids and repeated ids.
    ///
    /// @param values  ids with their numbers, kept in this order. Numbers may repeat.
    Enumeration(const std::string& typeId, const std::vector<std::pair<std::string, std::int64_t>>& values,
                Units::SchemaFormat schemaFormat);
    Enumeration(const Enumeration&) noexcept = default;
    Enumeration& operator=(const Enumeration&) noexcept = default;
    ~Enumeration();

    /// A copy of the typeid, the enumeration's identity.
    [[nodiscard]] std::string getTypeId() const;
    /// A copy of the ids with their numbers: in ascending order of the number if they come from a document, else in the
    /// order given.
    [[nodiscard]] std::vector<std::pair<std::string, std::int64_t>> getValues() const;
    /// Form of the document that it comes from, and of the one written for it.
    [[nodiscard]] Units::SchemaFormat getSchemaFormat() const noexcept;

    /// @{
    /// Comparisons look at the typeid alone, as unsigned bytes.
    [[nodiscard]] bool operator==(const Enumeration& other) const noexcept;
    [[nodiscard]] bool operator!=(const Enumeration& other) const noexcept { return !(*this == other); }
    [[nodiscard]] bool operator<(const Enumeration& other) const noexcept;
    [[nodiscard]] bool operator>(const Enumeration& other) const noexcept { return other < *this; }
    /// @}

private:
    friend struct Internals;
    struct Data;
    explicit Enumeration(std::shared_ptr<const Data> data) noexcept;

    /// Never null and never changed, so that copies can share it.
    std::shared_ptr<const Data> data_;
};

} // namespace Parameters
