#include "diagnosis/DocumentWarnings.h"

#include "base/Text.h"
#include "schema/JSONWriter.h"
#include "specs/PrimitiveSpecs.h"
#include "taxonomy/NumericRangeData.h"
#include "taxonomy/StringRangeData.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <type_traits>
#include <utility>
#include <vector>

namespace Parameters {

namespace {

using AskedMember = DocumentObserver::AskedMember;

/// Orders pointers of whatever objects, which the operator does not.
constexpr std::less<> isBefore;

/// The lookups of members that readers have made, by object.
class Lookups {
public:
    explicit Lookups(std::vector<AskedMember>& asked) : asked_(asked) {
        std::sort(asked.begin(), asked.end(), [](const AskedMember& left, const AskedMember& right) {
            return left.object == right.object ? isBefore(left.found, right.found)
                                               : isBefore(left.object, right.object);
        });
    }

    /// Whether every member of every object that was looked into has been found.
    [[nodiscard]] bool haveFoundAll() const {
        std::size_t found = 0;
        std::size_t all = 0;
        const AskedMember* last = nullptr;
        for (const AskedMember& each : asked_) {
            const bool isSameObject = last != nullptr && last->object == each.object;
            all += isSameObject ? 0 : each.size;
            found += each.found != nullptr && !(isSameObject && last->found == each.found) ? 1 : 0;
            last = &each;
        }
        return found == all;
    }

