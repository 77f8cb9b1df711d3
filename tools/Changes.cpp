#include "Changes.h"

#include <Parameters/Defaults.h>

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <type_traits>
#include <utility>
#include <variant>

namespace Tool {

using namespace Parameters;

namespace {

std::string_view familyOf(std::string_view typeId) { return typeId.substr(0, typeId.rfind('-')); }

/// Whether both name the same, be it a built-in document in the version of another form.
bool isSame(const std::string& left, const std::string& right) {
    return left == right || (familyOf(left) == familyOf(right) && isBuiltIn(left) && isBuiltIn(right));
}

/// A value type as it is called in every form.
std::string nameOfType(const ValueTypeId& valueType) {
    struct Naming {
        std::string operator()(const std::string& name) const { return name; }
        std::string operator()(LegacyPrimitiveType type) const {
            static const std::array names = {std::string("any"),
                                             Defaults::BooleanPrimitiveType(),
                                             Defaults::IntegerPrimitiveType(),
                                             Defaults::FloatPrimitiveType(),
                                             Defaults::ReferencePrimitiveType(),
                                             Defaults::StringPrimitiveType()};
            return names.at(static_cast<std::size_t>(type));
        }
        std::string operator()(const AnyOf& anyOf) const { return "anything derived from " + anyOf.getBaseTypeId(); }
        std::string operator()(const OneOf& oneOf) const {
            return fmt::format("one of {}", fmt::join(oneOf.getTypeIds(), ", "));
        }
    };
    return std::visit(Naming{}, valueType);
}

/// What values a range allows, in words.
template <class Range> std::string limitsOf(const Range& range) {
    const std::string bottom = range.isBoundFromBottom() ? fmt::format("from {}", range.getBottomBoundary()) : "";
    const std::string top = range.isBoundFromTop() ? fmt::format("up to {}", range.getTopBoundary()) : "";
    return bottom.empty() && top.empty() ? "without limits" : bottom + (bottom.empty() || top.empty() ? "" : " ") + top;
}

/// The form of a string range, as the alternatives of its document's base.
struct TextRule {
    std::string_view form;
    std::string pattern;
    std::set<std::string> choices;
};

TextRule ruleOf(const StringRange& range) {
    if (const auto regex = range.getRegexStringRangeComponent()) {
        return {"matches a pattern", regex->getRegex(), {}};
    }
    if (const auto set = range.getSetStringRangeComponent()) {
        const auto values = set->getAllowedValues();
        return {"allows some texts", {}, {values.begin(), values.end()}};
    }
    return {"allows any text", {}, {}};
}

class Comparison {
public:
    std::vector<Change> takeChanges() { return std::move(changes_); }

    void add(std::string_view rule, std::string message) { changes_.push_back(changeBy(rule, std::move(message))); }

    /// Names and what else people read.
    void compareTexts(std::string_view rule, std::string_view noun, const std::string& before,
                      const std::string& after) {
        if (before != after) {
            add(rule, fmt::format("The {} is now \"{}\"; it was \"{}\".", noun, after, before));
        }
    }

    void operator()(const Taxon& before, const Taxon& after) { compareNames(before, after); }

    void operator()(const Units::Unit& before, const Units::Unit& after) {
        compareNames(before, after);
        compareReferences("changed-dimension", "dimension", before.getDimension().value_or("none"),
                          after.getDimension().value_or("none"));
    }

    void operator()(const Category& before, const Category& after) {
        compareNames(before, after);
        const auto major = before.getMajorCategoryComponent();
        const auto newMajor = after.getMajorCategoryComponent();
        if (major && newMajor) {
            compareReferences("changed-domain", "domain", major->getDomain().getTypeId(),
                              newMajor->getDomain().getTypeId());
            compareSets("changed-discipline", "changed-discipline", "discipline", typeIdsOf(major->getDisciplines()),
                        typeIdsOf(newMajor->getDisciplines()));
        } else if (!major && !newMajor) {
            compareReferences("changed-category", "parent category",
                              before.getSubCategoryComponent()->getParentCategory(),
                              after.getSubCategoryComponent()->getParentCategory());
        } else {
            add("changed-base",
                newMajor ? "The subcategory is now a major category." : "The major category is now a subcategory.");
        }
    }

