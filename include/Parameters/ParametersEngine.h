#pragma once

#include <Parameters/Category.h>
#include <Parameters/DataModelVersion.h>
#include <Parameters/Enumeration.h>
#include <Parameters/Exceptions.h>
#include <Parameters/Export.h>
#include <Parameters/FloatRange.h>
#include <Parameters/IntRange.h>
#include <Parameters/Parameter.h>
#include <Parameters/Spec.h>
#include <Parameters/StringRange.h>
#include <Parameters/Taxon.h>

#include <Units/UnitsEngine.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

/// The registry of parameter definitions, and the values that it hands out.
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
/// it. Distinct engines are independent, copies included. An engine that has been moved from may only be destroyed or
/// assigned to.
///
/// A whole host program, examples/quickstart/main.cpp:
/// @include quickstart/main.cpp
class PARAMETERS_EXPORT ParametersEngine {
public:
    /// An engine that knows the built-in typeids and nothing else.
    ParametersEngine();
    /// A deep copy, with everything pending, imported and in the units engine.
    ParametersEngine(const ParametersEngine& other);
    /// Takes everything over; the other engine may then only be destroyed or assigned to.
    ParametersEngine(ParametersEngine&& other) noexcept;
    /// As the copy constructor; this engine is unchanged if the copy fails. References that getUnitsEngine() gave stay
    /// valid.
    ParametersEngine& operator=(const ParametersEngine& other);
    /// As the move constructor.
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
    ///         already registered." for a duplicate. For a document of none of this library's kinds what the units
    ///         library has against it.
    std::pair<std::set<std::string>, std::set<std::string>> registerSchema(const std::string& schemaText);

    /// Registers the documents whose key is not yet registered, in the order of the keys, and then calls
    /// resolveSchemas().
    ///
    /// @param schemas  schema texts by typeid. A text is registered under the typeid that stands in it, whatever its
    ///         key.
    /// @throws ValidationException  as registerSchema() and resolveSchemas(). A document that fails ends the call:
    ///         those before it stay pending.
    void registerSchemas(const std::map<std::string, std::string>& schemas);

    /// Registers one schema document as registerSchema() does, and copies from another engine what it needs, directly
    /// and indirectly, unless this engine has it: finished objects with their texts, and units. The copies count as
    /// registered; queries see them after resolveSchemas().
    ///
    /// @param context  only read, and not changed by anybody else meanwhile.
    /// @return typeids that the document refers to and that neither engine knows.
    /// @throws ValidationException  as registerSchema(), and then nothing has changed; or a copied object is refused by
    ///         its check, such as a spec whose units are pending in this engine's units engine: resolve them first.
    ///         UnrecognizedIdentifierException "Could not find any object with typeid {typeid}." if something needed is
    ///         pending or imported in the context, and std::out_of_range as getDependencies() of the context. In these
    ///         cases, and where memory runs out while copying, the schema stays pending, and what has been copied
    ///         stays.
    std::set<std::string> registerSchemaWithContext(const std::string& schemaText, const ParametersEngine& context);

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
    ///
    /// An object is checked against the finished objects and is finished at once. It has no text of its own:
    /// getSchema() writes one. All throw ValidationException and leave the engine unchanged: "Typeid must not be
    /// empty.", "Schema with typeid {typeid} is already registered.", and what each of them says.
    /// @{

