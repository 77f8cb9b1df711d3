#include "base/TextArena.h"
#include "diagnosis/DocumentWarnings.h"
#include "diagnosis/Places.h"
#include "diagnosis/Rules.h"
#include "diagnosis/UnitDocuments.h"
#include "engine/EngineImpl.h"
#include "specs/PrimitiveSpecs.h"
#include "specs/UnitFinder.h"

#include <Parameters/Diagnostics.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

namespace Parameters {

namespace {

/// What a document is, or what a reference asks for: the number of a kind of this library, or one of these.
using KindNumber = std::uint8_t;
/// A document of a unit or a dimension, whichever.
constexpr KindNumber unitsItem = AllKinds::size();
/// A reference to a unit.
constexpr KindNumber unit = unitsItem + 1;
/// A reference that names a value type, which need not be a document.
constexpr KindNumber valueType = unitsItem + 2;
/// A document that was refused before its kind was known.
constexpr KindNumber noKind = unitsItem + 3;

KindNumber kindNumberOf(std::string_view name) {
    KindNumber number = noKind;
    AllKinds::any([&](auto kind) {
        const bool isMeant = decltype(kind)::name == name;
        number = isMeant ? kindNumber<decltype(kind)> : number;
        return isMeant;
    });
    return number;
}

/// "a group", "an integer range"
std::string withArticle(KindNumber number) {
    std::string_view word = number == unit ? KindNames::unit : "item of the units library";
    if (number < unitsItem) {
        visitKind(number, [&](auto kind) { word = decltype(kind)::name; });
    }
    const bool isVowel = std::string_view("aeio").find(word.front()) != std::string_view::npos;
    return concat({isVowel ? "an " : "a ", word});
}

/// What is known of a document when it has been read.
struct DocumentEntry {
    std::string_view typeId;
    /// Where its references begin; they end where those of the next document do.
    std::size_t firstReference = 0;
    KindNumber kind = noKind;
    /// Of a category, whether it is a major one.
    bool isMajor = false;
    /// Of a spec, whether parameters with it have enumerations.
    bool isLegacyGeneral = false;
    bool hasErrors = false;
};

struct Reference {
    TypeIdKey target;
    std::uint32_t document;
    KindNumber kind;
};

/// Where a reference was met whose characters are not those of the text.
using PlacesOfReferences = std::map<std::size_t, ValuePlace>;

class Diagnosing {
public:
    Diagnosing(const std::vector<std::string_view>& texts, const EngineImpl& known, const DiagnosisOptions& options)
        : texts_(texts), known_(known), options_(options), factory_(observer_), units_(known.units),
          unitFinder_(units_) {
        for (const DiagnosticRule& rule : diagnosticRules()) {
            isEnabled_.push_back(rule.severity != Severity::Warning ||
                                 options.disabledRules.find(rule.name) == options.disabledRules.end());
        }
    }

    Diagnosis run() {
        entries_.reserve(texts_.size() + 1);
        for (std::size_t document = 0; document < texts_.size(); ++document) {
            read(document);
        }
        // The end of the last document's references.
        entries_.emplace_back().firstReference = references_.size();
        finishUnitDocuments();
        for (std::size_t document = 0; document < texts_.size(); ++document) {
            if (entries_[document].kind != unitsItem) {
                checkReferences(document);
            }
        }
        reportBlocked();
        const auto order = [](const Diagnostic& diagnostic) {
            return std::pair(diagnostic.document, diagnostic.severity == Severity::Warning);
        };
        auto& diagnostics = diagnosis_.diagnostics;
        std::stable_sort(diagnostics.begin(), diagnostics.end(),
                         [&](const auto& left, const auto& right) { return order(left) < order(right); });
        return std::move(diagnosis_);
    }

private:
    // Reading a document by itself.

