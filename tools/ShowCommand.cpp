#include "CommandLine.h"
#include "Description.h"

#include <memory>

namespace Tool {

namespace {

struct ShowOptions {
    std::vector<std::string> paths;
    std::string typeId;
};

Status show(const ShowOptions& options) {
    const Catalog catalog = loadForUse(options.paths);
    positionOf(catalog, options.typeId);
    printTree(describe(catalog, itemsOf(catalog), options.typeId));
    return statusOf(catalog);
}

} // namespace

void addShow(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("show", "Show a document as a tree, with what it refers to");
    auto options = std::make_shared<ShowOptions>();
    addPaths(*command, options->paths);
    addTypeId(*command, options->typeId)->required();
    command->callback([options, &status] { status = show(*options); });
}

} // namespace Tool
