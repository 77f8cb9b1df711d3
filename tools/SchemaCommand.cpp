#include "CommandLine.h"
#include "Formatting.h"
#include "Text.h"

#include <Parameters/Diagnostics.h>

#include <fmt/core.h>
#include <unistd.h>

#include <memory>

namespace Tool {

namespace {

struct SchemaOptions {
    Sources sources;
    std::string typeId;
    std::string version;
    bool isPretty = false;
};

Status printSchema(const SchemaOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const std::string typeId = typeIdIn(catalog, options.typeId);
    std::string text;
    try {
        text = options.version.empty() ? catalog.engine.getSchema(typeId)
                                       : catalog.engine.getSchemaInCompatibleFormat(versionOf(options.version), typeId);
    } catch (const Parameters::ValidationException& exception) {
        printError(fmt::format("{}: {} {}", printable(typeId), exception.what(),
                               Parameters::reasonNotRepresentable(catalog.engine, versionOf(options.version), typeId)));
        return statusOf(catalog.report) | Status::Errors;
    }
    if (options.isPretty) {
        text = formatted(text);
    }
    // Elsewhere the text stays as it is registered.
    if (isatty(STDOUT_FILENO) != 0) {
        text = printableJson(text);
    }
    fmt::print("{}{}", text, text.back() == '\n' ? "" : "\n");
    return statusOf(catalog.report);
}

} // namespace

void addSchema(CLI::App& app, Status& status) {
    auto* command =
        app.add_subcommand("schema", "Print the text of a document, as registered or for another data model version");
    auto options = std::make_shared<SchemaOptions>();
    addSources(*command, options->sources);
    addTypeId(*command, options->typeId)->required();
    addDataModel(*command, options->version);
    command->add_flag("--pretty", options->isPretty, "Print it in the layout of fmt");
    addExample(*command, "catalog --typeid parameter.supplyDiffuser-1.0.0 --data-model 1.0.0");
    command->callback([options, &status] { status = printSchema(*options); });
}

} // namespace Tool
