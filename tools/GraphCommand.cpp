#include "CommandLine.h"
#include "Graphviz.h"
#include "Items.h"
#include "OutputFolder.h"
#include "References.h"
#include "Text.h"

#include <fmt/core.h>

#include <filesystem>
#include <memory>

namespace Tool {

namespace {

/// Beyond this, dot takes long and nobody can read what it draws.
constexpr std::size_t manyDocuments = 1000;

struct GraphOptions {
    std::vector<std::string> paths;
    std::string typeId;
    std::string file;
    std::size_t depth = anyDistance;
    bool hasTypeId = false;
    bool isReverse = false;
    bool overwrite = false;
};

std::map<std::string, std::size_t> documentsToShow(const Catalog& catalog, const Links& references,
                                                   const GraphOptions& options) {
    if (options.hasTypeId) {
        positionOf(catalog, options.typeId);
        return reachableFrom(options.isReverse ? linksToReferrers(catalog) : references, options.typeId, options.depth);
    }
    std::map<std::string, std::size_t> all;
    for (const auto& [typeId, neighbours] : references) {
        all.emplace(typeId, 0);
    }
    return all;
}

std::string pictureOf(const std::string& dot, std::size_t documents) {
    if (documents > manyDocuments) {
        printError(fmt::format("Drawing {} documents takes long; --typeid and --depth show fewer.", documents));
    }
    return svgOf(dot);
}

Status graph(const GraphOptions& options) {
    const Catalog catalog = loadForUse(options.paths);
    const Links references = linksToReferences(catalog);
    const auto shown = documentsToShow(catalog, references, options);
    const std::string dot = dotText(itemsOf(catalog), references, shown);
    if (options.file.empty()) {
        fmt::print("{}", dot);
    } else {
        const bool isPicture = std::filesystem::path(options.file).extension() == ".svg";
        writeFile(options.file, isPicture ? pictureOf(dot, shown.size()) : dot, options.overwrite);
        fmt::print("{} with {}.\n", printable(options.file), counted(shown.size(), "document"));
    }
    return statusOf(catalog);
}

std::string validateFileName(const std::string& file) {
    const auto extension = std::filesystem::path(file).extension();
    return extension == ".dot" || extension == ".svg" ? "" : "Name must end with .dot or .svg";
}

std::string validateDepth(const std::string& depth) {
    const bool isNumber = !depth.empty() && depth.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? "" : "Must be a whole number from 0 on";
}

} // namespace

void addGraph(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("graph", "Draw what refers to what, in Graphviz's language or as a picture");
    auto options = std::make_shared<GraphOptions>();
    addPaths(*command, options->paths);
    auto* typeId = addTypeId(*command, options->typeId)->description("Only this document and what it needs");
    command->add_flag("--reverse", options->isReverse, "Only the document and what refers to it")->needs(typeId);
    command->add_option("--depth", options->depth, "Only so many references away from the document")
        ->type_name("NUMBER")
        ->check(CLI::Validator(validateDepth, ""))
        ->needs(typeId);
    command
        ->add_option(
            "--out", options->file,
            "Where to write: FILE.dot, or FILE.svg through Graphviz's program dot; if not given, the former to "
            "standard output")
        ->type_name("FILE")
        ->check(CLI::Validator(validateFileName, ""));
    addForce(*command, options->overwrite);
    command->callback([options, typeId, &status] {
        options->hasTypeId = typeId->count() != 0;
        status = graph(*options);
    });
}

} // namespace Tool
