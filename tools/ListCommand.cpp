#include "CommandLine.h"
#include "Items.h"
#include "Layout.h"
#include "OutputJson.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <memory>

namespace Tool {

namespace {

struct ListOptions {
    Sources sources;
    std::string kind;
    bool asJson = false;
};

struct Entry {
    std::string typeId;
    const char* kind;
    std::string name;
    const char* format;
    const char* lowestVersion;
    const char* highestVersion;
    Origin origin;
};

std::vector<Entry> entriesOf(const Catalog& catalog, const std::string& kind) {
    std::vector<Entry> entries;
    for (const auto& [typeId, item] : itemsOf(catalog)) {
        if (kind.empty() || kind == item.kind->name) {
            const auto [lowest, highest] = catalog.engine.getCompatibleDataModelRange(typeId);
            entries.push_back({typeId, item.kind->name, item.name, formatNameOf(*item.document), formatVersion(lowest),
                               formatVersion(highest), item.document->origin});
        }
    }
    return entries;
}

void printAsTable(const std::vector<Entry>& entries) {
    std::vector<Row> rows = {{"TYPEID", "KIND", "NAME", "FORMAT", "VERSIONS"}};
    for (const Entry& entry : entries) {
        rows.push_back({printable(entry.typeId), entry.kind, printable(entry.name), entry.format,
                        fmt::format("{} to {}", entry.lowestVersion, entry.highestVersion)});
    }
    printTable(rows);
}

void printAsJson(const std::vector<Entry>& entries) {
    OutputJson list = OutputJson::array();
    for (const Entry& entry : entries) {
        list.push_back({{"typeid", entry.typeId},
                        {"kind", entry.kind},
                        {"name", entry.name},
                        {"format", entry.format},
                        {"lowestVersion", entry.lowestVersion},
                        {"highestVersion", entry.highestVersion},
                        {"file", entry.origin.file->name},
                        {"line", std::max<std::size_t>(entry.origin.line, 1)}});
    }
    fmt::print("{}\n", dumped(list));
}

Status list(const ListOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const std::vector<Entry> entries = entriesOf(catalog, options.kind);
    if (options.asJson) {
        printAsJson(entries);
    } else {
        printAsTable(entries);
    }
    return statusOf(catalog.report);
}

} // namespace

void addList(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("list", "List the documents of a catalog with their names and versions");
    auto options = std::make_shared<ListOptions>();
    addSources(*command, options->sources);
    command->add_option("--kind", options->kind, "List only documents of this kind")
        ->check(CLI::IsMember(kindNames()))
        ->type_name("KIND");
    command->add_flag("--json", options->asJson, "Print a JSON array instead of a table");
    addExample(*command, "catalog --kind parameter");
    command->callback([options, &status] { status = list(*options); });
}

} // namespace Tool