    void read(std::size_t document) {
        text_.assign(texts_[document]);
        // What stands behind a NUL is not read.
        text_.resize(std::min(text_.find('\0'), text_.size()));
        observer_.clear();
        entries_.emplace_back().firstReference = references_.size();
        JSON::Scratch scratch;
        JSON::Document tree = JSON::parse(factory_, text_, &scratch);
        if (observer_.syntaxErrorOffset) {
            refuse(document, *observer_.syntaxErrorOffset);
            return;
        }
        const SchemaDocument schema = readSchemaDocument(std::move(tree));
        takeTypeId(document, schema);
        const bool isRead = IntakeOrder::any([&](auto kind) { return readBody<decltype(kind)>(document, schema); });
        if (isRead) {
            reportUnread(schema, observer_, suggester_);
        } else if (observer_.findings.empty()) {
            readForUnits(document, schema);
        }
        addFindings(document, schema.root);
    }

    /// Of a text that is no JSON. What is told of its typeid keeps others from missing it.
    void refuse(std::size_t document, std::size_t offset) {
        constexpr std::size_t placesSearched = 64;
        const std::string_view read = std::string_view(text_).substr(0, offset);
        for (const ValuePlace& place :
             placesIn(read, [](std::size_t number, std::size_t /*offset*/) { return number < placesSearched; })) {
            const std::string_view value = read.substr(place.offset, place.length);
            if (place.pointer == "/typeid" && value.size() > 2 && value.front() == '"' && value.back() == '"') {
                define(document, relocated(value.substr(1, value.size() - 2), document));
                break;
            }
        }
        Diagnostic& diagnostic = add(document, Rule::InvalidJson, observer_.findings.front().message);
        diagnostic.offset = offset;
    }

    /// Makes the typeid that of the document, unless another has it.
    bool define(std::size_t document, const TypeIdKey& typeId) {
        entries_[document].typeId = typeId.typeId;
        if (index_.contains(typeId)) {
            return false;
        }
        index_.insert(typeId, static_cast<std::uint32_t>(document));
        return true;
    }

    void takeTypeId(std::size_t document, const SchemaDocument& schema) {
        if (schema.typeId.empty()) {
            return;
        }
        const JSON member = schema.root.getMember(Frame::typeId);
        const TypeIdKey typeId(relocated(member.getStringView(), document));
        const bool isKnown = known_.primary.contains(typeId) || isBuiltInTypeId(typeId.typeId) ||
                             known_.units.isRegistered(schema.typeId);
        if (isKnown || !define(document, typeId)) {
            entries_[document].typeId = typeId.typeId;
            member.report(Rule::RepeatedTypeId,
                          concat({"Schema with typeid ", schema.typeId, " is already registered."}));
        }
    }

    template <class Kind> bool readBody(std::size_t document, const SchemaDocument& schema) {
        auto body = Kind::read(schema);
        if (!body) {
            return false;
        }
        entries_[document].kind = kindNumber<Kind>;
        Kind::dependenciesOfSchema(*body, [&](ReferenceTo target, const TypeIdKey& typeId) {
            if (!typeId.typeId.empty() && !target.isBuiltIn(typeId.typeId)) {
                refer(document, schema, typeId, kindNumberOf(target.kind));
            }
        });
        Kind::unitDependenciesOfSchema(*body, [&](const TypeIdKey& typeId) {
            if (!typeId.typeId.empty()) {
                refer(document, schema, typeId, unit);
            }
        });
        noteBody(document, schema, *body);
        if (observer_.findings.empty()) {
            reportOddBody(*body, schema, observer_);
        }
        reportOddFrame(schema, observer_, suggester_);
        return true;
    }

    template <class Body>
    void noteBody(std::size_t /*document*/, const SchemaDocument& /*schema*/, const Body& /*body*/) {}

    void noteBody(std::size_t document, const SchemaDocument& /*schema*/, const CategorySchema& body) {
        entries_[document].isMajor = std::holds_alternative<MajorCategorySchema>(body);
    }

