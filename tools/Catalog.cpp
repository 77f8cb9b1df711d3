#include "Catalog.h"

#include "DocumentJson.h"
#include "MaskedErrors.h"
#include "Progress.h"
#include "References.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace Tool {

namespace {

/// Registers a document in an empty engine, which therefore reports all its references.
void registerAlone(Document& document, const DocumentFrame& frame) {
    Parameters::ParametersEngine engine;
    auto [references, units] = engine.registerSchema(document.text);
    if (!frame.isJson) {
        throw std::invalid_argument("JSON that not every parser accepts, such as an unpaired surrogate.");
    }
    if (!engine.isRegistered(document.typeId)) {
        throw std::invalid_argument("More than one typeid, or one with a null character.");
    }
    references.merge(units);
    document.references = std::move(references);
    document.base = frame.base.dump();
    document.isOfUnits = engine.getUnitsEngine().isRegistered(document.typeId);
}

/// @return what is wrong with a document regardless of others; empty if nothing is.
std::string errorIn(Document& document) {
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
    std::string error = source.error.empty() ? errorIn(document) : std::move(source.error);
    if (error.empty()) {
        const auto [entry, isNew] = catalog.positions.emplace(document.typeId, position);
        if (isNew) {
            document.state = DocumentState::Registered;
            return;
        }
        error = fmt::format("Schema with typeid {} is already registered, from {}.", document.typeId,
                            formatOrigin(catalog.documents[entry->second].origin));
    }
    catalog.errors.push_back({position, std::move(error)});
}

/// Documents, each after those that it refers to.
using Batch = std::vector<std::size_t>;

/// @return a reference to an invalid or blocked document; null if there is none.
const std::string* blockingReferenceOf(const Document& document, const Catalog& catalog) {
    for (const std::string& typeId : document.references) {
        const DocumentState state = catalog.documents[catalog.positions.at(typeId)].state;
        if (state == DocumentState::Invalid || state == DocumentState::Blocked) {
            return &typeId;
        }
    }
    return nullptr;
}

/// A failed resolution drops its whole batch and reports one error. So a failed batch is bisected down to the invalid
/// documents. A half never lacks a reference: batches are in the order of references, and what precedes them is
/// finished. n documents with k errors take at most 2 k log2(n) resolutions and n log2(n) registrations.
class Bisection {
public:
    explicit Bisection(Catalog& catalog, std::size_t total) : catalog_(catalog), progress_("Resolving", total) {}

    void resolve(const Batch& whole) {
        Batch batch = withoutBlocked(whole);
        if (batch.empty()) {
            return;
        }
        const std::string error = tryToResolve(batch);
        if (error.empty()) {
            finish(batch);
        } else if (batch.size() == 1) {
            refuse(batch.front(), error);
        } else {
            const auto middle = batch.begin() + static_cast<std::ptrdiff_t>(batch.size() / 2);
            resolve({batch.begin(), middle});
            resolve({middle, batch.end()});
        }
    }

private:
    /// Leaves out invalid documents and those that refer to them.
    Batch withoutBlocked(const Batch& batch) {
        Batch result;
        for (const std::size_t position : batch) {
            Document& document = catalog_.documents[position];
            if (document.state != DocumentState::Registered) {
                progress_.advance();
            } else if (blockingReferenceOf(document, catalog_) != nullptr) {
                document.state = DocumentState::Blocked;
                progress_.advance();
            } else {
                result.push_back(position);
            }
        }
        return result;
    }

    /// @return the first error; empty if all are finished.
    std::string tryToResolve(const Batch& batch) {
        for (const std::size_t position : batch) {
            catalog_.engine.registerSchema(catalog_.documents[position].text);
        }
        try {
            catalog_.engine.resolveSchemas();
            return {};
        } catch (const std::logic_error& exception) {
            return exception.what();
        }
    }

    void finish(const Batch& batch) {
        for (const std::size_t position : batch) {
            catalog_.documents[position].state = DocumentState::Finished;
        }
        progress_.advance(batch.size());
    }

    void refuse(std::size_t position, const std::string& error) {
        catalog_.documents[position].state = DocumentState::Invalid;
        catalog_.errors.push_back({position, error});
        progress_.advance();
    }

    Catalog& catalog_;
    Progress progress_;
};

void reportBlocked(Catalog& catalog) {
    for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
        const Document& document = catalog.documents[position];
        if (document.state == DocumentState::Blocked) {
            const std::string& blocking = *blockingReferenceOf(document, catalog);
            const bool isInvalid = catalog.documents[catalog.positions.at(blocking)].state == DocumentState::Invalid;
            catalog.blocked.push_back({position, fmt::format("Not loaded: {}, which it references, {}.", blocking,
                                                             isInvalid ? "has errors" : "is not loaded either")});
        }
    }
}

void resolveCatalog(Catalog& catalog) {
    const auto before = static_cast<std::ptrdiff_t>(catalog.errors.size());
    const Batch order = inOrderOfReferences(catalog);

    // Units first: if they fail, the engine drops only them; if others fail, it keeps the units.
    Batch units;
    Batch others;
    std::partition_copy(order.begin(), order.end(), std::back_inserter(units), std::back_inserter(others),
                        [&](std::size_t position) { return catalog.documents[position].isOfUnits; });
    Bisection bisection(catalog, order.size());
    bisection.resolve(units);
    bisection.resolve(others);

    reportMaskedErrors(catalog);
    std::stable_sort(catalog.errors.begin() + before, catalog.errors.end(),
                     [](const Error& left, const Error& right) { return left.document < right.document; });
    reportBlocked(catalog);
}

} // namespace

bool isBuiltIn(const std::string& typeId) {
    static const Parameters::ParametersEngine builtInsAlone;
    return builtInsAlone.isRegistered(typeId);
}

Catalog loadCatalog(const Sources& sources) {
    Catalog catalog;
    DocumentFiles files = readDocumentFiles(sources);
    catalog.unreadable = std::move(files.unreadable);
    catalog.skippedLinks = files.skippedLinks;
    catalog.documents.reserve(files.documents.size());
    Progress progress("Registering", files.documents.size());
    for (DocumentText& source : files.documents) {
        take(catalog, std::move(source));
        progress.advance();
    }
    reportMissingReferences(catalog);
    resolveCatalog(catalog);
    return catalog;
}

std::string formatError(const Catalog& catalog, const Error& error) {
    return fmt::format("{}: {}", formatOrigin(catalog.documents[error.document].origin), printable(error.message));
}

std::size_t positionOf(const Catalog& catalog, const std::string& typeId) {
    const auto entry = catalog.positions.find(typeId);
    if (entry == catalog.positions.end()) {
        throw std::runtime_error(fmt::format("No document has the typeid {}.", printable(typeId)));
    }
    const Document& document = catalog.documents[entry->second];
    if (document.state != DocumentState::Finished) {
        throw std::runtime_error(
            fmt::format("{}, which defines {}, was not loaded.", formatOrigin(document.origin), printable(typeId)));
    }
    return entry->second;
}

} // namespace Tool
