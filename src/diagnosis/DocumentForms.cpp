#include "base/Text.h"
#include "diagnosis/DocumentObserver.h"
#include "engine/Kinds.h"
#include "schema/SchemaDocument.h"
#include "schema/Vocabulary.h"

#include <Parameters/DocumentForms.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace Parameters {

namespace {

/// A typeid of no meaning, and the id of no entry.
constexpr std::string_view probe = "probe-1.0.0";

/// Deeper places are not looked into.
constexpr std::size_t deepest = 7;

std::string quoted(std::string_view text) { return concat({"\"", text, "\""}); }

std::string member(std::string_view name, std::string_view value) { return concat({quoted(name), ":", value}); }

/// A place in a document: the steps that lead there, and the text with a value in that place.
struct Place {
    /// Names of members; nothing stands for the first element of an array.
    std::vector<std::optional<std::string>> path;
    std::function<std::string(const std::string& value)> text;

    [[nodiscard]] Place element() const {
        Place place{path, [text = text](const std::string& value) { return text("[" + value + "]"); }};
        place.path.emplace_back();
        return place;
    }
    /// A member, with others beside it.
    [[nodiscard]] Place memberOf(const std::string& name, const std::string& others) const {
        Place place{path, [text = text, name, others](const std::string& value) {
                        return text(concat({"{", others, others.empty() ? "" : ",", member(name, value), "}"}));
                    }};
        place.path.emplace_back(name);
        return place;
    }
};

/// What the readers make of a document, as far as one place goes.
struct Reading {
    std::string_view kind;
    /// Of the value itself, not of what is in it.
    std::size_t faults = 0;
    /// Those of them that are members which are missing.
    std::size_t missing = 0;
    /// In the whole document.
    std::size_t allFaults = 0;
    /// Names of members that the value was asked for.
    std::set<std::string> asked;
    /// As what the probe is looked up.
    std::set<std::string> kinds;
    /// Ids of entries that were asked for, by section.
    std::map<std::string_view, std::set<std::string>> ids;
};

JSON valueAt(const JSON& root, const Place& place) {
    JSON value = root;
    for (const auto& step : place.path) {
        value = step ? value.getMember(*step) : value.getElement(0);
    }
    return value;
}

Reading read(const Place& place, const std::string& value) {
    const std::string text = place.text(value);
    DocumentObserver observer;
    const ObservedFactory factory(observer);
    SchemaDocument document = readSchemaDocument(factory, text);
    Reading reading;
    IntakeOrder::any([&](auto kind) {
        using Kind = decltype(kind);
        auto body = Kind::read(document);
        if (!body) {
            return false;
        }
        reading.kind = Kind::name;
        const auto note = [&](std::string_view name, const TypeIdKey& typeId) {
            if (typeId.typeId == probe) {
                reading.kinds.emplace(name);
            }
        };
        Kind::dependenciesOfSchema(*body,
                                   [&](ReferenceTo target, const TypeIdKey& typeId) { note(target.kind, typeId); });
        Kind::unitDependenciesOfSchema(*body, [&](const TypeIdKey& typeId) { note(KindNames::unit, typeId); });
        return true;
    });
    // What looks for the value asks for members, too.
    const std::vector<DocumentObserver::AskedMember> asked = observer.askedMembers;
    const void* const identity = valueAt(document.root, place).identity();
    for (const Finding& finding : observer.findings) {
        reading.faults += finding.identity == identity ? 1 : 0;
        reading.missing += finding.identity == identity && finding.rule == Rule::MissingMember ? 1 : 0;
    }
    reading.allFaults = observer.findings.size();
    for (const auto& each : asked) {
        if (each.object == identity) {
            reading.asked.emplace(each.key);
        }
    }
    for (const auto& entry : observer.askedEntries) {
        reading.ids[entry.section].emplace(entry.id);
    }
    return reading;
}

struct Trial {
    std::string_view type;
    std::string_view value;
};

constexpr std::array scalarTrials = {
    Trial{"null", "null"},
    Trial{"boolean", "true"},
    Trial{"integer", "7"},
    Trial{"number", "7.5"},
};

/// Strings that may be all that a place takes.
constexpr std::array<std::string_view, 7> words = {
    "", "single", "array", "map", Frame::specificationMarker, Frame::componentType, Frame::enumType,
};

/// What the members of an object are tried with, beside them: typeids decide on what else is read.
std::vector<std::string> surroundings(const Place& place) {
    const std::string typeId = member(Frame::typeId, quoted(probe));
    std::vector<std::string> all = {"", typeId};
    const Reading usual = read(place, "{" + typeId + "}");
    if (usual.faults != 0 || usual.asked.count(std::string(Frame::typeId)) == 0) {
        return all;
    }
    for (const std::string_view builtIn : Vocabulary::builtInTypeIds) {
        all.push_back(member(Frame::typeId, quoted(builtIn)));
        const Reading reading = read(place, "{" + all.back() + "}");
        if (reading.asked == usual.asked && reading.faults == usual.faults && reading.allFaults == usual.allFaults) {
            all.pop_back();
        }
    }
    return all;
}

struct Tried {
    ValueForm form;
    /// A value that is taken; empty if none is.
    std::string sample;
};

Tried tryValues(const Place& place, bool hasFaultsElsewhere = false);

/// Whether it takes strings, and not some words alone.
bool takesAnyString(const ValueForm& form) { return form.types.count("string") != 0 && form.words.empty(); }

/// The member of a name, or null.
template <class Members> auto* find(Members& members, const std::string& name) {
    const auto found =
        std::find_if(members.begin(), members.end(), [&](const MemberForm& each) { return each.name == name; });
    return found != members.end() ? &*found : nullptr;
}

/// Takes over what another form allows.
void merge(ValueForm& into, const ValueForm& other) {
    const bool takesAny = takesAnyString(into) || takesAnyString(other);
    const bool hadObjects = into.types.count("object") != 0;
    into.types.insert(other.types.begin(), other.types.end());
    into.kinds.insert(other.kinds.begin(), other.kinds.end());
    into.words.insert(other.words.begin(), other.words.end());
    if (takesAny) {
        into.words.clear();
    }
    into.mayBeEmpty = into.mayBeEmpty || other.mayBeEmpty;
    for (const ValueForm& element : other.elements) {
        if (into.elements.empty()) {
            into.elements.push_back(element);
        } else {
            merge(into.elements.front(), element);
        }
    }
    // What is required in each case is required.
    for (MemberForm& each : into.members) {
        const MemberForm* same = find(other.members, each.name);
        each.isRequired = each.isRequired && same != nullptr && same->isRequired;
    }
    for (const MemberForm& each : other.members) {
        if (MemberForm* same = find(into.members, each.name)) {
            merge(same->value, each.value);
        } else {
            into.members.push_back(each);
            into.members.back().isRequired = each.isRequired && !hadObjects;
        }
    }
    std::sort(into.members.begin(), into.members.end(),
              [](const MemberForm& left, const MemberForm& right) { return left.name < right.name; });
}

/// What an object may hold in certain surroundings of its members; nothing if it is not taken with these.
std::optional<Tried> tryObject(const Place& place, const std::string& others) {
    // A surrounding is no other member's, and always there.
    std::vector<MemberForm> fixed;
    std::vector<std::pair<std::string, Tried>> tried;
    for (const std::string& name : read(place, "{" + others + "}").asked) {
        if (others.rfind(quoted(name), 0) == 0) {
            fixed.push_back({name, true, tryValues(place.memberOf(name, "")).form});
        } else if (Tried value = tryValues(place.memberOf(name, others)); !value.sample.empty()) {
            tried.emplace_back(name, std::move(value));
        }
    }
    // Some members exclude others, and some need others: sets of one or two of them, and all but one or two.
    using Set = std::vector<bool>;
    std::vector<std::pair<Set, std::string>> taken;
    const auto take = [&](const Set& set) {
        std::string object = "{" + others;
        for (std::size_t i = 0; i < tried.size(); ++i) {
            if (set[i]) {
                object += (object.size() == 1 ? "" : ",") + member(tried[i].first, tried[i].second.sample);
            }
        }
        object += "}";
        if (read(place, object).faults == 0) {
            taken.emplace_back(set, object);
        }
    };
    for (const bool isIn : {false, true}) {
        take(Set(tried.size(), isIn));
        for (std::size_t one = 0; one < tried.size(); ++one) {
            for (std::size_t other = one; other < tried.size(); ++other) {
                Set set(tried.size(), isIn);
                set[one] = !isIn;
                set[other] = !isIn;
                take(set);
            }
        }
    }
    if (taken.empty()) {
        return std::nullopt;
    }
    const auto largest = std::max_element(taken.begin(), taken.end(), [](const auto& left, const auto& right) {
        return std::count(left.first.begin(), left.first.end(), true) <
               std::count(right.first.begin(), right.first.end(), true);
    });
    Tried result{{{"object"}, false, {}, {}, {}, std::move(fixed)}, largest->second};
    for (std::size_t i = 0; i < tried.size(); ++i) {
        const auto holds = [i](const std::pair<Set, std::string>& object) { return object.first[i]; };
        if (std::any_of(taken.begin(), taken.end(), holds)) {
            const bool isRequired = std::all_of(taken.begin(), taken.end(), holds);
            result.form.members.push_back({tried[i].first, isRequired, tried[i].second.form});
        }
    }
    return result;
}

/// Values of a place of which those with the fewest faults elsewhere are taken.
class Candidates {
public:
    explicit Candidates(const Place& place) : place_(place) {}