    /// Adds a category.
    ///
    /// What is stored holds the registered domain and disciplines under the typeids given.
    ///
    /// @throws ValidationException  "Name must not be empty."; for a major category "Could not find domain with typeid
    ///         {typeid}", "Could not find discipline with typeid {typeid}"; for a subcategory "Could not find category
    ///         with typeid {typeid}" (these three without a full stop), "Parent {typeid} of subcategory {typeid} is not
    ///         a major category."
    void registerCategory(const Category& category);
    /// Adds a discipline.
    ///
    /// @throws ValidationException  "Name must not be empty."
    void registerDiscipline(const Taxon& discipline);
    /// Adds a domain.
    ///
    /// @throws ValidationException  "Name must not be empty."
    void registerDomain(const Taxon& domain);
    /// Adds an enumeration.
    ///
    /// @throws ValidationException  "Enumeration must specify at least one value.", "ID of value in enumeration must
    ///         not be empty.", "Value {id} must appear only once."
    void registerEnumeration(const Enumeration& enumeration);
    /// Adds a float range, whatever its boundaries.
    void registerFloatRange(const FloatRange& range);
    /// Adds a group.
    ///
    /// @throws ValidationException  "Name must not be empty."
    void registerGroup(const Taxon& group);
    /// Adds an int range, whatever its boundaries.
    void registerIntRange(const IntRange& range);
    /// Adds a parameter.
    ///
    /// What is stored holds the registered spec and range under the typeids given, and the registered group unless that
    /// is a default one. A default group becomes that of format 0, whatever version was given, also where the parameter
    /// is copied from a context. The default group, the legacy base specs of Defaults and ranges of a static base need
    /// not be registered.
    ///
    /// @throws ValidationException  in this order: "Name must not be empty."; "Could not find group with typeid
    ///         {typeid}."; for a string range "Value {value} must appear only once." and "String range using base
    ///         schema typeid {typeid} ..."; "Could not find {kind} with typeid {typeid}." for the range; "Family Type
    ///         parameter must specify a category."; "Primitive reference parameter may use only major version 1 of the
    ///         family type base spec."; "Could not find spec with typeid {typeid}."; "Parameter with an enumeration
    ///         range must use a legacy general spec."; "Parameter with a legacy general spec must use an enumeration
    ///         range."
    void registerParameter(const Parameter& parameter);
    /// Adds a spec.
    ///
    /// What is stored holds the registered units under the typeids given, and the registered discipline unless that is
    /// a default one. A default discipline need not be registered and becomes that of format 0, whatever version was
    /// given, also where the spec is copied from a context.
    ///
    /// @throws ValidationException  in this order: "Name must not be empty."; "Could not find discipline with typeid
    ///         {typeid}."; "Legacy primitive specs must use PropertySets schema format."; "Spec with polymorphic value
    ///         type using 'oneOf' must offer at least one type."; "Spec with PropertySets schema format may use only
    ///         single context."; "Spec with PropertySets schema format may not use polymorphic value type."; "Spec of
    ///         measurable value type must include units of measurement."; "Could not find unit with typeid {typeid}.";
    ///         "Spec with units of measurement must have floating-point value type."
    void registerSpec(const Spec& spec);
    /// Adds a string range.
    ///
    /// @throws ValidationException  "Value {value} must appear only once."
    void registerStringRange(const StringRange& range);

    /// @}
    /// @name Queries
    ///
    /// They find finished objects only and return copies, which stay valid whatever becomes of the engine. The maps
    /// hold all finished objects of a kind by typeid. A typeid that is not that of a finished object of the kind:
    /// UnrecognizedIdentifierException "Could not find {kind} with typeid {typeid}."
    /// @{

    /// All finished categories.
    [[nodiscard]] std::map<std::string, Category> getAllCategories() const;
    /// All finished disciplines, without the default one.
    [[nodiscard]] std::map<std::string, Taxon> getAllDisciplines() const;
    /// All finished domains.
    [[nodiscard]] std::map<std::string, Taxon> getAllDomains() const;
    /// All finished enumerations.
    [[nodiscard]] std::map<std::string, Enumeration> getAllEnumerations() const;
    /// All finished float ranges.
    [[nodiscard]] std::map<std::string, FloatRange> getAllFloatRanges() const;
    /// All finished groups, without the default one.
    [[nodiscard]] std::map<std::string, Taxon> getAllGroups() const;
    /// All finished int ranges.
    [[nodiscard]] std::map<std::string, IntRange> getAllIntRanges() const;
    /// All finished parameters.
    [[nodiscard]] std::map<std::string, Parameter> getAllParameters() const;
    /// All finished specs, without the legacy base specs.
    [[nodiscard]] std::map<std::string, Spec> getAllSpecs() const;
    /// All finished string ranges.
    [[nodiscard]] std::map<std::string, StringRange> getAllStringRanges() const;

