#include "MaskedErrors.h"

#include "DocumentJson.h"
#include "Kinds.h"
#include "Progress.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace Tool {

namespace {

using Parameters::ParametersEngine;
using Messages = std::vector<std::string>;
/// By role, the position in the table of bases of the kind that the role seems to require. Shared by all documents,
/// because most agree.
using Guesses = std::map<std::string, std::size_t>;

constexpr std::size_t mostErrorsReported = 100;
/// Real documents have a handful of roles and refer to a handful of kinds.
constexpr std::size_t mostKindsOfReferences = 100;

/// Bases of the kinds that documents refer to, the most common first.
constexpr std::array bases = {"quovanta.parameter:group-1.0.0",
                              "quovanta.spec:spec-1.0.0",
                              "quovanta.talmo.category:majorCategory-1.0.0",
                              "quovanta.spec:discipline-1.0.0",
                              "quovanta.unit:unit-1.0.0",
                              "quovanta.talmo.category:domain-1.0.0",
                              "quovanta.range:range.int64.bounded.static-1.0.0",
                              "quovanta.range:range.float64.bounded.static-1.0.0",
                              "quovanta.range:range.string.regex-1.0.0",
                              "quovanta.unit:dimension-1.0.0",
                              "Enum"};
static_assert(bases.size() == kindCount - 1, "Every kind needs a base here but parameters, which nothing refers to.");

std::string baseOf(const char* typeId) { return Json{{"inherits", Json::array({typeId})}}.dump(); }

/// A document with everything that any kind requires, so that the base alone decides its kind. It refers to the
/// documents of engineForStandIns().
std::string standIn(const std::string& typeId, const std::string& base) {
    static const Json body = Json::parse(R"({
        "constants": [{"id": "name", "value": "N"}, {"id": "domain", "typedValue": {"typeid": "domain"}},
                      {"id": "parent", "typedValue": {"typeid": "major"}},
                      {"id": "category", "typedValue": {"typeid": "major"}},
                      {"id": "storageUnit", "typedValue": {"typeid": "unit"}},
                      {"id": "spec", "typedValue": {"typeid": "spec"}},
                      {"id": "fromBottom", "value": false}, {"id": "bottomBoundary", "value": 0},
                      {"id": "fromTop", "value": false}, {"id": "topBoundary", "value": 0},
                      {"id": "allowedValues", "value": ["N"]}, {"id": "regex", "value": "N"}],
        "properties": [{"id": "value", "typeid": "String", "value": 0}, {"id": "data", "typeid": "spec", "value": 0}],
        "enum": [{"id": "N", "value": 0}]})");
    Json document = parseDocument(base);
    document["typeid"] = typeId;
    document.update(body);
    return document.dump();
}

const ParametersEngine& engineForStandIns() {
    static const ParametersEngine result = [] {
        ParametersEngine engine;
        for (const auto& [typeId, base] : {std::pair{"domain", "quovanta.talmo.category:domain-1.0.0"},
                                           {"major", "quovanta.talmo.category:majorCategory-1.0.0"},
                                           {"unit", "quovanta.unit:unit-1.0.0"},
                                           {"spec", "quovanta.spec:spec-1.0.0"}}) {
            engine.registerSchema(standIn(typeId, baseOf(base)));
        }
        engine.resolveSchemas();
        return engine;
    }();
    return result;
}

/// References of one document that resolution treats alike: in one role, to documents of one base. One stand-in
/// represents them all; its unique typeid, the mark, identifies it in messages.
struct References {
    std::string role;
    std::set<std::string> typeIds;
    std::string mark;
    Json* place = nullptr;
    /// Of the stand-in; none for a built-in typeid, until that needs one.
    std::optional<std::string> base;
    /// Whether their errors are known, so that any stand-in that resolves will do.
    bool isReported = false;
    std::size_t guesses = 0;
};

/// Resolves a document by itself, with stand-ins for its references.
class StandInResolution {
public:
    StandInResolution(const Document& document, const Catalog& catalog, Guesses& guesses)
        : document_(document), catalog_(catalog), guesses_(guesses), json_(parseDocument(document.text)) {
        for (const std::string text = json_.dump(); text.find(separator_) != std::string::npos;) {
            separator_ += '\x7F';
        }
        reduce(json_);
    }

    /// Adds the errors that resolution reports to the known ones.
    void run(Messages& errors) {
        if (all_.size() > mostKindsOfReferences) {
            return;
        }
        for (std::string error = resolve(); !error.empty(); error = resolve()) {
            References* const references = findReferencesAtFault(error);
            if (references == nullptr) {
                // Resolution checks the document itself once its references are valid.
                if (std::find(errors.begin(), errors.end(), error) == errors.end()) {
                    errors.push_back(error);
                }
                break;
            }
            std::size_t& guess = guesses_[references->role];
            if (!references->isReported) {
                report(error, *references, errors);
            } else if (++references->guesses < bases.size()) {
                guess = (guess + 1) % bases.size();
            } else {
                break;
            }
            references->base = baseOf(bases.at(guess));
        }
        if (hasUnreported_) {
            errors.emplace_back("Has more errors like these.");
        }
    }

private:
    /// Collects the references and removes array elements that are represented by others.
    ///
    /// @return whether the object itself is such an element.
    bool reduce(Json& json, std::size_t depth = 0) {
        const std::size_t roleSize = role_.size();
        bool isRepetition = false;
        if (json.is_array()) {
            Json kept = Json::array();
            for (Json& element : json) {
                if (!reduce(element, depth + 1)) {
                    kept.push_back(std::move(element));
                }
            }
            json = std::move(kept);
        } else if (json.is_object()) {
            role_ += '/' + textAt(json, "id");
            for (auto& [key, value] : json.items()) {
                if (depth != 0 && key == "typeid" && value.is_string()) {
                    isRepetition = !take(value) && json.size() == 1;
                } else {
                    const std::size_t size = role_.size();
                    role_ += '/' + key;
                    reduce(value, depth + 1);
                    role_.resize(size);
                }
            }
        }
        role_.resize(roleSize);
        return isRepetition;
    }