    void noteBody(std::size_t document, const SchemaDocument& schema, const SpecSchema& body) {
        const char* const fault = faultOfValueType(body);
        // A property that is at fault has been told of.
        if (fault != nullptr && schema.properties.find(Frame::value) == nullptr) {
            schema.report(Rule::MissingProperty, fault);
        }
        const auto* complex = std::get_if<ComplexSpecSchema>(&body.shape);
        entries_[document].isLegacyGeneral =
            complex != nullptr && !complex->value && isExactly(body.baseSchema, Vocabulary::generalSpec.shortFrame);
        if (complex == nullptr || !complex->value) {
            return;
        }
        const JSON& property = *schema.properties.find(Frame::value);
        referToValueType(document, schema, property);
        for (const std::string_view key : {"anyOf", "oneOf"}) {
            const JSON types = property.getMember(key);
            for (std::uint32_t i = 0; types.isArray() && i < types.getSize(); ++i) {
                referToValueType(document, schema, types.getElement(i));
            }
        }
    }

    void referToValueType(std::size_t document, const SchemaDocument& schema, const JSON& json) {
        const JSON typeId = json.getMember(Frame::typeId);
        if (typeId.isString() && !typeId.getStringView().empty() && !isPrimitiveName(typeId.getStringView())) {
            refer(document, schema, typeId.getStringView(), valueType);
        }
    }

    void refer(std::size_t document, const SchemaDocument& schema, const TypeIdKey& target, KindNumber kind) {
        if (!isPartOf(target.typeId, text_)) {
            const auto places = placesOf(schema.root, {{{}, nullptr, target.typeId.data(), false, {}, {}}});
            placesOfReferences_.emplace(references_.size(), places.front());
        }
        TypeIdKey kept = target;
        kept.typeId = relocated(target.typeId, document);
        references_.push_back({kept, static_cast<std::uint32_t>(document), kind});
    }

    /// The same characters where they outlive the reading of the document.
    std::string_view relocated(std::string_view part, std::size_t document) {
        return isPartOf(part, text_)
                   ? texts_[document].substr(static_cast<std::size_t>(part.data() - text_.data()), part.size())
                   : arena_.add(part);
    }

    /// Of a document that is of none of this library's kinds.
    void readForUnits(std::size_t document, const SchemaDocument& schema) {
        UnitReading reading = readUnitDocument(text_);
        if (reading.refusal.empty()) {
            entries_[document].kind = unitsItem;
            schema.root.walk([&](const JSON::Node& node) {
                const bool isTypeId = node.object == schema.root.identity() && node.key == Frame::typeId;
                // A reference to the document itself is none that the units library waits for.
                if (!isTypeId &&
                    (node.text == schema.typeId || reading.references.count(std::string(node.text)) != 0)) {
                    refer(document, schema, node.text, unitsItem);
                }
            });
            unitDocuments_.push_back({document, schema.typeId, text_, std::move(reading.references)});
            return;
        }
        std::string base = nearestBase(schema.baseSchema, suggester_);
        const bool isMisspelt = !base.empty();
        observer_.findings.push_back({isMisspelt ? Rule::UnknownBase : Rule::RefusedByUnits, nullptr,
                                      isMisspelt ? schema.baseSchema.data() : nullptr, false,
                                      std::move(reading.refusal), std::move(base)});
    }

    // Telling where what was found stands.

    /// By finding.
    std::vector<ValuePlace> placesOf(const JSON& root, const std::vector<Finding>& findings) const {
        std::unordered_multimap<const void*, std::size_t> wanted;
        for (std::size_t i = 0; i < findings.size(); ++i) {
            const Finding& finding = findings[i];
            const void* const value = finding.characters != nullptr ? finding.characters : finding.identity;
            wanted.emplace(value != nullptr ? value : root.identity(), i);
        }
        // By number of a value in the order of the text.
        std::multimap<std::size_t, std::size_t> numbers;
        std::size_t count = 0;
        root.walk([&](const JSON::Node& node) {
            for (const void* const key : {node.identity, static_cast<const void*>(node.text.data())}) {
                const auto [first, last] = wanted.equal_range(key);
                std::for_each(first, last, [&](const auto& entry) { numbers.emplace(count, entry.second); });
            }
            ++count;
        });
        std::vector<std::size_t> met;
        const std::vector<ValuePlace> found = placesIn(text_, [&](std::size_t number, std::size_t /*offset*/) {
            const bool isWanted = numbers.find(number) != numbers.end();
            if (isWanted) {
                met.push_back(number);
            }
            return isWanted;
        });
        std::vector<ValuePlace> places(findings.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            const auto [first, last] = numbers.equal_range(met[i]);
            std::for_each(first, last, [&](const auto& entry) { places[entry.second] = found[i]; });
        }
        return places;
    }

