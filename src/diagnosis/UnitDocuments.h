#pragma once

#include <Units/UnitsEngine.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace Parameters {

/// What the units library takes of one document by itself.
struct UnitReading {
    /// Why it refuses the document; empty if it does not.
    std::string refusal;
    /// The typeids that the document refers to.
    std::set<std::string> references;
};

[[nodiscard]] UnitReading readUnitDocument(const std::string& text);

/// A document that the units library takes by itself.
struct UnitDocument {
    /// Its position among all documents.
    std::size_t document;
    std::string typeId;
    std::string text;
    std::set<std::string> references;
};

/// Why a document cannot be finished.
struct UnitFault {
    std::size_t document;
    /// The units library's; empty where the document refers to itself by way of others.
    std::string message;
};

/// Finishes the documents in an engine and tells which of them are at fault. Those that lead to what is at fault, or to
/// what neither the engine nor any of the documents has, are left out.
[[nodiscard]] std::vector<UnitFault> finishUnits(Units::UnitsEngine& engine,
                                                 const std::vector<UnitDocument>& documents);

} // namespace Parameters
