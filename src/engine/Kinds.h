#pragma once

#include "base/DependencyCollector.h"
#include "engine/KindList.h"
#include "schema/DataModels.h"
#include "schema/Vocabulary.h"
#include "specs/ParameterData.h"
#include "specs/ParameterSchema.h"
#include "specs/SpecData.h"
#include "specs/SpecSchema.h"
#include "taxonomy/CategoryData.h"
#include "taxonomy/CategorySchema.h"
#include "taxonomy/EnumerationData.h"
#include "taxonomy/EnumerationSchema.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/NumericRangeSchema.h"
#include "taxonomy/StringRangeData.h"
#include "taxonomy/StringRangeSchema.h"
#include "taxonomy/TaxonData.h"
#include "taxonomy/TaxonSchema.h"

#include <Units/UnitsEngine.h>

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Parameters {

// One description per kind: everything that the engine must know of it. The engine's operations are templates over
// these, and the lists at the end are the orders in which they treat the kinds.
//
// A description has
//   Object, Body     the finished value class, and what a document is between registration and resolution
//   name             the kind's word in messages
//   read             body of a document, or no value if the document is of another kind
//   dependenciesOfSchema
//                    calls visit with each typeid that a body refers to here, and what that is to be
//   unitDependenciesOfSchema
//                    the same for the units library, with the typeid alone
//   visitTexts       calls visit with each text that a body has as a view, which visit may replace by an equal one
//   addDependencies  adds the typeids that an object depends on
//   resolve          object of a body; scope tells where its references may be found
//   validated        object to store for one that a caller built
//   conversionOf     versions in which an object can be represented
//   write            document of an object for a version

// What several descriptions share.

struct RefersToNothing {
    template <class Body, class Visit> static void dependenciesOfSchema(Body& /*body*/, const Visit& /*visit*/) {}
    template <class Object>
    static void addDependencies(const Object& /*object*/, DependencyCollector& /*result*/,
                                const Units::UnitsEngine& /*units*/, const StoreList<Category>& /*categories*/) {}
};

struct RefersToNoUnits {
    template <class Body, class Visit> static void unitDependenciesOfSchema(Body& /*body*/, const Visit& /*visit*/) {}
};

struct HasNoViews {
    template <class Body, class Visit> static void visitTexts(Body& /*body*/, const Visit& /*visit*/) {}
};

struct ConvertsByFormat {
    template <class Object> static Conversion conversionOf(const Object& object) {
        return conversionByFormat(object.getSchemaFormat());
    }
};

struct StandsAlone : RefersToNothing, RefersToNoUnits, HasNoViews, ConvertsByFormat {};

struct EnumerationKind : StandsAlone {
    using Object = Enumeration;
    using Body = EnumerationSchema;
    static constexpr std::string_view name = KindNames::enumeration;

    static std::optional<Body> read(const SchemaDocument& document) { return readEnumerationSchema(document); }
    template <class Scope> static Object resolve(std::string_view typeId, Body body, const Scope& /*scope*/) {
        return resolveEnumeration(typeId, std::move(body));
    }
    template <class Scope> static Object validated(const Object& enumeration, const Scope& /*scope*/) {
        return validatedEnumeration(enumeration);
    }
    static void write(const Object& enumeration, JSON::Writer& target, DataModelVersion version) {
        writeEnumerationSchema(enumeration, target, version);
    }
};

/// Float and int ranges differ in their number type and their word.
template <class Range> struct NumericRangeKind : StandsAlone {
    using Object = Range;
    using Body = NumericRangeSchema<Range>;

    static std::optional<Body> read(const SchemaDocument& document) { return readNumericRangeSchema<Range>(document); }
    template <class Scope> static Object resolve(std::string_view typeId, const Body& body, const Scope& /*scope*/) {
        return resolveNumericRange(typeId, body);
    }
    /// Any range is valid.
    template <class Scope> static Object validated(const Object& range, const Scope& /*scope*/) { return range; }
    static void write(const Object& range, JSON::Writer& target, DataModelVersion version) {
        writeNumericRangeSchema(range, target, version);
    }
};

struct FloatRangeKind : NumericRangeKind<FloatRange> {
    static constexpr std::string_view name = KindNames::floatRange;
};
struct IntRangeKind : NumericRangeKind<IntRange> {
    static constexpr std::string_view name = KindNames::intRange;
};

struct StringRangeKind : StandsAlone {
    using Object = StringRange;
    using Body = StringRangeSchema;
    static constexpr std::string_view name = KindNames::stringRange;

    static std::optional<Body> read(const SchemaDocument& document) { return readStringRangeSchema(document); }
    template <class Scope> static Object resolve(std::string_view typeId, Body body, const Scope& /*scope*/) {
        return resolveStringRange(typeId, std::move(body));
    }
    template <class Scope> static Object validated(const Object& range, const Scope& /*scope*/) {
        return validatedStringRange(range);
    }
    static void write(const Object& range, JSON::Writer& target, DataModelVersion version) {
        writeStringRangeSchema(range, target, version);
    }
};

/// Disciplines, groups and domains differ in their base schemas and their word.
template <const BaseSchemas& family> struct TaxonKind : RefersToNothing, RefersToNoUnits, ConvertsByFormat {
    using Object = Taxon;
    using Body = TaxonSchema;

    static std::optional<Body> read(const SchemaDocument& document) { return readTaxonSchema(family, document); }
    template <class Visit> static void visitTexts(Body& body, const Visit& visit) {
        Parameters::visitTexts(body, visit);
    }
    template <class Scope> static Object resolve(std::string_view typeId, const Body& body, const Scope& /*scope*/) {
        return resolveTaxon(typeId, body);
    }
    template <class Scope> static Object validated(const Object& taxon, const Scope& /*scope*/) {
        return validatedTaxon(taxon);
    }
    static void write(const Object& taxon, JSON::Writer& target, DataModelVersion version) {
        writeTaxonSchema(family, taxon, target, version);
    }
};

struct DisciplineKind : TaxonKind<Vocabulary::discipline> {
    static constexpr std::string_view name = KindNames::discipline;
};
struct GroupKind : TaxonKind<Vocabulary::group> {
    static constexpr std::string_view name = KindNames::group;
};
struct DomainKind : TaxonKind<Vocabulary::domain> {
    static constexpr std::string_view name = KindNames::domain;
};

struct CategoryKind : RefersToNoUnits, ConvertsByFormat {
    using Object = Category;
    using Body = CategorySchema;
    static constexpr std::string_view name = KindNames::category;

    static std::optional<Body> read(const SchemaDocument& document) { return readCategorySchema(document); }
    template <class Visit> static void visitTexts(Body& body, const Visit& visit) {
        Parameters::visitTexts(body, visit);
    }
    template <class Visit> static void dependenciesOfSchema(Body& body, const Visit& visit) {
        dependenciesOfCategorySchema(body, visit);
    }
    static void addDependencies(const Object& category, DependencyCollector& result,
                                const Units::UnitsEngine& /*units*/, const StoreList<Category>& categories) {
        dependenciesOfCategory(category, result, categories);
    }
    template <class Scope> static Object resolve(std::string_view typeId, const Body& body, const Scope& scope) {
        return resolveCategory(typeId, body, scope.template stores<DisciplineKind>(),
                               scope.template stores<DomainKind>());
    }
    template <class Scope> static Object validated(const Object& category, const Scope& scope) {
        return validatedCategory(category, scope.template stores<DisciplineKind>(), scope.template stores<DomainKind>(),
                                 scope.template stores<CategoryKind>());
    }
    static void write(const Object& category, JSON::Writer& target, DataModelVersion version) {
        writeCategorySchema(category, target, version);
    }
};

struct SpecKind {
    using Object = Spec;
    using Body = SpecSchema;
    static constexpr std::string_view name = KindNames::spec;

    static std::optional<Body> read(const SchemaDocument& document) { return readSpecSchema(document); }
    template <class Visit> static void visitTexts(Body& body, const Visit& visit) {
        Parameters::visitTexts(body, visit);
    }
    template <class Visit> static void dependenciesOfSchema(Body& body, const Visit& visit) {
        dependenciesOfSpecSchema(body, visit);
    }
    template <class Visit> static void unitDependenciesOfSchema(Body& body, const Visit& visit) {
        unitDependenciesOfSpecSchema(body, visit);
    }
    static void addDependencies(const Object& spec, DependencyCollector& result, const Units::UnitsEngine& units,
                                const StoreList<Category>& /*categories*/) {
        dependenciesOfSpec(spec, result, units);
    }
    template <class Scope> static Object resolve(std::string_view typeId, Body body, Scope& scope) {
        return resolveSpec(typeId, std::move(body), scope.template stores<DisciplineKind>(), scope.unitFinder());
    }
    template <class Scope> static Object validated(const Object& spec, const Scope& scope) {
        return validatedSpec(spec, scope.template stores<DisciplineKind>(), scope.units());
    }
    static void write(const Object& spec, JSON::Writer& target, DataModelVersion version) {
        writeSpecSchema(spec, target, version);
    }
    static Conversion conversionOf(const Object& spec) { return conversionOfSpecItself(spec); }
};

struct ParameterKind : RefersToNoUnits {
    using Object = Parameter;
    using Body = ParameterSchema;
    static constexpr std::string_view name = KindNames::parameter;

    static std::optional<Body> read(const SchemaDocument& document) { return readParameterSchema(document); }
    template <class Visit> static void visitTexts(Body& body, const Visit& visit) {
        Parameters::visitTexts(body, visit);
    }
    template <class Visit> static void dependenciesOfSchema(Body& body, const Visit& visit) {
        dependenciesOfParameterSchema(body, visit);
    }
    static void addDependencies(const Object& parameter, DependencyCollector& result, const Units::UnitsEngine& units,
                                const StoreList<Category>& categories) {
        dependenciesOfParameter(parameter, result, units, categories);
    }
    template <class Scope> static Object resolve(std::string_view typeId, const Body& body, const Scope& scope) {
        return resolveParameter(typeId, body, storesOf(scope));
    }
    template <class Scope> static Object validated(const Object& parameter, const Scope& scope) {
        return validatedParameter(parameter, storesOf(scope));
    }
    static void write(const Object& parameter, JSON::Writer& target, DataModelVersion version) {
        writeParameterSchema(parameter, target, version);
    }
    static Conversion conversionOf(const Object& parameter) { return conversionOfSpec(parameter.getSpec()); }

private:
    template <class Scope> static ParameterStores storesOf(const Scope& scope) {
        return {scope.template stores<SpecKind>(),       scope.template stores<GroupKind>(),
                scope.template stores<CategoryKind>(),   scope.template stores<EnumerationKind>(),
                scope.template stores<FloatRangeKind>(), scope.template stores<IntRangeKind>(),
                scope.template stores<StringRangeKind>()};
    }
};

// Each kind is checked, so that what a description lacks is told here and not where an operation needs it.

/// A visitor of references, typeids or texts.
struct AnyVisit {
    template <class... Parts> void operator()(Parts&&... /*parts*/) const {}
};

template <class Kind> using ReadResult = decltype(Kind::read(std::declval<const SchemaDocument&>()));
template <class Kind>
using DependenciesResult = decltype(Kind::dependenciesOfSchema(std::declval<typename Kind::Body&>(), AnyVisit()));
template <class Kind>
using UnitDependenciesResult =
    decltype(Kind::unitDependenciesOfSchema(std::declval<typename Kind::Body&>(), AnyVisit()));
template <class Kind>
using VisitTextsResult = decltype(Kind::visitTexts(std::declval<typename Kind::Body&>(), AnyVisit()));
template <class Kind>
using AddDependenciesResult =
    decltype(Kind::addDependencies(std::declval<const typename Kind::Object&>(), std::declval<DependencyCollector&>(),
                                   std::declval<const Units::UnitsEngine&>(),
                                   std::declval<const StoreList<Category>&>()));
template <class Kind>
using ConversionResult = decltype(Kind::conversionOf(std::declval<const typename Kind::Object&>()));
template <class Kind>
using WriteResult = decltype(Kind::write(std::declval<const typename Kind::Object&>(), std::declval<JSON::Writer&>(),
                                         DataModelVersion()));

template <template <class> class Result, class Kind, class = void> struct Gives : std::false_type {};
template <template <class> class Result, class Kind>
struct Gives<Result, Kind, std::void_t<Result<Kind>>> : std::true_type {};

template <class Kind> constexpr bool isComplete() {
    static_assert(!Kind::name.empty(), "a kind needs the word that messages use for it: name");
    static_assert(Gives<ReadResult, Kind>::value, "a kind needs read(document), which gives an optional Body");
    static_assert(Gives<DependenciesResult, Kind>::value, "a kind needs dependenciesOfSchema(body, visit)");
    static_assert(Gives<UnitDependenciesResult, Kind>::value, "a kind needs unitDependenciesOfSchema(body, visit)");
    static_assert(Gives<VisitTextsResult, Kind>::value, "a kind needs visitTexts(body, visit)");
    static_assert(Gives<AddDependenciesResult, Kind>::value,
                  "a kind needs addDependencies(object, result, units, categories)");
    static_assert(Gives<ConversionResult, Kind>::value, "a kind needs conversionOf(object)");
    static_assert(Gives<WriteResult, Kind>::value, "a kind needs write(object, target, version)");
    return true;
}
template <class... Kinds> constexpr bool areComplete(KindList<Kinds...> /*kinds*/) {
    return (isComplete<Kinds>() && ...);
}

/// A document is of the first kind that accepts it.
using IntakeOrder = KindList<EnumerationKind, FloatRangeKind, IntRangeKind, StringRangeKind, DisciplineKind, GroupKind,
                             DomainKind, SpecKind, ParameterKind, CategoryKind>;

/// What a kind refers to stands before it: parameters refer to nearly everything.
using ResolutionOrder = KindList<EnumerationKind, FloatRangeKind, IntRangeKind, StringRangeKind, DisciplineKind,
                                 DomainKind, GroupKind, CategoryKind, SpecKind, ParameterKind>;

/// The order in which objects are copied from a context, and so in which of them a fault is reported first.
using ImportOrder = KindList<EnumerationKind, FloatRangeKind, IntRangeKind, StringRangeKind, DomainKind, CategoryKind,
                             DisciplineKind, SpecKind, GroupKind, ParameterKind>;

/// Where the order makes no difference; what there is most of comes first.
using AllKinds = KindList<ParameterKind, SpecKind, GroupKind, DisciplineKind, CategoryKind, EnumerationKind,
                          FloatRangeKind, IntRangeKind, StringRangeKind, DomainKind>;

static_assert(areComplete(AllKinds{}));
static_assert(IntakeOrder::isOrderOf(AllKinds{}) && ResolutionOrder::isOrderOf(AllKinds{}) &&
                  ImportOrder::isOrderOf(AllKinds{}),
              "an order that lacks a kind would lose its items");

} // namespace Parameters