    /// The lookups in one object.
    [[nodiscard]] std::pair<const AskedMember*, const AskedMember*> in(const void* object) const {
        struct ByObject {
            bool operator()(const AskedMember& asked, const void* other) const { return isBefore(asked.object, other); }
            bool operator()(const void* other, const AskedMember& asked) const { return isBefore(other, asked.object); }
        };
        const AskedMember* const first = asked_.data();
        return std::equal_range(first, first + asked_.size(), object, ByObject());
    }

private:
    const std::vector<AskedMember>& asked_;
};

/// The member was not found by any of the lookups in its object.
Finding findingOfUnread(const JSON::Node& node, const AskedMember* first, const AskedMember* last,
                        Suggester& suggester) {
    Finding finding{Rule::UnknownMember, node.identity, nullptr, true, {}, {}};
    if (std::any_of(first, last, [&](const AskedMember& asked) { return asked.key == node.key; })) {
        finding.rule = Rule::RepeatedName;
        finding.message = concat({"Member \"", node.key, "\" is given more than once; only the first counts."});
        return finding;
    }
    std::vector<std::string_view> candidates;
    for (const AskedMember* asked = first; asked != last; ++asked) {
        if (asked->found == nullptr) {
            candidates.push_back(asked->key);
        }
    }
    finding.message = concat({"Member \"", node.key, "\" is unknown and ignored."});
    finding.suggestion = suggester.nearest(node.key, candidates);
    return finding;
}

/// What is in entries that are unread as a whole is not reported for itself.
void reportUnreadMembers(const JSON& root, const std::set<const void*>& unreadEntries, DocumentObserver& observer,
                         Suggester& suggester) {
    const Lookups lookups(observer.askedMembers);
    if (lookups.haveFoundAll()) {
        return;
    }
    root.walk([&](const JSON::Node& node) {
        if (node.object == nullptr || unreadEntries.count(node.object) != 0) {
            return;
        }
        const auto [first, last] = lookups.in(node.object);
        const bool isUnread = first != last && std::none_of(first, last, [&](const AskedMember& asked) {
                                  return asked.found == node.identity;
                              });
        if (isUnread) {
            observer.findings.push_back(findingOfUnread(node, first, last, suggester));
        }
    });
}

/// A document that has nothing but its base.
std::string emptyDocument(std::string_view base, bool isFull) {
    JSON::Writer writer = JSON::Writer::createDocument();
    if (isFull) {
        writer.addMember(Frame::schemaSpecification, Frame::specificationMarker);
    }
    writer.addMember(Frame::typeId, Frame::typeId);
    writer.addArray(Frame::inherits, [&] { writer.addElement(base); });
    return writer.toString();
}

using Ids = std::set<std::string_view>;

/// By section the ids that the readers of any form ask for.
const std::map<std::string_view, Ids>& idsOfAllForms() {
    static const auto ids = [] {
        std::map<std::string_view, Ids> all;
        for (const std::string_view base : Vocabulary::documentBases) {
            for (const bool isFull : {false, true}) {
                const std::string text = emptyDocument(base, isFull);
                DocumentObserver observer;
                const ObservedFactory factory(observer);
                const SchemaDocument document = readSchemaDocument(factory, text);
                IntakeOrder::any([&](auto kind) { return decltype(kind)::read(document).has_value(); });
                for (const auto& entry : observer.askedEntries) {
                    all[entry.section].insert(entry.id);
                }
            }
        }
        return all;
    }();
    return ids;
}

bool isKnownToOtherForms(std::string_view section, std::string_view id) {
    const auto ids = idsOfAllForms().find(section);
    return ids != idsOfAllForms().end() && ids->second.count(id) != 0;
}

/// How messages call an entry of a section.
std::string_view wordFor(std::string_view section) {
    return section == Frame::constants ? "Constant" : section == Frame::properties ? "Property" : "Item";
}

Finding findingOfUnread(std::string_view section, std::string_view id, const std::vector<std::string_view>& asked,
                        Suggester& suggester) {
    Finding finding{Rule::IgnoredConstant, nullptr, id.data(), false, {}, {}};
    if (section == Frame::constants && isKnownToOtherForms(section, id)) {
        finding.message = concat({"Constant \"", id, "\" is ignored in documents of this base."});
        return finding;
    }
    finding.rule = section == Frame::constants ? Rule::UnknownConstant : Rule::UnknownProperty;
    finding.message = concat({wordFor(section), " \"", id, "\" is unknown and ignored."});
    finding.suggestion = suggester.nearest(id, asked);
    return finding;
}

void reportUnreadEntries(std::string_view section, const SchemaMembers& members, std::set<const void*>& unreadEntries,
                         DocumentObserver& observer, Suggester& suggester) {
    if (members.empty()) {
        return;
    }
    Ids found;
    std::vector<std::string_view> missing;
    for (const auto& entry : observer.askedEntries) {
        if (entry.section != section) {
            continue;
        }
        if (entry.isFound) {
            found.insert(entry.id);
        } else {
            missing.push_back(entry.id);
        }
    }
    for (const SchemaMember& member : members) {
        if (found.count(member.id) == 0) {
            unreadEntries.insert(member.json.identity());
            observer.findings.push_back(findingOfUnread(section, member.id, missing, suggester));
        }
    }
}

bool endsInVersion(std::string_view typeId) {
    // Backwards: three numbers with full stops between them and a hyphen in front.
    for (const char separator : {'.', '.', '-'}) {
        const std::size_t last = typeId.find_last_not_of("0123456789");
        if (last == std::string_view::npos || last + 1 == typeId.size() || typeId[last] != separator) {
            return false;
        }
        typeId = typeId.substr(0, last);
    }
    return true;
}

/// What is odd about a range with boundaries. It says so of its document, or of its inline object.
template <class Range>
void reportOddRange(bool fromBottom, bool fromTop, typename NumericRangeFamily<Range>::Number bottom,
                    typename NumericRangeFamily<Range>::Number top, const std::function<JSON(std::string_view)>& find,
                    const void* whole, DocumentObserver& observer) {
    const auto requireBoundary = [&](bool isFlagged, std::string_view flag, std::string_view key) {
        if (isFlagged && !find(key).exists()) {
            observer.findings.push_back(
                {Rule::MissingBoundary,
                 find(flag).identity(),
                 nullptr,
                 false,
                 concat({"The range says that it has a boundary, but \"", key, "\" is missing and counts as 0."}),
                 {}});
        }
    };
    requireBoundary(fromBottom, fromBottomKey, bottomBoundaryKey);
    requireBoundary(fromTop, fromTopKey, topBoundaryKey);
    if (fromBottom && fromTop && top < bottom) {
        const JSON boundary = find(topBoundaryKey);
        observer.findings.push_back({Rule::CrossedBoundaries,
                                     boundary.exists() ? boundary.identity() : whole,
                                     nullptr,
                                     false,
                                     "The upper boundary of the range is below the lower, so that it holds nothing.",
                                     {}});
    }
}

/// Whether the pattern can be compiled. Long ones are taken as they are: compiling recurses and may take a while.
bool isPattern(const std::string& pattern) {
    constexpr std::size_t longestPattern = 1000;
    if (pattern.size() > longestPattern) {
        return true;
    }
    try {
        static_cast<void>(std::regex(pattern));
        return true;
    } catch (const std::regex_error& error) {
        using namespace std::regex_constants;
        return error.code() == error_space || error.code() == error_complexity || error.code() == error_stack;
    }
}

void reportOddPattern(const std::string& pattern, const void* identity, DocumentObserver& observer) {
    if (!isPattern(pattern)) {
        observer.findings.push_back({Rule::InvalidPattern,
                                     identity,
                                     nullptr,
                                     false,
                                     concat({"\"", pattern, "\" is no regular expression."}),
                                     {}});
    }
}

/// The "value" of the range constant of a parameter.
JSON inlineValueOf(const SchemaDocument& document) {
    return document.constants.find(rangeKey)->getMember(Frame::value);
}

} // namespace

void reportUnread(const SchemaDocument& document, DocumentObserver& observer, Suggester& suggester) {
    std::set<const void*> unreadEntries;
    const auto reportEntries = [&](std::string_view section, const SchemaMembers& members) {
        reportUnreadEntries(section, members, unreadEntries, observer, suggester);
    };
    reportEntries(Frame::constants, document.constants);
    reportEntries(Frame::properties, document.properties);
    reportEntries(Frame::enumItems, document.enumItems);
    reportUnreadMembers(document.root, unreadEntries, observer, suggester);
}

std::string nearestBase(std::string_view base, Suggester& suggester) {
    static const std::vector<std::string_view> bases(Vocabulary::documentBases.begin(),
                                                     Vocabulary::documentBases.end());
    return suggester.nearest(base, bases);
}

void reportOddFrame(const SchemaDocument& document, DocumentObserver& observer, Suggester& suggester) {
    const auto& bases = Vocabulary::documentBases;
    if (!document.baseSchema.empty() && std::find(bases.begin(), bases.end(), document.baseSchema) == bases.end()) {
        observer.findings.push_back({Rule::UnknownBaseVersion, nullptr, document.baseSchema.data(), false,
                                     concat({"Base ", document.baseSchema, " is of no known version."}),
                                     nearestBase(document.baseSchema, suggester)});
    }
    if (!document.typeId.empty() && !endsInVersion(document.typeId)) {
        observer.findings.push_back(
            {Rule::TypeIdWithoutVersion,
             document.root.getMember(Frame::typeId).identity(),
             nullptr,
             false,
             concat({"Typeid ", document.typeId, " does not end in a version, such as -1.0.0."}),
             {}});
    }
}

void reportOddBody(const EnumerationSchema& body, const SchemaDocument& document, DocumentObserver& observer) {
    // Equal numbers stand side by side: by an item the one before it.
    std::map<std::string_view, std::string_view> repeated;
    const auto& values = body.values;
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i - 1].second == values[i].second) {
            repeated.emplace(values[i].first, values[i - 1].first);
        }
    }
    const auto& items =
        document.schemaFormat == Units::SchemaFormat::LumarDataSchema ? document.enumItems : document.properties;
    for (const SchemaMember& item : items) {
        const auto found = repeated.find(item.id);
        if (found != repeated.end()) {
            observer.findings.push_back(
                {Rule::RepeatedNumber,
                 item.json.getMember(Frame::value).identity(),
                 nullptr,
                 false,
                 concat({"Items \"", found->second, "\" and \"", item.id, "\" have the same number."}),
                 {}});
        }
    }
}