    void addFindings(std::size_t document, const JSON& root) {
        auto& findings = observer_.findings;
        findings.erase(std::remove_if(findings.begin(), findings.end(),
                                      [&](const Finding& finding) { return !isEnabled(finding.rule); }),
                       findings.end());
        if (findings.empty()) {
            return;
        }
        std::vector<ValuePlace> places = placesOf(root, findings);
        for (std::size_t i = 0; i < findings.size(); ++i) {
            Finding& finding = findings[i];
            ValuePlace& place = places[i];
            if (finding.isOfName) {
                place.offset = place.nameOffset;
                place.length = place.nameLength;
            }
            add(document, finding.rule, std::move(finding.message), std::move(place)).suggestion =
                std::move(finding.suggestion);
        }
    }

    [[nodiscard]] bool isEnabled(Rule rule) const { return isEnabled_[static_cast<std::size_t>(rule)]; }

    Diagnostic& add(std::size_t document, Rule rule, std::string message, ValuePlace place = {}) {
        const DiagnosticRule& description = descriptionOf(rule);
        Diagnostic& diagnostic = diagnosis_.diagnostics.emplace_back();
        diagnostic.severity = description.severity;
        diagnostic.rule = description.name;
        diagnostic.document = document;
        diagnostic.offset = place.offset;
        diagnostic.length = place.length;
        diagnostic.pointer = std::move(place.pointer);
        diagnostic.typeId = entries_[document].typeId;
        diagnostic.message = std::move(message);
        DocumentEntry& entry = entries_[document];
        entry.hasErrors = entry.hasErrors || description.severity == Severity::Error;
        return diagnostic;
    }

    ValuePlace placeOf(std::size_t reference) {
        const auto known = placesOfReferences_.find(reference);
        if (known != placesOfReferences_.end()) {
            return known->second;
        }
        if (placedDocument_ != references_[reference].document) {
            placeReferencesOf(references_[reference].document);
        }
        return places_.at(offsetOf(reference));
    }

    /// Where a reference begins whose characters are those of its text: the quotation mark stands in front.
    [[nodiscard]] std::size_t offsetOf(std::size_t reference) const {
        const Reference& each = references_[reference];
        return static_cast<std::size_t>(each.target.typeId.data() - texts_[each.document].data()) - 1;
    }

    /// All at once, since a document may have very many.
    void placeReferencesOf(std::size_t document) {
        places_.clear();
        placedDocument_ = document;
        const std::size_t last = entries_[document + 1].firstReference;
        for (std::size_t i = entries_[document].firstReference; i < last; ++i) {
            if (placesOfReferences_.count(i) == 0) {
                places_.emplace(offsetOf(i), ValuePlace());
            }
        }
        const std::string_view text = texts_[document];
        const auto isWanted = [&](std::size_t /*number*/, std::size_t offset) { return places_.count(offset) != 0; };
        for (ValuePlace& place : placesIn(text.substr(0, text.find('\0')), isWanted)) {
            const std::size_t offset = place.offset;
            places_[offset] = std::move(place);
        }
    }

    // References.

    /// What is registered in the known engine under a typeid of this library: its kind, or noKind.
    [[nodiscard]] KindNumber kindInKnown(const TypeIdKey& typeId, KindNumber wanted) const {
        KindNumber found = noKind;
        for (const Registry* registry : {&known_.primary, &known_.imported}) {
            const ItemLocation* location = registry->index().find(typeId);
            if (location != nullptr && (found == noKind || location->kind == wanted)) {
                found = location->kind;
            }
        }
        return found;
    }

