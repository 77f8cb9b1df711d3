#include "Settling.h"

#include "FurtherFaults.h"
#include "Progress.h"
#include "References.h"

#include <fmt/core.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace Tool {

namespace {

/// Documents, each behind those that it refers to.
using Batch = std::vector<std::size_t>;

/// A reference of a document to one with a fault or to a blocked one; null for none.
const std::string* blockingReferenceOf(const Document& document, const Catalog& catalog) {
    for (const std::string& typeId : document.references) {
        const DocumentState state = catalog.documents[catalog.positions.at(typeId)].state;
        if (state == DocumentState::Faulty || state == DocumentState::Blocked) {
            return &typeId;
        }
    }
    return nullptr;
}

/// A failed resolution drops its whole batch and tells one fault. So a batch that fails is resolved in two halves, each
/// again in halves, down to the documents at fault. A half is complete, because it stands in the order of references
/// behind what has been finished. With n documents and k faults these are 2 k log2(n) resolutions at most, and n
/// log2(n) registrations however many faults there are.
class Settlement {
public:
    explicit Settlement(Catalog& catalog, std::size_t total) : catalog_(catalog), progress_("Resolving", total) {}

    void settle(const Batch& whole) {
        Batch batch = withoutBlocked(whole);
        if (batch.empty()) {
            return;
        }
        const std::string fault = resolve(batch);
        if (fault.empty()) {
            finish(batch);
        } else if (batch.size() == 1) {
            refuse(batch.front(), fault);
        } else {
            const auto middle = batch.begin() + static_cast<std::ptrdiff_t>(batch.size() / 2);
            settle({batch.begin(), middle});
            settle({middle, batch.end()});
        }
    }

private:
    /// Leaves out what has a fault or refers to what has one.
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

    /// @return the first fault; empty if all are finished.
    std::string resolve(const Batch& batch) {
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

    void refuse(std::size_t position, const std::string& fault) {
        catalog_.documents[position].state = DocumentState::Faulty;
        catalog_.faults.push_back({position, fault});
        progress_.advance();
    }

    Catalog& catalog_;
    Progress progress_;
};

void reportBlockades(Catalog& catalog) {
    for (std::size_t position = 0; position < catalog.documents.size(); ++position) {
        const Document& document = catalog.documents[position];
        if (document.state == DocumentState::Blocked) {
            catalog.blockades.push_back(
                {position, fmt::format("Has no fault that shows, but refers to {}, which cannot be loaded.",
                                       *blockingReferenceOf(document, catalog))});
        }
    }
}

} // namespace

void settle(Catalog& catalog) {
    const auto before = static_cast<std::ptrdiff_t>(catalog.faults.size());
    const Batch order = inOrderOfReferences(catalog);

    // Units first: when they fail, the engine drops them alone, and when others fail, it keeps them.
    Batch units;
    Batch others;
    std::partition_copy(order.begin(), order.end(), std::back_inserter(units), std::back_inserter(others),
                        [&](std::size_t position) { return catalog.documents[position].isOfUnits; });
    Settlement settlement(catalog, order.size());
    settlement.settle(units);
    settlement.settle(others);

    reportFurtherFaults(catalog);
    std::stable_sort(catalog.faults.begin() + before, catalog.faults.end(),
                     [](const Fault& left, const Fault& right) { return left.document < right.document; });
    reportBlockades(catalog);
}

} // namespace Tool