    /// Adds a value of a form, unless it is at fault itself.
    void add(ValueForm form, const std::string& sample) {
        const Reading reading = read(place_, sample);
        if (reading.faults == 0) {
            candidates_.push_back({{std::move(form), sample}, reading.allFaults});
        }
    }

    [[nodiscard]] Tried join(bool hasFaultsElsewhere) const {
        std::size_t fewest = std::string::npos;
        for (const auto& [tried, faults] : candidates_) {
            fewest = std::min(fewest, faults);
        }
        Tried result;
        for (const auto& [tried, faults] : candidates_) {
            if (faults == fewest || hasFaultsElsewhere) {
                merge(result.form, tried.form);
                result.sample = result.sample.empty() ? tried.sample : result.sample;
            }
        }
        return result;
    }

private:
    const Place& place_;
    std::vector<std::pair<Tried, std::size_t>> candidates_;
};

/// Whether no reader cares for what stands there.
bool isIgnored(const Place& place) {
    const std::array values = {"null", "true", "7", "\"\"", "[[]]", "[{}]"};
    const Reading bare = read(place, "{}");
    return bare.asked.empty() && bare.faults == 0 && std::all_of(values.begin(), values.end(), [&](const char* value) {
               const Reading other = read(place, value);
               return other.faults == 0 && other.allFaults == bare.allFaults;
           });
}

Tried tryValues(const Place& place, bool hasFaultsElsewhere) {
    if (isIgnored(place)) {
        return {{{"null", "boolean", "number", "string", "array", "object"}, true, {}, {}, {}, {}}, "null"};
    }
    Candidates candidates(place);
    if (place.path.size() < deepest) {
        for (const std::string& others : surroundings(place)) {
            if (const auto object = tryObject(place, others)) {
                candidates.add(object->form, object->sample);
            }
        }
        const std::array arrays = {std::string("[]"), "[" + quoted(probe) + "]",
                                   "[{" + member(Frame::typeId, quoted(probe)) + "}]"};
        const bool takesArrays = std::any_of(arrays.begin(), arrays.end(),
                                             [&](const std::string& array) { return read(place, array).faults == 0; });
        const Tried element = takesArrays ? tryValues(place.element()) : Tried();
        const ValueForm array{{"array"}, false, {}, {}, {element.form}, {}};
        candidates.add(array, "[]");
        candidates.add(array, "[" + element.sample + "]");
    }
    for (const Trial& trial : scalarTrials) {
        candidates.add({{std::string(trial.type)}, false, {}, {}, {}, {}}, std::string(trial.value));
    }
    candidates.add({{"string"}, false, {}, read(place, quoted(probe)).kinds, {}, {}}, quoted(probe));
    for (const std::string_view word : words) {
        candidates.add({{"string"}, word.empty(), {std::string(word)}, {}, {}, {}}, quoted(word));
    }
    return candidates.join(hasFaultsElsewhere);
}

/// An entry of a section, as it may be written.
struct TriedEntry {
    std::string_view section;
    std::string id;
    Tried tried;
};

/// Finds out the form of the documents of a base.
class FormProbe {
public:
    FormProbe(std::string_view base, bool isCurrent) : base_(base), isCurrent_(isCurrent) {}