    [[nodiscard]] bool isMajorInKnown(const TypeIdKey& typeId) const {
        for (const Registry* registry : {&known_.primary, &known_.imported}) {
            const ItemLocation* location = registry->index().find(typeId);
            if (location == nullptr || location->kind != kindNumber<CategoryKind>) {
                continue;
            }
            const auto& store = registry->store<CategoryKind>();
            return location->isPending
                       ? std::holds_alternative<MajorCategorySchema>(*store.pending[location->position].body)
                       : isMajor(store.finished[location->position].object);
        }
        return false;
    }

    void checkReferences(std::size_t document) {
        const std::size_t last = entries_[document + 1].firstReference;
        for (std::size_t i = entries_[document].firstReference; i < last; ++i) {
            if (references_[i].kind == unit) {
                checkUnit(i);
            } else if (references_[i].kind == valueType) {
                checkValueType(i);
            } else {
                checkReference(i);
            }
        }
        if (isEnabled(Rule::OtherDimension)) {
            checkDimensions(document);
        }
        if (isEnabled(Rule::UnusedEnumeration)) {
            checkEnumeration(document);
        }
    }

    void checkReference(std::size_t reference) {
        const auto& [target, document, wanted] = references_[reference];
        const std::uint32_t* definer = index_.find(target);
        const KindNumber inKnown = kindInKnown(target, wanted);
        const KindNumber found = definer != nullptr && inKnown != wanted ? entries_[*definer].kind : inKnown;
        if (found == wanted) {
            const bool isParent = wanted == kindNumber<CategoryKind> && entries_[document].kind == wanted;
            const bool isOfDocument = definer != nullptr && entries_[*definer].kind == wanted;
            if (isParent && !(isOfDocument ? entries_[*definer].isMajor : isMajorInKnown(target))) {
                reportWrongKind(reference, parentNotMajorMessage(target.typeId, entries_[document].typeId));
            }
        } else if (found != noKind) {
            reportWrongKind(reference, notOfKind(reference, withArticle(found)));
        } else if (definer == nullptr && !(wanted == unitsItem && units_.isRegistered(std::string(target.typeId)))) {
            reportAbsent(reference);
        }
    }

    void checkUnit(std::size_t reference) {
        const TypeIdKey& target = references_[reference].target;
        if (unitFinder_.find(target) != nullptr) {
            return;
        }
        const std::uint32_t* definer = index_.find(target);
        const KindNumber found = definer != nullptr ? entries_[*definer].kind : kindInKnown(target, unit);
        if (found < unitsItem) {
            reportWrongKind(reference, notOfKind(reference, withArticle(found)));
        } else if (units_.isRegistered(std::string(target.typeId))) {
            reportWrongKind(reference, concat({target.typeId, " is of the units library, but no unit."}));
        } else if (definer == nullptr) {
            reportAbsent(reference);
        }
        // Otherwise its document is at fault, or leads to one that is.
    }

    /// Of a typeid that no document defines and that is not registered as what is wanted.
    void reportAbsent(std::size_t reference) {
        const auto& [target, document, wanted] = references_[reference];
        if (isBuiltInTypeId(target.typeId)) {
            reportWrongKind(reference, concat({target.typeId, " is built in, but cannot stand here."}));
        } else if (wanted != unit && units_.isRegistered(std::string(target.typeId))) {
            reportWrongKind(reference, notOfKind(reference, withArticle(unitsItem)));
        } else {
            add(document, Rule::MissingReference, concat({"No document defines ", target.typeId, "."}),
                placeOf(reference))
                .suggestion = suggestionFor(target.typeId, wanted);
        }
    }

    std::string notOfKind(std::size_t reference, std::string_view found) const {
        const Reference& each = references_[reference];
        return concat({each.target.typeId, " is ", found, ", not ", withArticle(each.kind), "."});
    }

