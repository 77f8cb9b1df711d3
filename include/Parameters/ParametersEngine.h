#pragma once

#include <Parameters/DataModelVersion.h>
#include <Parameters/Exceptions.h>
#include <Parameters/Export.h>
#include <Parameters/Taxon.h>

#include <Units/UnitsEngine.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace Parameters {

struct EngineImpl;

/// Registry of parameter definitions, and the one class through which a host reaches the library.
///
/// Items come in as schema documents (registerSchema(), then resolveSchemas()) or as ready objects
/// (registerDiscipline() and its like), and are then there for good. Every item is known by its typeid, an opaque
/// string. A typeid is *registered* from the moment in which it is taken in, and *finished*, which is when queries find
/// it, once its references have been resolved.
///
/// Const operations of one engine may run side by side while nothing changes it; all others need exclusive access to
/// it. Distinct engines are independent and share nothing. An engine that has been moved from may only be destroyed or
/// assigned to.
///
/// @code
/// Parameters::ParametersEngine engine;
/// engine.registerSchema(R"({"typeid":"acme.building:hvac-1.0.0","inherits":["quovanta.spec:discipline-1.0.0"],
///                           "constants":[{"id":"name","value":"HVAC"}]})");
/// engine.resolveSchemas();
/// std::string name = engine.getDiscipline("acme.building:hvac-1.0.0").getName();
/// @endcode
class PARAMETERS_EXPORT ParametersEngine {
public:
    /// An engine that knows the built-in typeids and nothing else.
    ParametersEngine();
    /// A deep copy, with everything pending, imported and in the units engine.
    ParametersEngine(const ParametersEngine& other);
    ParametersEngine(ParametersEngine&& other) noexcept;
    /// As the copy constructor; this engine is unchanged if the copy fails. References that getUnitsEngine() gave stay
    /// valid.
    ParametersEngine& operator=(const ParametersEngine& other);
    ParametersEngine& operator=(ParametersEngine&& other) noexcept;
    ~ParametersEngine();

    /// @name Taking in schema documents
    /// @{

    /// Registers one schema document. References are not followed until resolveSchemas(), so documents may come in any
    /// order. A document of none of this library's kinds goes to the units engine.
    ///
    /// @param schemaText  JSON in UTF-8; read up to its first NUL.
    /// @return typeids that the document refers to and that nobody knows yet: first those of this library, second those
    ///         of the units library. A typeid that is merely registered counts as known.
    /// @throws ValidationException  the text is no JSON ("JSON parsing error at offset {offset}: ..."), no schema
    ///         document, or of a known kind and invalid; the engine is unchanged. "Schema with typeid {typeid} is
    ///         already registered." for a duplicate.
    std::pair<std::set<std::string>, std::set<std::string>> registerSchema(const std::string& schemaText);

    /// Registers the documents whose key is not yet registered, in the order of the keys, and then calls
    /// resolveSchemas().
    ///
    /// @param schemas  schema texts by typeid. A text is registered under the typeid that stands in it, whatever its
    /// key.
    /// @throws ValidationException  as registerSchema() and resolveSchemas(). A document that fails ends the call:
    /// those
    ///         before it stay pending.
    void registerSchemas(const std::map<std::string, std::string>& schemas);

    /// Finishes everything that is pending, as one transaction: references are followed, the objects are made, and only
    /// when all of them are in order do queries see them. Objects imported with a context are taken over, too.
    ///
    /// @throws ValidationException  "Dependency {typeid} in schema {schemaTypeId} is missing or does not represent an
    ///         object of the expected type.", or what the units library or a kind has against a schema. Finished
    ///         objects are unchanged; all pending schemas are dropped and may be registered anew, unless it was the
    ///         units library that refused: then they stay pending. Imported objects are dropped in either case.
    void resolveSchemas();

    /// @}
    /// @name Taking in objects
    /// An object is checked against the finished objects and is finished at once. It has no text of its own:
    /// getSchema() writes one. All throw ValidationException and leave the engine unchanged: "Typeid must not be
    /// empty.", "Schema with typeid {typeid} is already registered.", and what each of them says.
    /// @{

    /// @throws ValidationException  "Name must not be empty."
    void registerDiscipline(const Taxon& discipline);
    /// @throws ValidationException  "Name must not be empty."
    void registerDomain(const Taxon& domain);
    /// @throws ValidationException  "Name must not be empty."
    void registerGroup(const Taxon& group);

    /// @}
    /// @name Queries
    /// They find finished objects only and return copies, which stay valid whatever becomes of the engine. The maps
    /// hold all finished objects of a kind by typeid. A typeid that is not that of a finished object of the kind:
    /// UnrecognizedIdentifierException "Could not find {kind} with typeid {typeid}."
    /// @{

    [[nodiscard]] std::map<std::string, Taxon> getAllDisciplines() const;
    [[nodiscard]] std::map<std::string, Taxon> getAllDomains() const;
    [[nodiscard]] std::map<std::string, Taxon> getAllGroups() const;

    /// A typeid that contains "quovanta.spec:discipline-" gives a default discipline named "Common" under that typeid,
    /// whatever is registered; it does not stand in getAllDisciplines().
    [[nodiscard]] Taxon getDiscipline(const std::string& typeId) const;
    [[nodiscard]] Taxon getDomain(const std::string& typeId) const;
    /// A typeid that contains "quovanta.parameter:group-" gives a default group named "Other" under that typeid,
    /// whatever is registered; it does not stand in getAllGroups().
    [[nodiscard]] Taxon getGroup(const std::string& typeId) const;

    /// Whether the typeid is built in, finished, pending, imported, or known to the units engine.
    [[nodiscard]] bool isRegistered(const std::string& typeId) const;

    /// The embedded units engine; lives as long as this engine is not moved from. What is done through it takes effect
    /// at once.
    [[nodiscard]] Units::UnitsEngine& getUnitsEngine();
    [[nodiscard]] const Units::UnitsEngine& getUnitsEngine() const;

    /// @}
    /// @name Texts
    /// These answer for finished items of this library and of the units library; any other typeid:
    /// UnrecognizedIdentifierException "Could not find any object with typeid {typeid}."
    /// @{

    /// The text that was registered, byte for byte; for an object that was registered directly, one written for its own
    /// version.
    [[nodiscard]] std::string getSchema(const std::string& typeId) const;

    /// The text in the form that a data model version can read: the registered one where that serves, otherwise one
    /// written from the object, with "downgradedFrom" as its first key if the version is older than the item's own.
    ///
    /// @throws ValidationException  "Cannot represent schema in requested format."
    [[nodiscard]] std::string getSchemaInCompatibleFormat(DataModelVersion version, const std::string& typeId) const;

    /// Lowest and highest version that getSchemaInCompatibleFormat() can give.
    [[nodiscard]] std::pair<DataModelVersion, DataModelVersion>
    getCompatibleDataModelRange(const std::string& typeId) const;

    /// @}

private:
    /// Null only in an engine that has been moved from.
    std::unique_ptr<EngineImpl> impl_;
};

} // namespace Parameters
