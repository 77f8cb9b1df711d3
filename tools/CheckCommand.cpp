#include "CommandLine.h"
#include "Items.h"
#include "Layout.h"
#include "Text.h"

#include <fmt/core.h>

#include <map>
#include <memory>
#include <set>

namespace Tool {

namespace {

void printSummary(const Catalog& catalog) {
    std::map<std::string, std::size_t> counts;
    for (const auto& [typeId, item] : itemsOf(catalog)) {
        ++counts[item.kind->name];
    }
    std::vector<Row> rows;
    rows.reserve(counts.size());
    for (const auto& [kind, count] : counts) {
        rows.push_back({kind, fmt::format("{:>6}", count)});
    }
    printTable(rows);

    std::set<std::size_t> invalid;
    for (const Error& error : catalog.errors) {
        invalid.insert(error.document);
    }
    fmt::print("{}, {}{}.\n", counted(catalog.documents.size(), "document"),
               invalid.empty()
                   ? "no errors"
                   : fmt::format("{} in {} of them", counted(catalog.errors.size(), "error"), invalid.size()),
               catalog.blocked.empty() ? "" : fmt::format("; {} more not loaded", catalog.blocked.size()));
}

Status check(const Sources& sources) {
    const Catalog catalog = loadCatalog(sources);
    printUnread(catalog);
    for (const auto* errors : {&catalog.errors, &catalog.blocked}) {
        for (const Error& error : *errors) {
            fmt::print("{}\n", formatError(catalog, error));
        }
    }
    if (!catalog.errors.empty()) {
        fmt::print("\n");
    }
    printSummary(catalog);
    return statusOf(catalog);
}

} // namespace

void addCheck(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("check", "Report all errors in a catalog");
    auto sources = std::make_shared<Sources>();
    addSources(*command, *sources);
    command->callback([sources, &status] { status = check(*sources); });
}

} // namespace Tool