    /// Nothing if no kind has such documents.
    std::optional<DocumentForm> run() {
        const Reading reading = readWhole(frameWithout(""));
        if (reading.kind.empty()) {
            return std::nullopt;
        }
        DocumentForm form{std::string(base_), isCurrent_, std::string(reading.kind), {}, {}, {}, {}, {}};
        for (const std::string& name : reading.asked) {
            if (name != Frame::constants && name != Frame::properties && name != Frame::enumItems) {
                const bool isRequired = readWhole(frameWithout(name)).missing > reading.missing;
                form.frame.push_back({name, isRequired, tryValues(framePlace(name), true).form});
            }
        }
        for (const auto& [section, ids] : reading.ids) {
            for (const std::string& id : ids) {
                tryEntry(section, id);
            }
        }
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            const TriedEntry& entry = entries_[i];
            (entry.section == Frame::constants ? form.constants : form.properties)
                .push_back({entry.id, isRequired(i), entry.tried.form});
        }
        for (const std::string_view section : {Frame::properties, Frame::enumItems}) {
            const Reading other = read(entryPlace(section), "{" + member(Frame::id, quoted(probe)) + "}");
            const auto ids = other.ids.find(section);
            if (ids != other.ids.end() && ids->second.count(std::string(probe)) != 0) {
                tryEntry(section, std::string(probe));
                form.freeSection = section;
                form.freeEntry = entries_.back().tried.form;
            }
        }
        return form;
    }

private:
    /// The members of the frame but one.
    [[nodiscard]] std::string frameWithout(std::string_view left) const {
        std::string text;
        const auto add = [&](std::string_view name, const std::string& value) {
            if (name != left) {
                text += (text.empty() ? "" : ",") + member(name, value);
            }
        };
        if (isCurrent_) {
            add(Frame::schemaSpecification, quoted(Frame::specificationMarker));
        }
        if (base_.empty()) {
            add(Frame::schemaType, quoted(Frame::enumType));
        } else {
            add(Frame::inherits, "[" + quoted(base_) + "]");
        }
        add(Frame::typeId, quoted("document"));
        return text;
    }