    void operator()(const Enumeration& before, const Enumeration& after) {
        const auto values = after.getValues();
        std::map<std::string, std::int64_t> rest(values.begin(), values.end());
        for (const auto& [id, number] : before.getValues()) {
            const auto counterpart = rest.extract(id);
            if (!counterpart) {
                add("removed-choice", fmt::format("Item \"{}\" is removed.", id));
            } else if (counterpart.mapped() != number) {
                add("changed-number",
                    fmt::format("The number of item \"{}\" is now {}; it was {}.", id, counterpart.mapped(), number));
            }
        }
        for (const auto& [id, number] : rest) {
            add("added-choice", fmt::format("Item \"{}\" is added.", id));
        }
    }

    void operator()(const FloatRange& before, const FloatRange& after) { compareLimits(before, after); }
    void operator()(const IntRange& before, const IntRange& after) { compareLimits(before, after); }

    void operator()(const StringRange& before, const StringRange& after) {
        const TextRule rule = ruleOf(before);
        const TextRule newRule = ruleOf(after);
        if (rule.form != newRule.form) {
            const bool limitsNothing = newRule.form == ruleOf(StringRange()).form;
            const bool limitedNothing = rule.form == ruleOf(StringRange()).form;
            add(limitsNothing    ? "wider-range"
                : limitedNothing ? "narrower-range"
                                 : "changed-base",
                fmt::format("The range now {}; before it was one that {}.", newRule.form, rule.form));
        } else if (rule.pattern != newRule.pattern) {
            add("changed-pattern",
                fmt::format("The pattern is now \"{}\"; it was \"{}\".", newRule.pattern, rule.pattern));
        }
        if (!rule.choices.empty() && !newRule.choices.empty()) {
            compareSets("removed-choice", "added-choice", "choice", rule.choices, newRule.choices);
        }
    }

    void operator()(const Spec& before, const Spec& after) {
        compareNames(before, after);
        compareReferences("changed-discipline", "discipline", before.getDiscipline().getTypeId(),
                          after.getDiscipline().getTypeId());
        compareValueTypes(before.getValueTypeId(), after.getValueTypeId());
        static constexpr std::array contexts = {"single", "an array", "a map"};
        if (before.getContext() != after.getContext()) {
            add("changed-context",
                fmt::format("A value is now {}; it was {}.", contexts.at(static_cast<std::size_t>(after.getContext())),
                            contexts.at(static_cast<std::size_t>(before.getContext()))));
        }
        compareMeasures(before.getMeasurable(), after.getMeasurable());
    }

    void operator()(const Parameter& before, const Parameter& after) {
        compareNames(before, after);
        compareTexts("changed-description", "description", before.getDescription(), after.getDescription());
        compareTexts("changed-sample-text", "sample text", before.getSampleText(), after.getSampleText());
        if (before.isReadOnly() != after.isReadOnly()) {
            add(after.isReadOnly() ? "read-only-on" : "read-only-off",
                after.isReadOnly() ? "It is now read-only." : "It is no longer read-only.");
        }
        compareReferences("changed-group", "group", before.getGroup().getTypeId(), after.getGroup().getTypeId());
        compareReferences("changed-spec", "spec", before.getSpec().getTypeId(), after.getSpec().getTypeId());
        std::visit([this](const auto& range, const auto& newRange) { compareRanges(range, newRange); },
                   before.getRange(), after.getRange());
    }

private:
    template <class Object> void compareNames(const Object& before, const Object& after) {
        compareTexts("changed-name", "name", before.getName(), after.getName());
    }

    static std::set<std::string> typeIdsOf(const std::vector<Taxon>& taxa) {
        std::set<std::string> typeIds;
        std::transform(taxa.begin(), taxa.end(), std::inserter(typeIds, typeIds.end()),
                       [](const Taxon& taxon) { return taxon.getTypeId(); });
        return typeIds;
    }

    void compareReferences(std::string_view rule, std::string_view noun, const std::string& before,
                           const std::string& after) {
        if (!isSame(before, after)) {
            add(rule, fmt::format("The {} is now {}; it was {}.", noun, after, before));
        }
    }

    void compareSets(std::string_view removedRule, std::string_view addedRule, std::string_view noun,
                     const std::set<std::string>& before, const std::set<std::string>& after) {
        for (const std::string& each : before) {
            if (after.count(each) == 0) {
                add(removedRule, fmt::format("The {} \"{}\" is removed.", noun, each));
            }
        }
        for (const std::string& each : after) {
            if (before.count(each) == 0) {
                add(addedRule, fmt::format("The {} \"{}\" is added.", noun, each));
            }
        }
    }

