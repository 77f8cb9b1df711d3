#include "CommandLine.h"
#include "Items.h"
#include "Layout.h"
#include "References.h"
#include "Text.h"

#include <fmt/core.h>

#include <memory>
#include <utility>

namespace Tool {

namespace {

struct DepsOptions {
    Sources sources;
    std::string typeId;
    bool asTree = false;
    bool isReverse = false;
};

Tree treeOf(const Links& links, const std::map<std::string, Item>& items, const std::string& typeId,
            std::set<std::string>& shown) {
    const Item& item = items.at(typeId);
    Tree tree = {fmt::format("{} {}", item.kind->name, formatLabel(typeId, item.name)), {}};
    const std::set<std::string>& next = links.at(typeId);
    // Shared branches would otherwise be repeated, exponentially often at worst.
    if (!next.empty() && !shown.insert(typeId).second) {
        tree.text += ", see above";
        return tree;
    }
    for (const std::string& neighbour : next) {
        tree.branches.push_back(treeOf(links, items, neighbour, shown));
    }
    return tree;
}

void printAsTable(const Links& links, const std::map<std::string, Item>& items, const std::string& typeId) {
    const std::set<std::string>& direct = links.at(typeId);
    std::vector<Row> rows;
    for (const auto& [found, distance] : reachableFrom(links, typeId)) {
        if (distance != 0) {
            const Item& item = items.at(found);
            rows.push_back({printable(found), item.kind->name, direct.count(found) != 0 ? "directly" : "indirectly",
                            printable(item.name)});
        }
    }
    printTable(rows);
}

Status printDependencies(const DepsOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const std::string typeId = typeIdIn(catalog, options.typeId);
    const Links links = options.isReverse ? linksToReferrers(catalog) : Links(catalog);
    const auto items = itemsAround(catalog, links, typeId);
    if (options.asTree) {
        std::set<std::string> shown;
        printTree(treeOf(links, items, typeId, shown));
    } else {
        printAsTable(links, items, typeId);
    }
    return statusOf(catalog.report);
}

} // namespace

void addDeps(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("deps", "List what a document needs, or what needs it");
    auto options = std::make_shared<DepsOptions>();
    addSources(*command, options->sources);
    addTypeId(*command, options->typeId)->required();
    command->add_flag("--tree", options->asTree, "Print a tree of references");
    command->add_flag("--reverse", options->isReverse, "List what refers to the document instead");
    addExample(*command, "catalog --typeid parameter.supplyDiffuser-1.0.0 --tree");
    command->callback([options, &status] { status = printDependencies(*options); });
}

} // namespace Tool
