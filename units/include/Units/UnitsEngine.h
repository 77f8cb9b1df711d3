#pragma once

#include <Units/Exceptions.h>
#include <Units/Export.h>
#include <Units/SchemaFormat.h>
#include <Units/Unit.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

/// The registry of units of measurement.
namespace Units {

/// Registry of units of measurement and their dimensions.
///
/// Documents are registered in any order and finished together by resolveSchemas(). Const operations may run side by
/// side while nothing changes the engine; all others need exclusive access to it. Distinct engines are independent. An
/// engine that has been moved from may only be destroyed or assigned to.
class UNITS_EXPORT UnitsEngine {
public:
    UnitsEngine();
    /// A deep copy: pending items come along, and what either changes afterwards is its own.
    UnitsEngine(const UnitsEngine& other);
    /// Takes everything over; the other engine may then only be destroyed or assigned to.
    UnitsEngine(UnitsEngine&& other) noexcept;
    /// As the copy constructor; this engine is unchanged if the copy fails.
    UnitsEngine& operator=(const UnitsEngine& other);
    /// As the move constructor.
    UnitsEngine& operator=(UnitsEngine&& other) noexcept;
    ~UnitsEngine();

    /// Registers one document of a unit or a dimension. It is pending until resolveSchemas().
    ///
    /// @param schemaText  JSON in UTF-8; read up to its first NUL.
    /// @return the typeids that it refers to and that this engine does not know yet.
    /// @throws ValidationException  the text is no schema document ("JSON parsing error at offset ..." and the messages
    ///         of the frame; an empty typeid is refused there: "The typeid string may not be empty."), "Schema with
    ///         typeid {typeid} is already registered.", "Schema {typeid} does not represent a unit or a dimension.", or
    ///         a fault in its constants. The engine is unchanged.
    std::set<std::string> registerSchema(const std::string& schemaText);

    /// Finishes everything that is pending.
    ///
    /// @throws ValidationException  "Dependency {typeid} in schema {schemaTypeId} is missing or does not represent an
    ///         object of the expected type." Everything pending is dropped then; what was finished stays.
    void resolveSchemas();

    /// Copies an item as it stands in the source, pending or finished, with its text, and the dimension that it refers
    /// to, each unless this engine knows its typeid. A typeid that this engine knows ends the call before the source is
    /// asked. Out of memory, the dimension may have been copied alone.
    ///
    /// @throws UnrecognizedIdentifierException  "Could not find any object with typeid {typeid}."
    void copyItem(const std::string& typeId, const UnitsEngine& source);

    /// Whether the typeid is that of a pending or a finished item.
    [[nodiscard]] bool isRegistered(const std::string& typeId) const;

    /// The finished units by typeid. The contents change with the engine, and the reference lives until the engine is
    /// destroyed, assigned to or moved from.
    [[nodiscard]] const std::map<std::string, Unit>& getAllUnits() const;

    // All of the following throw UnrecognizedIdentifierException "Could not find any object with typeid {typeid}." for
    // a typeid that is unknown or pending.

    /// A finished unit.
    [[nodiscard]] Unit getUnit(const std::string& typeId) const;
    /// The typeid of the dimension for a unit that has one, else nothing.
    [[nodiscard]] std::set<std::string> getDependencies(const std::string& typeId) const;
    /// The text as it was registered.
    [[nodiscard]] std::string getSchema(const std::string& typeId) const;
    /// Lowest and highest format in which the item can be represented.
    [[nodiscard]] std::pair<SchemaFormat, SchemaFormat> getCompatibleSchemaFormatRange(const std::string& typeId) const;
    /// The text in a format: as registered in its own, otherwise written anew, with "downgradedFrom" in front.
    ///
    /// @throws ValidationException  "Cannot represent schema in requested format."
    [[nodiscard]] std::string getSchemaInFormat(const std::string& typeId, SchemaFormat format) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace Units
