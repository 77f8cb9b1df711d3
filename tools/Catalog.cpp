#include "Catalog.h"

#include "JsonText.h"
#include "Progress.h"
#include "Text.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace Tool {

using Parameters::Severity;

namespace {

/// Registers and finishes documents in the catalog's engine.
///
/// @throws Parameters::ValidationException  the library refuses one.
void finish(Catalog& catalog, const std::vector<const DocumentText*>& sources) {
    Progress progress("Registering", sources.size());
    for (const DocumentText* source : sources) {
        catalog.engine.registerSchema(std::string(source->text));
        progress.advance();
    }
    catalog.engine.resolveSchemas();
    catalog.documents.reserve(sources.size());
    for (const DocumentText* source : sources) {
        catalog.documents.push_back({source->origin, source->text, typeIdOf(source->text)});
    }
    for (std::size_t i = 0; i < catalog.documents.size(); ++i) {
        catalog.positions.emplace(catalog.documents[i].typeId, i);
    }
}

/// Finishes all documents, as they mostly can be; whether they are.
bool finishAll(Catalog& catalog) {
    std::vector<const DocumentText*> sources;
    sources.reserve(catalog.files.documents.size());
    for (const DocumentText& source : catalog.files.documents) {
        if (source.fault) {
            return false;
        }
        sources.push_back(&source);
    }
    try {
        finish(catalog, sources);
        return true;
    } catch (const Parameters::ValidationException&) {
        catalog.engine = {};
        return false;
    }
}

/// Finishes what has no errors and leads to nothing that has.
void finishSound(Catalog& catalog) {
    ReportOptions options;
    options.hasWarnings = false;
    options.listsBlocked = true;
    catalog.report = reportOn(catalog.files, options);
    std::vector<const DocumentText*> sources;
    for (std::size_t i = 0; i < catalog.files.documents.size(); ++i) {
        if (!catalog.report.isRefused[i]) {
            sources.push_back(&catalog.files.documents[i]);
        }
    }
    finish(catalog, sources);
}

bool endsWith(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

/// What is said of a typeid that no finished document has.
std::string messageOfUnknown(const Catalog& catalog, const std::string& typeId) {
    std::vector<std::string_view> candidates;
    for (std::size_t i = 0; i < catalog.files.documents.size(); ++i) {
        const DocumentText& source = catalog.files.documents[i];
        if (!catalog.report.isRefused.empty() && catalog.report.isRefused[i] && typeIdOf(source.text) == typeId) {
            return fmt::format("{}, which defines {}, was not loaded.", formatOrigin(source.origin), printable(typeId));
        }
    }
    for (const Document& document : catalog.documents) {
        // Whole, and without the names of the owner and of what it is filed under.
        const std::string_view whole = document.typeId;
        for (std::size_t begin = 0; begin <= whole.size(); begin = whole.find_first_of(":.", begin) + 1) {
            candidates.push_back(whole.substr(begin));
            if (whole.find_first_of(":.", begin) == std::string_view::npos) {
                break;
            }
        }
    }
    const std::string nearest = Parameters::nearestWord(typeId, candidates);
    return nearest.empty()
               ? fmt::format("No document has the typeid {}.", printable(typeId))
               : fmt::format("No document has the typeid {}; did you mean {}?", printable(typeId), printable(nearest));
}

} // namespace

bool isBuiltIn(const std::string& typeId) {
    static const Parameters::ParametersEngine builtInsAlone;
    return builtInsAlone.isRegistered(typeId);
}

Catalog loadCatalog(DocumentFiles files) {
    Catalog catalog;
    catalog.files = std::move(files);
    if (!finishAll(catalog) || !catalog.files.unreadable.empty()) {
        catalog.engine = {};
        catalog.documents.clear();
        catalog.positions.clear();
        finishSound(catalog);
    }
    return catalog;
}

std::set<std::string> referencesOf(const Document& document) {
    // An engine that knows nothing reports all references.
    Parameters::ParametersEngine engine;
    auto [references, units] = engine.registerSchema(std::string(document.text));
    references.merge(units);
    return std::move(references);
}

std::string typeIdIn(const Catalog& catalog, const std::string& ending) {
    if (catalog.positions.count(ending) != 0) {
        return ending;
    }
    constexpr std::size_t mostNamed = 5;
    std::vector<std::string> found;
    for (const auto& [typeId, position] : catalog.positions) {
        if (!ending.empty() && endsWith(typeId, ending)) {
            found.emplace_back(typeId);
        }
    }
    if (found.size() == 1) {
        return found.front();
    }
    if (found.empty()) {
        throw std::runtime_error(messageOfUnknown(catalog, ending));
    }
    std::sort(found.begin(), found.end());
    const std::size_t more = found.size() - std::min(found.size(), mostNamed);
    found.resize(found.size() - more);
    std::transform(found.begin(), found.end(), found.begin(), [](const auto& typeId) { return printable(typeId); });
    throw std::runtime_error(fmt::format("Several typeids end in {}: {}{}.", printable(ending), fmt::join(found, ", "),
                                         more != 0 ? fmt::format(" and {} more", more) : ""));
}

} // namespace Tool