    /// @return whether it is the first of its kind and role, or not a reference.
    bool take(Json& place) {
        const auto& typeId = place.get_ref<const std::string&>();
        const auto target = catalog_.positions.find(typeId);
        const bool isOfCatalog = document_.references.count(typeId) != 0 || typeId == document_.typeId;
        const bool isMissing = isOfCatalog && target == catalog_.positions.end();
        if (!isOfCatalog && !isBuiltIn(typeId)) {
            return true;
        }
        const std::string like = isMissing ? "" : isOfCatalog ? catalog_.documents[target->second].base : typeId;
        const auto [entry, isFirst] = positions_.emplace(std::pair(role_, like), all_.size());
        if (isFirst) {
            References& references = all_.emplace_back();
            references.role = role_;
            references.mark = typeId + separator_ + std::to_string(all_.size()) + separator_;
            references.place = &place;
            references.isReported = isMissing;
            if (isOfCatalog) {
                references.base = isMissing ? baseOf(bases.at(guesses_[role_])) : like;
            }
        }
        all_[entry->second].typeIds.insert(typeId);
        if (isFirst && isOfCatalog) {
            place = all_.back().mark;
        }
        return isFirst;
    }

    [[nodiscard]] std::string resolve() const {
        ParametersEngine engine = engineForStandIns();
        for (const References& references : all_) {
            if (references.base) {
                engine.registerSchema(standIn(references.mark, *references.base));
            }
        }
        engine.registerSchema(json_.dump());
        try {
            engine.resolveSchemas();
            return {};
        } catch (const Parameters::ValidationException& exception) {
            return exception.what();
        }
    }

    static bool isAbout(const std::string& error, const References& references) {
        return error.find(references.mark) != std::string::npos;
    }

    /// @return the references that an error is about; null if it is about the document itself.
    References* findReferencesAtFault(std::string& error) {
        const auto marked = std::find_if(all_.begin(), all_.end(),
                                         [&](const References& references) { return isAbout(error, references); });
        if (marked != all_.end()) {
            return &*marked;
        }
        // A built-in typeid is at fault if a stand-in for it causes the same error.
        for (References& references : all_) {
            if (references.base) {
                continue;
            }
            const std::string builtIn = *references.typeIds.begin();
            *references.place = references.mark;
            const std::string other = resolve();
            const std::size_t position = other.find(references.mark);
            if (position != std::string::npos &&
                std::string(other).replace(position, references.mark.size(), builtIn) == error) {
                error = other;
                return &references;
            }
            *references.place = builtIn;
        }
        return nullptr;
    }

    /// Adds an error for each of the references, unless it is known.
    void report(const std::string& error, References& references, Messages& errors) {
        references.isReported = true;
        const std::string_view before = std::string_view(error).substr(0, error.find(references.mark));
        const std::string_view behind = std::string_view(error).substr(before.size() + references.mark.size());
        std::set<std::string> unreported = references.typeIds;
        for (const std::string& known : errors) {
            const std::size_t rest = before.size() + behind.size();
            if (known.size() > rest && known.compare(0, before.size(), before) == 0 &&
                known.compare(known.size() - behind.size(), behind.size(), behind) == 0) {
                unreported.erase(known.substr(before.size(), known.size() - rest));
            }
        }
        for (const std::string& typeId : unreported) {
            if (reported_ == mostErrorsReported) {
                hasUnreported_ = true;
                break;
            }
            errors.push_back(fmt::format("{}{}{}", before, typeId, behind));
            ++reported_;
        }
    }

    const Document& document_;
    const Catalog& catalog_;
    Guesses& guesses_;
    Json json_;
    /// Does not occur in the document.
    std::string separator_ = "\x7F";
    /// Keys and ids on the way to the current value.
    std::string role_;
    std::vector<References> all_;
    /// By role and base, or built-in typeid.
    std::map<std::pair<std::string, std::string>, std::size_t> positions_;
    std::size_t reported_ = 0;
    bool hasUnreported_ = false;
};

} // namespace

void reportMaskedErrors(Catalog& catalog) {
    std::map<std::size_t, Messages> known;
    for (const Error& error : catalog.errors) {
        known[error.document].push_back(error.message);
    }
    Guesses guesses;
    Progress progress("Checking further", catalog.documents.size());
    for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
        progress.advance();
        Document& document = catalog.documents[position];
        if (document.state != DocumentState::Invalid && document.state != DocumentState::Blocked) {
            continue;
        }
        Messages& errors = known[position];
        const std::size_t before = errors.size();
        try {
            StandInResolution(document, catalog, guesses).run(errors);
        } catch (const std::logic_error&) {
            // Only contrived documents make the engine refuse a stand-in.
        }
        for (std::size_t number = before; number < errors.size(); ++number) {
            catalog.errors.push_back({position, std::move(errors[number])});
            document.state = DocumentState::Invalid;
        }
    }
}

} // namespace Tool
