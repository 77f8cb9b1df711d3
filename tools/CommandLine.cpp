#include "CommandLine.h"

#include "Items.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>

namespace Tool {

Status operator|(Status left, Status right) { return std::max(left, right); }

void addExample(CLI::App& command, const std::string& arguments) {
    command.footer("Example:\n  parameters " + command.get_name() + " " + arguments);
}

void addSources(CLI::App& command, Sources& sources) {
    command
        .add_option("PATH", sources.paths,
                    ".json files (one document each), .jsonl files (one document per line), folders, searched "
                    "recursively, or - "
                    "for standard input")
        ->type_name("")
        ->required();
    command.add_flag("--follow", sources.followsLinks, "Follow symbolic links in folders");
}

CLI::Option* addTypeId(CLI::App& command, std::string& typeId) {
    return command.add_option("--typeid", typeId, "Typeid of the document")->type_name("TYPEID");
}

CLI::Option* addDataModel(CLI::App& command, std::string& version) {
    return command.add_option("--data-model", version, "Target data model version")
        ->check(CLI::IsMember(std::vector<std::string>(versionTexts.begin(), versionTexts.end())))
        ->type_name("VERSION");
}

void addOutputFolder(CLI::App& command, std::string& folder, bool& overwrite) {
    command.add_option("--out", folder, "Output folder, created if needed")->type_name("DIR")->required();
    addForce(command, overwrite);
}

void addForce(CLI::App& command, bool& overwrite) {
    command.add_flag("--force", overwrite, "Overwrite existing files");
}

Parameters::DataModelVersion versionOf(const std::string& text) {
    const auto position = std::find(versionTexts.begin(), versionTexts.end(), text);
    return static_cast<Parameters::DataModelVersion>(position - versionTexts.begin());
}

void printSkippedLinks(const DocumentFiles& files) {
    if (files.skippedLinks != 0) {
        printError(fmt::format("{} skipped; --follow reads what links in folders lead to.",
                               counted(files.skippedLinks, "link")));
    }
}

Catalog loadForUse(const Sources& sources) {
    Catalog catalog = loadCatalog(sources);
    printSkippedLinks(catalog.files);
    for (const Finding& finding : catalog.report.findings) {
        printError(formatFinding(finding, false));
    }
    return catalog;
}

Status statusOf(const Report& report) {
    if (report.unreadablePaths != 0) {
        return Status::Failure;
    }
    return report.errors == 0 ? Status::Success : Status::Errors;
}

} // namespace Tool