    /// The message is empty where the documents are known to refer to each other.
    void reportWrongKind(std::size_t reference, std::string message) {
        const auto& [target, document, wanted] = references_[reference];
        std::vector<std::size_t> circle = circleFrom(document, target);
        if (circle.empty() && message.empty()) {
            // Too large to be walked through.
            circle = {document, *index_.find(target)};
        }
        if (circle.empty()) {
            add(document, Rule::WrongKind, std::move(message), placeOf(reference));
        } else {
            add(document, Rule::CircularReference, circleMessage(circle), placeOf(reference));
        }
    }

    /// The documents by which a reference leads back to the document that it stands in; empty if it does not. Larger
    /// circles than anybody makes are not searched for.
    std::vector<std::size_t> circleFrom(std::size_t document, const TypeIdKey& target) {
        constexpr std::size_t mostVisited = 1000;
        const std::uint32_t* definer = index_.find(target);
        if (definer == nullptr) {
            return {};
        }
        // From a document to the one that led to it.
        std::map<std::size_t, std::size_t> cameFrom = {{*definer, document}};
        std::vector<std::size_t> open = {*definer};
        while (!open.empty() && cameFrom.size() < mostVisited) {
            const std::size_t current = open.back();
            open.pop_back();
            if (current == document) {
                std::vector<std::size_t> circle;
                std::size_t step = current;
                do {
                    step = cameFrom.at(step);
                    circle.push_back(step);
                } while (step != document);
                return {circle.rbegin(), circle.rend()};
            }
            const std::size_t last = entries_[current + 1].firstReference;
            for (std::size_t i = entries_[current].firstReference; i < last && stepsLeft_ != 0; ++i) {
                --stepsLeft_;
                const std::uint32_t* next =
                    references_[i].kind != valueType ? index_.find(references_[i].target) : nullptr;
                if (next != nullptr && cameFrom.emplace(*next, current).second) {
                    open.push_back(*next);
                }
            }
        }
        return {};
    }

    std::string circleMessage(const std::vector<std::size_t>& circle) const {
        constexpr std::size_t mostNamed = 10;
        std::string message = "Circular reference: ";
        for (std::size_t i = 0; i < std::min(circle.size(), mostNamed); ++i) {
            message += i == 0 ? "" : ", ";
            message += entries_[circle[i]].typeId;
        }
        if (circle.size() > mostNamed) {
            message += " and " + std::to_string(circle.size() - mostNamed) + " more";
        }
        return message + ".";
    }

    void checkValueType(std::size_t reference) {
        const auto& [target, document, wanted] = references_[reference];
        const bool isKnown = !isEnabled(Rule::UnknownValueType) || index_.contains(target) ||
                             known_.isKnownHere(target) || units_.isRegistered(std::string(target.typeId));
        if (!isKnown) {
            add(document, Rule::UnknownValueType,
                concat({"Value type ", target.typeId, " is no primitive type, and no document defines it."}),
                placeOf(reference))
                .suggestion = suggestionFor(target.typeId, wanted);
        }
    }

    /// The storage unit comes behind those that are applicable.
    void checkDimensions(std::size_t document) {
        const std::size_t last = entries_[document + 1].firstReference;
        const auto dimensionOf = [&](std::size_t reference) -> std::optional<std::string> {
            const Units::Unit* found = unitFinder_.find(references_[reference].target);
            return found != nullptr ? found->getDimension() : std::nullopt;
        };
        std::optional<std::string> storage;
        for (std::size_t i = last; i-- > entries_[document].firstReference;) {
            if (references_[i].kind != unit) {
                continue;
            }
            const auto dimension = dimensionOf(i);
            if (!storage) {
                storage = dimension;
                if (!storage) {
                    return;
                }
            } else if (dimension && *dimension != *storage) {
                add(document, Rule::OtherDimension,
                    concat({"Unit ", references_[i].target.typeId, " is of dimension ", *dimension,
                            ", the storage unit of ", *storage, "."}),
                    placeOf(i));
            }
        }
    }

