#include "FurtherFaults.h"

#include "DocumentJson.h"
#include "Progress.h"

#include <Parameters/Defaults.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace Tool {

namespace {

using Parameters::ParametersEngine;
using TypeIds = std::set<std::string>;
using Messages = std::vector<std::string>;
/// Of what kind typeids seem to be, as a position in the table of stand-ins. Kept from document to document, because
/// most of those that refer to a typeid agree on that.
using Guesses = std::map<std::string, std::size_t>;

// Each registers something of a kind under a typeid, finished at once.

constexpr const char* name = "stand-in";
constexpr auto format = Units::SchemaFormat::PropertySets;

void standInAsGroup(ParametersEngine& engine, const std::string& typeId) {
    engine.registerGroup({typeId, name, format});
}

void standInAsSpec(ParametersEngine& engine, const std::string& typeId) {
    engine.registerSpec({typeId, name, Parameters::LegacyPrimitiveType::String, std::nullopt, format,
                         Parameters::Defaults::CreateDefaultDiscipline(format)});
}

/// A major one, which is also fit for a parent.
void standInAsCategory(ParametersEngine& engine, const std::string& typeId) {
    const Parameters::Taxon domain(typeId + " domain", name, format);
    engine.registerDomain(domain);
    engine.registerCategory({typeId, name, Parameters::MajorCategoryComponent(domain, {}), format});
}

void standInAsDiscipline(ParametersEngine& engine, const std::string& typeId) {
    engine.registerDiscipline({typeId, name, format});
}

void standInAsUnit(ParametersEngine& engine, const std::string& typeId) {
    const Json document = {{"typeid", typeId},
                           {"inherits", Json::array({"quovanta.unit:unit-1.0.0"})},
                           {"constants", Json::array({{{"id", "name"}, {"value", name}}})}};
    engine.registerSchema(document.dump());
    engine.resolveSchemas();
}

void standInAsDomain(ParametersEngine& engine, const std::string& typeId) {
    engine.registerDomain({typeId, name, format});
}

void standInAsEnumeration(ParametersEngine& engine, const std::string& typeId) {
    engine.registerEnumeration({typeId, {{name, 0}}, format});
}

void standInAsFloatRange(ParametersEngine& engine, const std::string& typeId) {
    engine.registerFloatRange({typeId, false, 0, false, 0, format});
}

void standInAsIntRange(ParametersEngine& engine, const std::string& typeId) {
    engine.registerIntRange({typeId, false, 0, false, 0, format});
}

void standInAsStringRange(ParametersEngine& engine, const std::string& typeId) {
    engine.registerStringRange({typeId, Parameters::RegexStringRangeComponent(""), format});
}

/// The kinds that documents other than those of units refer to, the most usual first.
constexpr std::array standIns = {standInAsGroup,       standInAsSpec,       standInAsCategory, standInAsDiscipline,
                                 standInAsUnit,        standInAsDomain,     standInAsIntRange, standInAsFloatRange,
                                 standInAsStringRange, standInAsEnumeration};

TypeIds namedIn(const std::string& message, const TypeIds& typeIds) {
    TypeIds named;
    std::copy_if(typeIds.begin(), typeIds.end(), std::inserter(named, named.end()),
                 [&](const std::string& typeId) { return message.find(typeId) != std::string::npos; });
    return named;
}

/// Only what the document needs, so that trying costs the same in any catalog.
ParametersEngine engineWithReferencesOf(const Document& document, const TypeIds& leftOut, const Catalog& catalog) {
    ParametersEngine engine;
    TypeIds met = leftOut;
    std::vector<const Document*> open = {&document};
    while (!open.empty()) {
        const Document& referrer = *open.back();
        open.pop_back();
        for (const std::string& typeId : referrer.references) {
            if (met.insert(typeId).second) {
                open.push_back(&catalog.documents[catalog.positions.at(typeId)]);
                engine.registerSchema(open.back()->text);
            }
        }
    }
    engine.resolveSchemas();
    return engine;
}

/// What resolution has against a document whatever its doubtful references may turn out to be: for them stands
/// whatever fits. Empty for nothing, and where that cannot be told.
std::string faultBeside(const TypeIds& doubtful, const Document& document, const Catalog& catalog, Guesses& guesses) {
    std::map<std::string, std::size_t> tries;
    try {
        const ParametersEngine references = engineWithReferencesOf(document, doubtful, catalog);
        while (true) {
            ParametersEngine engine = references;
            for (const std::string& typeId : doubtful) {
                standIns.at(guesses[typeId])(engine, typeId);
            }
            engine.registerSchema(document.text);
            try {
                engine.resolveSchemas();
                return {};
            } catch (const Parameters::ValidationException& exception) {
                const TypeIds misfits = namedIn(exception.what(), doubtful);
                if (misfits.empty()) {
                    return exception.what();
                }
                std::size_t& guess = guesses[*misfits.begin()];
                guess = (guess + 1) % standIns.size();
                if (++tries[*misfits.begin()] == standIns.size()) {
                    return {};
                }
            }
        }
    } catch (const std::logic_error&) {
        // What stands in is itself in the way.
        return {};
    }
}

/// The references of a document that are not finished, and those that its faults name.
TypeIds doubtfulReferencesOf(const Document& document, const Messages& faults, const Catalog& catalog) {
    TypeIds doubtful;
    for (const std::string& fault : faults) {
        doubtful.merge(namedIn(fault, document.references));
    }
    for (const std::string& typeId : document.references) {
        const auto entry = catalog.positions.find(typeId);
        if (entry == catalog.positions.end() || catalog.documents[entry->second].state != DocumentState::Finished) {
            doubtful.insert(typeId);
        }
    }
    return doubtful;
}

/// Those beside the faults that are known. Each makes the references that it names doubtful, too.
Messages furtherFaultsOf(const Document& document, const Messages& faults, const Catalog& catalog, Guesses& guesses) {
    Messages found;
    TypeIds doubtful = doubtfulReferencesOf(document, faults, catalog);
    // If no reference is doubtful, resolution would tell again what is known.
    for (bool goesOn = !doubtful.empty(); goesOn;) {
        const std::string fault = faultBeside(doubtful, document, catalog, guesses);
        TypeIds culprits = namedIn(fault, document.references);
        goesOn = !culprits.empty();
        doubtful.merge(culprits);
        if (!fault.empty()) {
            found.push_back(fault);
        }
    }
    return found;
}

} // namespace

void reportFurtherFaults(Catalog& catalog) {
    std::map<std::size_t, Messages> faults;
    for (const Fault& fault : catalog.faults) {
        faults[fault.document].push_back(fault.message);
    }
    Guesses guesses;
    Progress progress("Looking further", catalog.documents.size());
    for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
        progress.advance();
        Document& document = catalog.documents[position];
        const bool isOpen = document.state == DocumentState::Faulty || document.state == DocumentState::Blocked;
        // A document of units has one reference at most.
        if (!isOpen || document.isOfUnits) {
            continue;
        }
        for (const std::string& message : furtherFaultsOf(document, faults[position], catalog, guesses)) {
            catalog.faults.push_back({position, message});
            document.state = DocumentState::Faulty;
        }
    }
}

} // namespace Tool
