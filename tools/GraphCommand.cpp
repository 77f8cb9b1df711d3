#include "CommandLine.h"
#include "Graphviz.h"
#include "Items.h"
#include "OutputFiles.h"
#include "References.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

namespace Tool {

namespace {

/// Beyond this, dot is slow and its pictures are unreadable.
constexpr std::size_t manyToDraw = 2000;

struct GraphOptions {
    Sources sources;
    std::string typeId;
    std::string file;
    std::size_t depth = anyDistance;
    unsigned seconds = 60;
    bool hasTypeId = false;
    bool isReverse = false;
    bool overwrite = false;
};

std::map<std::string, std::size_t> documentsToShow(const Catalog& catalog, const Links& references,
                                                   const GraphOptions& options) {
    if (options.hasTypeId) {
        const std::string typeId = typeIdIn(catalog, options.typeId);
        return reachableFrom(options.isReverse ? linksToReferrers(catalog) : references, typeId, options.depth);
    }
    std::map<std::string, std::size_t> all;
    for (const Document& document : catalog.documents) {
        all.emplace(document.typeId, 0);
    }
    return all;
}

/// The number of references that are drawn.
std::size_t countReferences(const Links& references, const std::map<std::string, std::size_t>& shown) {
    std::size_t count = 0;
    for (const auto& [typeId, distance] : shown) {
        const std::set<std::string>& targets = references.at(typeId);
        count += static_cast<std::size_t>(std::count_if(
            targets.begin(), targets.end(), [&](const std::string& target) { return shown.count(target) != 0; }));
    }
    return count;
}

std::string pictureOf(const std::string& dot, std::size_t documents, std::size_t references, unsigned seconds) {
    if (documents + references > manyToDraw) {
        printError(fmt::format("Drawing {} and {} takes a while; --typeid and --depth select fewer.",
                               counted(documents, "document"), counted(references, "reference")));
    }
    return svgOf(dot, seconds);
}

Status graph(const GraphOptions& options) {
    const Catalog catalog = loadForUse(options.sources);
    const Links references(catalog);
    const auto shown = documentsToShow(catalog, references, options);
    const std::string dot = dotText(itemsOf(catalog), references, shown);
    if (options.file.empty()) {
        fmt::print("{}", dot);
    } else {
        const bool isPicture = std::filesystem::path(options.file).extension() == ".svg";
        writeFiles(
            {{options.file,
              isPicture ? pictureOf(dot, shown.size(), countReferences(references, shown), options.seconds) : dot}},
            options.overwrite);
        fmt::print("Wrote {} with {}.\n", printable(options.file), counted(shown.size(), "document"));
    }
    return statusOf(catalog.report);
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
    command->add_option("--timeout", options->seconds, "Seconds that dot may take, 60 unless told")
        ->type_name("SECONDS")
        ->check(CLI::Range(1U, 1'000'000U));
    addForce(*command, options->overwrite);
    addExample(*command, "catalog --typeid parameter.supplyDiffuser-1.0.0 --out diffuser.svg");
    command->callback([options, typeId, &status] {
        options->hasTypeId = typeId->count() != 0;
        status = graph(*options);
    });
}

} // namespace Tool