    void compareValueTypes(const ValueTypeId& before, const ValueTypeId& after) {
        const std::string name = nameOfType(before);
        const std::string newName = nameOfType(after);
        const auto* choices = std::get_if<OneOf>(&before);
        const auto* newChoices = std::get_if<OneOf>(&after);
        if (choices != nullptr && newChoices != nullptr) {
            const std::vector<std::string>& oldTypeIds = choices->getTypeIds();
            const std::vector<std::string>& newTypeIds = newChoices->getTypeIds();
            compareSets("changed-value-type", "wider-value-type", "value type", {oldTypeIds.begin(), oldTypeIds.end()},
                        {newTypeIds.begin(), newTypeIds.end()});
        } else if (name != newName) {
            add("changed-value-type", fmt::format("The value type is now {}; it was {}.", newName, name));
        }
    }

    void compareMeasures(const std::optional<Measurable>& before, const std::optional<Measurable>& after) {
        const auto storageOf = [](const std::optional<Measurable>& measurable) {
            return measurable ? measurable->getStorageUnit().getTypeId() : std::string("none");
        };
        const auto applicableTo = [](const std::optional<Measurable>& measurable) {
            std::set<std::string> typeIds;
            if (measurable) {
                for (const Units::Unit& unit : measurable->getApplicableUnits()) {
                    typeIds.insert(unit.getTypeId());
                }
            }
            return typeIds;
        };
        compareReferences("changed-unit", "storage unit", storageOf(before), storageOf(after));
        compareSets("removed-unit", "added-unit", "applicable unit", applicableTo(before), applicableTo(after));
    }

    template <class Range> void compareLimits(const Range& before, const Range& after) {
        using Number = decltype(before.getBottomBoundary());
        using Limits = std::numeric_limits<Number>;
        const auto bottomOf = [](const Range& range) {
            return range.isBoundFromBottom() ? range.getBottomBoundary() : Limits::lowest();
        };
        const auto topOf = [](const Range& range) {
            return range.isBoundFromTop() ? range.getTopBoundary() : Limits::max();
        };
        const bool isNarrower = bottomOf(after) > bottomOf(before) || topOf(after) < topOf(before);
        const bool isWider = bottomOf(after) < bottomOf(before) || topOf(after) > topOf(before);
        if (isNarrower || isWider) {
            add(isNarrower ? "narrower-range" : "wider-range",
                fmt::format("The range is now {}; it was {}.", limitsOf(after), limitsOf(before)));
        }
    }

    void compareRanges(std::monostate /*before*/, std::monostate /*after*/) {}

    void compareRanges(const Category& before, const Category& after) {
        compareReferences("changed-category", "category", before.getTypeId(), after.getTypeId());
    }

    /// A range of its own typeid is compared there.
    template <class Range> void compareRanges(const Range& before, const Range& after) {
        const std::string typeId = before.getTypeId();
        const std::string newTypeId = after.getTypeId();
        if (typeId == newTypeId && !isBuiltIn(typeId)) {
            return;
        }
        const std::size_t known = changes_.size();
        (*this)(before, after);
        if (changes_.size() == known && !isSame(typeId, newTypeId)) {
            add("moved-range", fmt::format("The range is now {}; it was {}, with the same limits.", newTypeId, typeId));
        }
    }

    template <class Range, class NewRange> void compareRanges(const Range& before, const NewRange& after) {
        const bool concernsCategory = std::is_same_v<Range, Category> || std::is_same_v<NewRange, Category>;
        const std::string_view rule = concernsCategory                           ? "changed-category"
                                      : std::is_same_v<Range, std::monostate>    ? "narrower-range"
                                      : std::is_same_v<NewRange, std::monostate> ? "wider-range"
                                                                                 : "changed-range";
        add(rule, fmt::format("Values are now {}; they were {}.", allowedBy(after), allowedBy(before)));
    }

