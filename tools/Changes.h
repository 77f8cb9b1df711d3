#pragma once

#include "Items.h"
#include "ReportFormats.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tool {

/// What can change, by its stable name: first what is incompatible, then what is compatible, of texts and of layout.
const std::vector<ReportRule>& changeRules();

struct Change {
    const ReportRule* rule;
    /// Ends in a full stop.
    std::string message;
};

/// What became of a document by another one of its typeid, each finished in its catalog. The objects are compared, not
/// the texts; what is the same, in whatever form, is no change.
std::vector<Change> changesOf(const std::string& typeId, const Catalog& oldCatalog, const Item& oldItem,
                              const Catalog& newCatalog, const Item& newItem);

/// A change by the name of its rule.
Change changeBy(std::string_view rule, std::string message);

} // namespace Tool