    /// A finished category.
    [[nodiscard]] Category getCategory(const std::string& typeId) const;
    /// A finished discipline.
    ///
    /// A typeid that contains "quovanta.spec:discipline-" gives a default discipline named "Common" under that typeid,
    /// whatever is registered; it does not stand in getAllDisciplines().
    [[nodiscard]] Taxon getDiscipline(const std::string& typeId) const;
    /// A finished domain.
    [[nodiscard]] Taxon getDomain(const std::string& typeId) const;
    /// A finished enumeration.
    [[nodiscard]] Enumeration getEnumeration(const std::string& typeId) const;
    /// A finished float range.
    [[nodiscard]] FloatRange getFloatRange(const std::string& typeId) const;
    /// A finished group.
    ///
    /// A typeid that contains "quovanta.parameter:group-" gives a default group named "Other" under that typeid,
    /// whatever is registered; it does not stand in getAllGroups().
    [[nodiscard]] Taxon getGroup(const std::string& typeId) const;
    /// A finished int range.
    [[nodiscard]] IntRange getIntRange(const std::string& typeId) const;
    /// A finished parameter, with copies of its group, spec and range.
    [[nodiscard]] Parameter getParameter(const std::string& typeId) const;
    /// A finished spec.
    ///
    /// "quovanta.spec:spec.bool-1.0.0", "quovanta.spec:spec.int64-2.0.0", "quovanta.spec:spec.reference-1.0.0" and
    /// "quovanta.spec:spec.string-2.0.0" give the legacy base specs of Defaults; they do not stand in getAllSpecs().
    [[nodiscard]] Spec getSpec(const std::string& typeId) const;
    /// A finished string range.
    [[nodiscard]] StringRange getStringRange(const std::string& typeId) const;

    /// Whether the typeid is built in, finished, pending, imported, or known to the units engine.
    [[nodiscard]] bool isRegistered(const std::string& typeId) const;

    /// The embedded units engine; lives until this engine is destroyed, moved from or moved to. What is done through it
    /// takes effect at once.
    [[nodiscard]] Units::UnitsEngine& getUnitsEngine();
    /// The same of an engine that is only read.
    [[nodiscard]] const Units::UnitsEngine& getUnitsEngine() const;

    /// Typeids that a finished item of this library or of the units library depends on, for items of this library
    /// without the built-in ones: a spec's discipline and units with what those depend on; a category's domain and
    /// disciplines, or its parent and the parent's domain and disciplines; a parameter's group, spec and range with
    /// what the spec and a category depend on. Items of the other kinds depend on nothing.
    /// @throws UnrecognizedIdentifierException  "Could not find any object with typeid {typeid}."
    /// @throws std::out_of_range  the category is a subcategory that was imported, and its parent gave way to an item
    ///         of another kind that was registered under the parent's typeid.
    [[nodiscard]] std::set<std::string> getDependencies(const std::string& typeId) const;

    /// The same for a parameter that is not registered, checked as registerParameter() does.
    ///
    /// @throws ValidationException  what registerParameter() has against it, a registered typeid included.
    /// @throws std::out_of_range  its range is a category of which getDependencies() says so.
    [[nodiscard]] std::set<std::string> getDependencies(const Parameter& parameter) const;

    /// @}
    /// @name Reading without registering
    /// @{

    /// The parameter of a document, made against what is finished.
    ///
    /// @throws ValidationException  as registerSchema() and resolveSchemas(); "Inheritance from an incorrect base
    ///         schema." for a document of another kind.
    [[nodiscard]] Parameter readParameter(const std::string& text) const;

    /// The primitive type behind a parameter document: that of its form, else that of its spec's value type. General
    /// for any other, and for a text that is no parameter document or whose spec is not finished; never throws
    /// ValidationException.
    [[nodiscard]] LegacyPrimitiveType readValueType(const std::string& text) const;

    /// @}
    /// @name Texts
    ///
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

    /// Lowest and highest version in which the item can be represented.
    [[nodiscard]] std::pair<DataModelVersion, DataModelVersion>
    getCompatibleDataModelRange(const std::string& typeId) const;

    /// The text that a parameter would have, which is not registered, written for its own version after the check of
    /// registerParameter().
    ///
    /// @throws ValidationException  what registerParameter() has against it, a registered typeid included; "Cannot
    ///         represent schema in requested format."
    [[nodiscard]] std::string getSchema(const Parameter& parameter) const;

    /// The same for a version.
    [[nodiscard]] std::string getSchemaInCompatibleFormat(DataModelVersion version, const Parameter& parameter) const;

    /// @}

private:
    friend struct Internals;

    /// Null only in an engine that has been moved from.
    std::unique_ptr<EngineImpl> impl_;
};

} // namespace Parameters
