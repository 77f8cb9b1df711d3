#include "CommandLine.h"
#include "Differences.h"
#include "Items.h"
#include "OutputFolder.h"
#include "Text.h"

#include <fmt/core.h>

#include <memory>
#include <utility>

namespace Tool {

namespace {

struct ExportOptions {
    std::vector<std::string> paths;
    std::string version;
    std::string folder;
    bool isQuiet = false;
    bool overwrite = false;
};

void printLosses(const Document& document, const std::string& written) {
    const std::vector<std::string> losses = lossesOf(document.text, written);
    if (!losses.empty()) {
        fmt::print("{}: {}, rewritten, no longer holds all:\n", wordsFor(document.origin), printable(document.typeId));
    }
    for (const std::string& loss : losses) {
        fmt::print("  {}\n", printable(loss));
    }
}

struct Export {
    /// Texts that differ from the registered ones, by the documents that they are for.
    std::vector<std::pair<const Document*, std::string>> rewritten;
    /// What cannot be represented, a message each.
    std::vector<std::string> refused;
};

Export addAll(OutputFolder& output, const Catalog& catalog, Parameters::DataModelVersion version) {
    Export result;
    for (const auto& [typeId, item] : itemsOf(catalog)) {
        try {
            std::string text = catalog.engine.getSchemaInCompatibleFormat(version, typeId);
            if (text != item.document->text) {
                result.rewritten.emplace_back(item.document, text);
            }
            output.add(typeId, std::move(text));
        } catch (const Parameters::ValidationException& exception) {
            result.refused.push_back(
                fmt::format("{}: {}: {}", wordsFor(item.document->origin), printable(typeId), exception.what()));
        }
    }
    return result;
}

Status exportCatalog(const ExportOptions& options) {
    const Catalog catalog = loadForUse(options.paths);
    OutputFolder output(options.folder, options.overwrite);
    const Export result = addAll(output, catalog, versionOf(options.version));
    output.write();

    if (!options.isQuiet) {
        for (const auto& [document, text] : result.rewritten) {
            printLosses(*document, text);
        }
    }
    for (const std::string& message : result.refused) {
        fmt::print("{}\n", message);
    }
    fmt::print("{} in {} for data model {}, {} of them rewritten; {} cannot be represented.\n",
               counted(output.size(), "document"), printable(output.name()), options.version, result.rewritten.size(),
               result.refused.size());
    return statusOf(catalog) | (result.refused.empty() ? Status::Success : Status::Faults);
}

} // namespace

void addExport(CLI::App& app, Status& status) {
    auto* command =
        app.add_subcommand("export", "Write a catalog for an older data model version, and tell what that loses");
    auto options = std::make_shared<ExportOptions>();
    addPaths(*command, options->paths);
    addDataModel(*command, options->version)->required();
    addOutputFolder(*command, options->folder, options->overwrite);
    command->add_flag("--quiet", options->isQuiet, "Don't tell what the rewritten documents no longer hold");
    command->callback([options, &status] { status = exportCatalog(*options); });
}

} // namespace Tool
