#include "Catalog.h"

#include "DocumentJson.h"
#include "Progress.h"
#include "References.h"
#include "Settling.h"
#include "Text.h"

#include <fmt/core.h>

#include <stdexcept>
#include <utility>

namespace Tool {

namespace {

/// Registers a document alone, in an engine that knows nothing else and thus reports all its references.
void registerAlone(Document& document, const DocumentFrame& frame) {
    Parameters::ParametersEngine engine;
    auto [references, units] = engine.registerSchema(document.text);
    if (!frame.isJson) {
        throw std::invalid_argument("JSON that not every reader takes, such as half a surrogate pair.");
    }
    if (!engine.isRegistered(document.typeId)) {
        throw std::invalid_argument("Several typeids, or one with a null character.");
    }
    references.merge(units);
    document.references = std::move(references);
    document.base = frame.base.dump();
    document.isOfUnits = engine.getUnitsEngine().isRegistered(document.typeId);
}

/// What speaks against a document by itself; empty for nothing.
std::string faultOf(Document& document) {
    const DocumentFrame frame = readFrame(document.text);
    document.typeId = frame.typeId;
    try {
        registerAlone(document, frame);
        return {};
    } catch (const std::logic_error& exception) {
        return exception.what();
    }
}

void take(Catalog& catalog, DocumentText source) {
    const std::size_t position = catalog.documents.size();
    Document& document =
        catalog.documents.emplace_back(Document{std::move(source.origin), std::move(source.text), {}, {}, {}});
    std::string fault = source.fault.empty() ? faultOf(document) : std::move(source.fault);
    if (fault.empty()) {
        const auto [entry, isNew] = catalog.positions.emplace(document.typeId, position);
        if (isNew) {
            document.state = DocumentState::Registered;
            return;
        }
        fault = fmt::format("Schema with typeid {} is already registered, from {}.", document.typeId,
                            wordsFor(catalog.documents[entry->second].origin));
    }
    catalog.faults.push_back({position, std::move(fault)});
}

} // namespace

bool isBuiltIn(const std::string& typeId) {
    static const Parameters::ParametersEngine builtInsAlone;
    return builtInsAlone.isRegistered(typeId);
}

Catalog loadCatalog(const std::vector<std::string>& paths) {
    Catalog catalog;
    DocumentFiles files = readDocumentFiles(paths);
    catalog.unreadable = std::move(files.unreadable);
    catalog.documents.reserve(files.documents.size());
    Progress progress("Registering", files.documents.size());
    for (DocumentText& source : files.documents) {
        take(catalog, std::move(source));
        progress.advance();
    }
    reportMissingReferences(catalog);
    settle(catalog);
    return catalog;
}

std::string wordsFor(const Catalog& catalog, const Fault& fault) {
    return fmt::format("{}: {}", wordsFor(catalog.documents[fault.document].origin), printable(fault.message));
}

std::size_t positionOf(const Catalog& catalog, const std::string& typeId) {
    const auto entry = catalog.positions.find(typeId);
    if (entry == catalog.positions.end()) {
        throw std::runtime_error(fmt::format("No document has the typeid {}.", printable(typeId)));
    }
    const Document& document = catalog.documents[entry->second];
    if (document.state != DocumentState::Finished) {
        throw std::runtime_error(fmt::format("{}, which defines {}, has a fault or refers to one that has.",
                                             wordsFor(document.origin), printable(typeId)));
    }
    return entry->second;
}

} // namespace Tool
