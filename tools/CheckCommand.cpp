#include "CommandLine.h"
#include "Items.h"
#include "Table.h"
#include "Text.h"

#include <fmt/core.h>

#include <array>
#include <memory>
#include <set>

namespace Tool {

namespace {

void printSummary(const Catalog& catalog) {
    std::array<std::size_t, kindCount> counts{};
    for (const auto& [typeId, item] : itemsOf(catalog)) {
        ++counts.at(static_cast<std::size_t>(item.kind));
    }
    std::vector<Row> rows;
    for (std::size_t kind = 0; kind < kindCount; ++kind) {
        if (counts.at(kind) != 0) {
            rows.push_back({kindNames.at(kind), fmt::format("{:>6}", counts.at(kind))});
        }
    }
    printTable(rows);

    std::set<std::size_t> faulty;
    for (const Fault& fault : catalog.faults) {
        faulty.insert(fault.document);
    }
    fmt::print("{}, {}{}.\n", counted(catalog.documents.size(), "document"),
               faulty.empty() ? "no faults"
                              : fmt::format("{} in {} of them", counted(catalog.faults.size(), "fault"), faulty.size()),
               catalog.blockades.empty() ? "" : fmt::format("; {} more cannot be loaded", catalog.blockades.size()));
}

Status check(const std::vector<std::string>& paths) {
    const Catalog catalog = loadCatalog(paths);
    for (const std::string& message : catalog.unreadable) {
        printError(message);
    }
    for (const auto* faults : {&catalog.faults, &catalog.blockades}) {
        for (const Fault& fault : *faults) {
            fmt::print("{}\n", wordsFor(catalog, fault));
        }
    }
    if (!catalog.faults.empty()) {
        fmt::print("\n");
    }
    printSummary(catalog);
    return statusOf(catalog);
}

} // namespace

void addCheck(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("check", "Report every fault of a catalog");
    auto paths = std::make_shared<std::vector<std::string>>();
    addPaths(*command, *paths);
    command->callback([paths, &status] { status = check(*paths); });
}

} // namespace Tool