template <class Range>
void reportOddBody(const NumericRangeSchema<Range>& body, const SchemaDocument& document, DocumentObserver& observer) {
    const auto find = [&](std::string_view key) {
        const JSON* constant = document.constants.find(key);
        return constant != nullptr ? *constant : document.root.getMember({});
    };
    reportOddRange<Range>(body.fromBottom, body.fromTop, body.bottomBoundary, body.topBoundary, find,
                          document.root.identity(), observer);
}
template void reportOddBody(const NumericRangeSchema<FloatRange>& body, const SchemaDocument& document,
                            DocumentObserver& observer);
template void reportOddBody(const NumericRangeSchema<IntRange>& body, const SchemaDocument& document,
                            DocumentObserver& observer);

void reportOddBody(const StringRangeSchema& body, const SchemaDocument& document, DocumentObserver& observer) {
    const auto* regex = std::get_if<RegexStringRangeComponent>(&body.component);
    const JSON* constant = regex != nullptr ? document.constants.find(regexKey) : nullptr;
    if (constant != nullptr) {
        reportOddPattern(StringRangeInternals::regexOf(*regex), constant->identity(), observer);
    }
}

void reportOddBody(const ParameterSchema& body, const SchemaDocument& document, DocumentObserver& observer) {
    if (std::holds_alternative<EnumerationReference>(body.range) &&
        document.schemaFormat != Units::SchemaFormat::PropertySets) {
        observer.findings.push_back(
            {Rule::UnusedEnumeration,
             document.properties.find(Frame::value)->identity(),
             nullptr,
             false,
             "Hosts look an enumeration up in documents without \"schemaSpecification\" only; here \"data\" names what "
             "values are.",
             {}});
    }
    std::visit(
        [&](const auto& range) {
            using Reference = std::decay_t<decltype(range)>;
            if constexpr (std::is_same_v<Reference, RangeConstant<StringRange>>) {
                if (range.inlineRange) {
                    const auto& data = Internals::dataOf(*range.inlineRange);
                    if (const auto* regex = std::get_if<RegexStringRangeComponent>(&data.component)) {
                        reportOddPattern(StringRangeInternals::regexOf(*regex),
                                         inlineValueOf(document).getMember(regexKey).identity(), observer);
                    }
                }
            } else if constexpr (std::is_same_v<Reference, RangeConstant<FloatRange>> ||
                                 std::is_same_v<Reference, RangeConstant<IntRange>>) {
                if (range.inlineRange) {
                    const auto& data = Internals::dataOf(*range.inlineRange);
                    const JSON value = inlineValueOf(document);
                    reportOddRange<std::decay_t<decltype(*range.inlineRange)>>(
                        data.fromBottom, data.fromTop, data.bottomBoundary, data.topBoundary,
                        [&](std::string_view key) { return value.getMember(key); }, value.identity(), observer);
                }
            }
        },
        body.range);
}

} // namespace Parameters
