#include "CommandLine.h"
#include "Graphviz.h"
#include "Items.h"
#include "OutputFiles.h"
#include "References.h"
#include "Text.h"

#include <fmt/core.h>

#include <filesystem>
#include <memory>

namespace Tool {

namespace {

/// Beyond this, dot is slow and its pictures are unreadable.
constexpr std::size_t manyDocuments = 1000;

struct GraphOptions {
    Sources sources;
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
        printError(fmt::format("Drawing {} documents takes a while; --typeid and --depth select fewer.", documents));
    }
    return svgOf(dot);
}

Status graph(const GraphOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const Links references = linksToReferences(catalog);
    const auto shown = documentsToShow(catalog, references, options);
    const std::string dot = dotText(itemsOf(catalog), references, shown);
    if (options.file.empty()) {
        fmt::print("{}", dot);
    } else {
        const bool isPicture = std::filesystem::path(options.file).extension() == ".svg";
        writeFiles({{options.file, isPicture ? pictureOf(dot, shown.size()) : dot}}, options.overwrite);
        fmt::print("Wrote {} with {}.\n", printable(options.file), counted(shown.size(), "document"));
    }
    return statusOf(catalog);
}

std::string validateFileName(const std::string& file) {
    const auto extension = std::filesystem::path(file).extension();
    return extension == ".dot" || extension == ".svg" ? "" : "Name must end with .dot or .svg";
}

std::string validateDepth(const std::string& depth) {
    const bool isNumber = !depth.empty() && depth.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? "" : "Must be a non-negative integer";
}

} // namespace

void addGraph(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("graph", "Draw references between documents, as Graphviz text or as a picture");
    auto options = std::make_shared<GraphOptions>();
    addSources(*command, options->sources);
    auto* typeId = addTypeId(*command, options->typeId)->description("Draw only this document and what it needs");
    command->add_flag("--reverse", options->isReverse, "Draw what refers to the document instead")->needs(typeId);
    command->add_option("--depth", options->depth, "Draw only what is at most this many references away")
        ->type_name("NUMBER")
        ->check(CLI::Validator(validateDepth, ""))
        ->needs(typeId);
    command
        ->add_option(
            "--out", options->file,
            "Output file: .dot text, or .svg drawn by Graphviz's program dot; .dot text to standard output if omitted")
        ->type_name("FILE")
        ->check(CLI::Validator(validateFileName, ""));
    addForce(*command, options->overwrite);
    command->callback([options, typeId, &status] {
        options->hasTypeId = typeId->count() != 0;
        status = graph(*options);
    });
}

} // namespace Tool