    // What values of a parameter are.
    static std::string allowedBy(std::monostate /*none*/) { return "not limited"; }
    static std::string allowedBy(const Category& category) { return "of category " + category.getTypeId(); }
    static std::string allowedBy(const Enumeration& enumeration) { return "items of " + enumeration.getTypeId(); }
    static std::string allowedBy(const FloatRange& range) { return "numbers " + limitsOf(range); }
    static std::string allowedBy(const IntRange& range) { return "integers " + limitsOf(range); }
    static std::string allowedBy(const StringRange& range) {
        return "texts of a range that " + std::string(ruleOf(range).form);
    }

    std::vector<Change> changes_;
};

} // namespace

const std::vector<ReportRule>& changeRules() {
    static const std::vector<ReportRule> rules = {
        {"removed-item", Level::Incompatible, "A typeid is no longer there."},
        {"refused-item", Level::Incompatible, "A document can no longer be loaded."},
        {"changed-kind", Level::Incompatible, "A typeid is of another kind."},
        {"changed-base", Level::Incompatible, "A category or a string range is of another form."},
        {"changed-value-type", Level::Incompatible, "The values of a spec are of another type, or of one type less."},
        {"changed-context", Level::Incompatible, "The values of a spec are single, arrays or maps, and were not."},
        {"changed-unit", Level::Incompatible, "The values of a spec are stored in another unit."},
        {"removed-unit", Level::Incompatible, "A unit no longer applies to a spec."},
        {"changed-dimension", Level::Incompatible, "A unit is of another dimension."},
        {"changed-spec", Level::Incompatible, "A parameter follows another spec."},
        {"changed-category", Level::Incompatible, "A parameter or a subcategory belongs to another category."},
        {"changed-group", Level::Incompatible, "A parameter belongs to another group."},
        {"changed-discipline", Level::Incompatible, "A spec or a category belongs to other disciplines."},
        {"changed-domain", Level::Incompatible, "A category belongs to another domain."},
        {"changed-range", Level::Incompatible, "The values of a parameter are limited in another way."},
        {"narrower-range", Level::Incompatible, "A range no longer holds some values."},
        {"changed-pattern", Level::Incompatible, "A string range has another pattern."},
        {"removed-choice", Level::Incompatible, "An enumeration or a string range has lost an item."},
        {"changed-number", Level::Incompatible, "An item of an enumeration has another number."},
        {"read-only-on", Level::Incompatible, "A parameter has become read-only."},
        {"added-item", Level::Compatible, "A typeid is new."},
        {"wider-value-type", Level::Compatible, "The values of a spec can be of one type more."},
        {"added-unit", Level::Compatible, "Another unit applies to a spec."},
        {"wider-range", Level::Compatible, "A range holds more values than before."},
        {"moved-range", Level::Compatible, "A parameter refers to another range with the same limits."},
        {"added-choice", Level::Compatible, "An enumeration or a string range has another item."},
        {"read-only-off", Level::Compatible, "A parameter is no longer read-only."},
        {"changed-name", Level::Texts, "The name is another one."},
        {"changed-description", Level::Texts, "The description of a parameter is another one."},
        {"changed-sample-text", Level::Texts, "The sample text of a parameter is another one."},
        {"changed-layout", Level::Layout, "Another text defines the same."},
    };
    return rules;
}

Change changeBy(std::string_view rule, std::string message) {
    const auto& rules = changeRules();
    const auto found =
        std::find_if(rules.begin(), rules.end(), [&](const ReportRule& each) { return each.name == rule; });
    return {&*found, std::move(message)};
}

std::vector<Change> changesOf(const std::string& typeId, const Catalog& oldCatalog, const Item& oldItem,
                              const Catalog& newCatalog, const Item& newItem) {
    if (oldItem.kind != newItem.kind) {
        return {changeBy("changed-kind",
                         fmt::format("The kind is now {}; it was {}.", newItem.kind->name, oldItem.kind->name))};
    }
    Comparison comparison;
    forEachKind([&](const auto& row) {
        using Row = std::decay_t<decltype(row)>;
        if (newItem.kind != &row.kind) {
            return;
        }
        if constexpr (std::is_same_v<Row, UnlistedKind>) {
            comparison.compareTexts("changed-name", "name", oldItem.name, newItem.name);
        } else {
            static_assert(std::is_invocable_v<Comparison&, const typename Row::Object&, const typename Row::Object&>,
                          "Comparison needs an overload for the objects of each kind.");
            comparison(row.get(oldCatalog.engine, typeId), row.get(newCatalog.engine, typeId));
        }
    });
    return comparison.takeChanges();
}

} // namespace Tool
