#pragma once

#include "engine/KindList.h"
#include "schema/Conversion.h"
#include "taxonomy/TaxonData.h"
#include "taxonomy/TaxonSchema.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Parameters {

// One description a kind: everything that the engine must know of it. The engine's operations are templates over these,
// and the lists at the end are the orders in which they treat the kinds.
//
// A description has
//   Object, Body     the finished value class, and what a document is between registration and resolution
//   name             the kind's word in messages
//   read             body of a document, or no value if the document is of another kind
//   dependenciesOfSchema, unitDependenciesOfSchema
//                    typeids that a body refers to here and in the units library, as views into the body
//   resolve          object of a body; scope tells where its references may be found
//   validated        object to store for one that a caller built
//   write            document of an object for a version
//   conversionOf     versions in which an object can be represented

/// The kinds that refer to nothing.
struct WithoutReferences {
    template <class Body> static TypeIdViews dependenciesOfSchema(const Body& /*body*/) { return {}; }
    template <class Body> static TypeIdViews unitDependenciesOfSchema(const Body& /*body*/) { return {}; }
};

/// Disciplines, groups and domains differ in their base schemas and their word.
template <const BaseSchemas& family> struct TaxonKind : WithoutReferences {
    using Object = Taxon;
    using Body = TaxonSchema;

    static std::optional<Body> read(const SchemaDocument& document) { return readTaxonSchema(family, document); }
    template <class Scope> static Object resolve(const std::string& typeId, Body body, const Scope& /*scope*/) {
        return resolveTaxon(typeId, std::move(body));
    }
    template <class Scope> static Object validated(const Object& taxon, const Scope& /*scope*/) {
        return validatedTaxon(taxon);
    }
    static void write(const Object& taxon, JSON& target, DataModelVersion version) {
        writeTaxonSchema(family, taxon, target, version);
    }
    static Conversion conversionOf(const Object& taxon) { return conversionByFormat(taxon.getSchemaFormat()); }
};

struct DisciplineKind : TaxonKind<Vocabulary::discipline> {
    static constexpr std::string_view name = "discipline";
};
struct GroupKind : TaxonKind<Vocabulary::group> {
    static constexpr std::string_view name = "group";
};
struct DomainKind : TaxonKind<Vocabulary::domain> {
    static constexpr std::string_view name = "domain";
};

using AllKinds = KindList<DisciplineKind, GroupKind, DomainKind>;

/// A document is of the first kind that accepts it.
using IntakeOrder = KindList<DisciplineKind, GroupKind, DomainKind>;

/// What a kind refers to stands before it.
using ResolutionOrder = KindList<DisciplineKind, DomainKind, GroupKind>;

} // namespace Parameters
