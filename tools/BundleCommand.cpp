#include "CommandLine.h"
#include "OutputFolder.h"
#include "Text.h"

#include <fmt/core.h>

#include <memory>
#include <set>

namespace Tool {

namespace {

struct BundleOptions {
    Sources sources;
    std::string typeId;
    std::string folder;
    bool overwrite = false;
};

/// The document and all that it needs, directly and indirectly.
std::set<std::string> closureOf(const Parameters::ParametersEngine& engine, const std::string& typeId) {
    std::set<std::string> closure;
    std::set<std::string> open = {typeId};
    while (!open.empty()) {
        const std::string next = open.extract(open.begin()).value();
        if (closure.insert(next).second) {
            open.merge(engine.getDependencies(next));
        }
    }
    return closure;
}

Status bundle(const BundleOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const std::string typeId = typeIdIn(catalog, options.typeId);
    OutputFolder output(options.folder, options.overwrite);
    for (const std::string& needed : closureOf(catalog.engine, typeId)) {
        output.add(needed, catalog.engine.getSchema(needed));
    }
    output.write();

    Sources files;
    files.paths = output.files();
    const Catalog written = loadForUse(files);
    if (statusOf(written.report) != Status::Success) {
        printError(fmt::format("The documents in {} do not load on their own.", printable(output.name())));
        return statusOf(written.report) | Status::Failure;
    }
    fmt::print("{} written to {}; {} own.\n", counted(output.size(), "document"), printable(output.name()),
               output.size() == 1 ? "it loads on its" : "they load on their");
    return statusOf(catalog.report);
}

} // namespace

void addBundle(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("bundle", "Write a document and everything it needs to a folder");
    auto options = std::make_shared<BundleOptions>();
    addSources(*command, options->sources);
    addTypeId(*command, options->typeId)->required();
    addOutputFolder(*command, options->folder, options->overwrite);
    addExample(*command, "catalog --typeid parameter.supplyDiffuser-1.0.0 --out diffuser");
    command->callback([options, &status] { status = bundle(*options); });
}

} // namespace Tool