    /// An enumeration counts for specs of one value type alone.
    void checkEnumeration(std::size_t document) {
        const DocumentEntry& entry = entries_[document];
        if (entry.kind != kindNumber<ParameterKind>) {
            return;
        }
        std::optional<std::size_t> enumeration;
        std::optional<std::size_t> spec;
        for (std::size_t i = entry.firstReference; i < entries_[document + 1].firstReference; ++i) {
            if (references_[i].kind == kindNumber<EnumerationKind>) {
                enumeration = i;
            } else if (references_[i].kind == kindNumber<SpecKind>) {
                spec = i;
            }
        }
        if (!enumeration) {
            return;
        }
        if (spec && isSpecOfOtherValues(references_[*spec].target)) {
            add(document, Rule::UnusedEnumeration,
                concat({"The enumeration is not looked up, because spec ", references_[*spec].target.typeId,
                        " has another value type than the legacy general one."}),
                placeOf(*enumeration));
        }
    }

    /// Whether it is certain that values of the spec are none of an enumeration.
    [[nodiscard]] bool isSpecOfOtherValues(const TypeIdKey& spec) const {
        if (const std::uint32_t* definer = index_.find(spec)) {
            return entries_[*definer].kind == kindNumber<SpecKind> && !entries_[*definer].isLegacyGeneral;
        }
        const auto* item = known_.primary.find<SpecKind>(spec);
        if (item == nullptr) {
            return false;
        }
        const auto* type = std::get_if<LegacyPrimitiveType>(&item->object.getValueTypeId());
        return type == nullptr || *type != LegacyPrimitiveType::General;
    }

    std::string suggestionFor(std::string_view typeId, KindNumber wanted) {
        const auto [entry, isNew] = suggestions_.try_emplace({wanted, typeId});
        if (isNew) {
            entry->second = suggester_.nearest(typeId, candidatesFor(wanted));
        }
        return entry->second;
    }

    /// The typeids that may stand where something of the kind is asked for.
    const std::vector<std::string_view>& candidatesFor(KindNumber wanted) {
        const auto [entry, isNew] = candidates_.try_emplace(wanted);
        std::vector<std::string_view>& candidates = entry->second;
        if (!isNew) {
            return candidates;
        }
        const KindNumber kind = wanted == unit ? unitsItem : wanted;
        for (const DocumentEntry& each : entries_) {
            if (!each.typeId.empty() && (wanted == valueType || each.kind == kind || each.kind == noKind)) {
                candidates.push_back(each.typeId);
            }
        }
        for (const Registry* registry : {&known_.primary, &known_.imported}) {
            for (const auto& each : registry->index()) {
                if (wanted == valueType || each.value.kind == kind) {
                    candidates.push_back(each.typeId());
                }
            }
        }
        if (kind == unitsItem) {
            for (const auto& [typeId, each] : units_.getAllUnits()) {
                candidates.push_back(typeId);
            }
        }
        return candidates;
    }

    // Documents of the units library.

    void finishUnitDocuments() {
        try {
            units_.resolveSchemas();
        } catch (const Units::ValidationException&) {
            // What is pending in the known engine is at fault, not what is looked at: the copy does without it.
        }
        std::vector<UnitDocument> sound;
        for (UnitDocument& each : unitDocuments_) {
            const std::size_t last = entries_[each.document + 1].firstReference;
            for (std::size_t i = entries_[each.document].firstReference; i < last; ++i) {
                checkReference(i);
            }
            if (!entries_[each.document].hasErrors) {
                sound.push_back(std::move(each));
            }
        }
        for (const UnitFault& fault : finishUnits(units_, sound)) {
            const std::size_t reference = entries_[fault.document].firstReference;
            const std::size_t count = entries_[fault.document + 1].firstReference - reference;
            if (count == 1 && !fault.message.empty()) {
                // What it refers to is there, so that only its kind can be wrong.
                reportWrongKind(reference, concat({references_[reference].target.typeId,
                                                   " is of another kind than its place asks for."}));
            } else if (count != 0) {
                reportWrongKind(reference, fault.message);
            } else {
                add(fault.document, Rule::RefusedByUnits, fault.message);
            }
        }
    }