    static Reading readWhole(const std::string& members) {
        return read({{}, [](const std::string& value) { return value; }}, "{" + members + "}");
    }

    [[nodiscard]] Place framePlace(const std::string& name) const {
        return Place{{}, [](const std::string& value) { return value; }}.memberOf(name, frameWithout(name));
    }

    /// The only entry of a section.
    [[nodiscard]] Place entryPlace(std::string_view section) const {
        return framePlace(std::string(section)).element();
    }

    void tryEntry(std::string_view section, const std::string& id) {
        if (const auto entry = tryObject(entryPlace(section), member(Frame::id, quoted(id)))) {
            entries_.push_back({section, id, *entry});
        }
    }

    /// A document with all entries but two, or one if they are the same.
    [[nodiscard]] std::string documentWithout(std::size_t left, std::size_t other) const {
        std::map<std::string_view, std::string> sections;
        for (std::size_t i = 0; i < entries_.size(); ++i) {
            if (i != left && i != other) {
                std::string& text = sections[entries_[i].section];
                text += (text.empty() ? "" : ",") + entries_[i].tried.sample;
            }
        }
        std::string text = frameWithout("");
        for (const auto& [section, entries] : sections) {
            text += "," + member(section, "[" + entries + "]");
        }
        return text;
    }

    /// Whether documents have a fault without the entry. Some entries stand for each other, and some need others.
    [[nodiscard]] bool isRequired(std::size_t entry) const {
        for (std::size_t other = 0; other < entries_.size(); ++other) {
            if (readWhole(documentWithout(entry, other)).faults == 0) {
                return false;
            }
        }
        return true;
    }

    std::string_view base_;
    bool isCurrent_;
    std::vector<TriedEntry> entries_;
};

} // namespace

std::vector<DocumentForm> documentForms() {
    std::vector<DocumentForm> forms;
    const auto add = [&](std::string_view base, bool isCurrent) {
        if (auto form = FormProbe(base, isCurrent).run()) {
            forms.push_back(*std::move(form));
        }
    };
    for (const bool isCurrent : {true, false}) {
        for (const std::string_view base : Vocabulary::documentBases) {
            add(base, isCurrent);
        }
    }
    add({}, true);
    return forms;
}

} // namespace Parameters
