#include "CommandLine.h"
#include "Differences.h"
#include "Items.h"
#include "OutputFolder.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

namespace Tool {

namespace {

struct ExportOptions {
    Sources sources;
    std::string version;
    std::string folder;
    bool isQuiet = false;
    bool overwrite = false;
};

void printLosses(const Document& document, const std::string& written) {
    const std::vector<std::string> losses = lossesOf(std::string(document.text), written);
    if (!losses.empty()) {
        fmt::print("{}: Rewriting {} loses:\n", formatOrigin(document.origin), printable(document.typeId));
    }
    for (const std::string& loss : losses) {
        fmt::print("  {}\n", printable(loss));
    }
}

struct Export {
    /// Texts that differ from the registered ones, by the documents that they are for.
    std::vector<std::pair<const Document*, std::string>> rewritten;
    /// What cannot be represented, a message each by typeid.
    std::map<std::string, std::string> refused;
    std::vector<const Document*> written;
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
            result.written.push_back(item.document);
        } catch (const Parameters::ValidationException& exception) {
            result.refused.emplace(typeId, fmt::format("{}: {}: {}", formatOrigin(item.document->origin),
                                                       printable(typeId), printable(exception.what())));
        }
    }
    return result;
}

std::size_t countIncomplete(const Export& result) {
    return static_cast<std::size_t>(
        std::count_if(result.written.begin(), result.written.end(), [&](const Document* document) {
            const std::set<std::string> references = referencesOf(*document);
            return std::any_of(references.begin(), references.end(),
                               [&](const std::string& typeId) { return result.refused.count(typeId) != 0; });
        }));
}

Status exportCatalog(const ExportOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    OutputFolder output(options.folder, options.overwrite);
    const Export result = addAll(output, catalog, versionOf(options.version));
    output.write();

    if (!options.isQuiet) {
        for (const auto& [document, text] : result.rewritten) {
            printLosses(*document, text);
        }
    }
    for (const auto& [typeId, message] : result.refused) {
        fmt::print("{}\n", message);
    }
    if (const std::size_t count = countIncomplete(result); count != 0) {
        fmt::print("References to documents that cannot be represented remain in {}.\n", counted(count, "document"));
    }
    fmt::print("{} in {} for data model {}, {} rewritten; {} cannot be represented.\n",
               counted(output.size(), "document"), printable(output.name()), options.version, result.rewritten.size(),
               result.refused.size());
    return statusOf(catalog.report) | (result.refused.empty() ? Status::Success : Status::Errors);
}

} // namespace

void addExport(CLI::App& app, Status& status) {
    auto* command =
        app.add_subcommand("export", "Write a catalog for another data model version and report what is lost");
    auto options = std::make_shared<ExportOptions>();
    addSources(*command, options->sources);
    addDataModel(*command, options->version)->required();
    addOutputFolder(*command, options->folder, options->overwrite);
    command->add_flag("--quiet", options->isQuiet, "Do not report what rewriting loses");
    addExample(*command, "catalog --data-model 1.0.0 --out catalog-1.0.0");
    command->callback([options, &status] { status = exportCatalog(*options); });
}

} // namespace Tool