    // Documents that lead to others with errors.

    /// Why a document cannot be loaded: the reference that leads on, and the document with the errors.
    struct Blockade {
        std::size_t reference;
        std::size_t cause;
    };

    void reportBlocked() {
        if (std::none_of(entries_.begin(), entries_.end(), [](const auto& entry) { return entry.hasErrors; })) {
            return;
        }
        // By document the references to it.
        std::vector<std::vector<std::size_t>> referrers(texts_.size());
        for (std::size_t i = 0; i < references_.size(); ++i) {
            const std::uint32_t* definer =
                references_[i].kind != valueType ? index_.find(references_[i].target) : nullptr;
            if (definer != nullptr) {
                referrers[*definer].push_back(i);
            }
        }
        std::vector<std::optional<Blockade>> blockades(texts_.size());
        std::vector<std::size_t> open;
        for (std::size_t document = 0; document < texts_.size(); ++document) {
            if (entries_[document].hasErrors) {
                open.push_back(document);
            }
        }
        for (std::size_t next = 0; next < open.size(); ++next) {
            const std::size_t target = open[next];
            const std::size_t cause = blockades[target] ? blockades[target]->cause : target;
            for (const std::size_t reference : referrers[target]) {
                const std::size_t document = references_[reference].document;
                if (!entries_[document].hasErrors && !blockades[document]) {
                    blockades[document] = Blockade{reference, cause};
                    open.push_back(document);
                }
            }
        }
        for (std::size_t document = 0; document < texts_.size(); ++document) {
            if (blockades[document]) {
                reportBlocked(document, *blockades[document]);
            }
        }
    }

    void reportBlocked(std::size_t document, const Blockade& blockade) {
        ++diagnosis_.blocked;
        if (!options_.listsBlocked) {
            return;
        }
        const TypeIdKey& target = references_[blockade.reference].target;
        const bool isCause = entries_[*index_.find(target)].hasErrors;
        Diagnostic& diagnostic = add(document, Rule::Blocked,
                                     concat({"Not loaded: ", target.typeId, ", which it references, ",
                                             isCause ? "has errors." : "is not loaded either."}),
                                     placeOf(blockade.reference));
        diagnostic.cause = entries_[blockade.cause].typeId;
    }

    const std::vector<std::string_view>& texts_;
    const EngineImpl& known_;
    const DiagnosisOptions& options_;
    /// By rule.
    std::vector<bool> isEnabled_;
    Suggester suggester_;

    // Of the document that is being read.

    /// A copy of its text, which ends in a NUL.
    std::string text_;
    DocumentObserver observer_;
    ObservedFactory factory_;

    // Of all documents that have been read.

    std::vector<DocumentEntry> entries_;
    /// Their positions by typeid, of several with one typeid that of the first.
    TypeIdMap<std::uint32_t> index_;
    /// In the order of the documents.
    std::vector<Reference> references_;
    PlacesOfReferences placesOfReferences_;
    /// Those of the other references of one document, by offset.
    std::unordered_map<std::size_t, ValuePlace> places_;
    std::size_t placedDocument_ = static_cast<std::size_t>(-1);
    /// How many references may still be followed in search of circles, so that the search takes no longer than reading.
    std::size_t stepsLeft_ = 5'000'000;
    /// Typeids whose characters are not those of a text.
    TextArena arena_;
    std::vector<UnitDocument> unitDocuments_;
    /// A copy of the known units engine, where those of the documents are finished.
    Units::UnitsEngine units_;
    UnitFinder unitFinder_;

    std::map<KindNumber, std::vector<std::string_view>> candidates_;
    std::map<std::pair<KindNumber, std::string_view>, std::string> suggestions_;
    Diagnosis diagnosis_;
};

} // namespace

Diagnosis diagnose(const std::vector<std::string_view>& texts, const ParametersEngine& known,
                   const DiagnosisOptions& options) {
    return Diagnosing(texts, Internals::implOf(known), options).run();
}

} // namespace Parameters
