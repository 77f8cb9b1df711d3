#include "CommandLine.h"

#include "Items.h"
#include "ReportFormats.h"
#include "Text.h"

#include <fmt/core.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

namespace Tool {

Status operator|(Status left, Status right) { return std::max(left, right); }

void addExample(CLI::App& command, const std::string& arguments) {
    command.footer("Example:\n  parameters " + command.get_name() + " " + arguments);
}

CLI::Option* addSources(CLI::App& command, Sources& sources) {
    addFollow(command, sources.followsLinks);
    return command
        .add_option("PATH", sources.paths,
                    ".json files (one document each), .jsonl files (one document per line), folders, searched "
                    "recursively, or - "
                    "for standard input")
        ->type_name("")
        ->required();
}

void addFollow(CLI::App& command, bool& followsLinks) {
    command.add_flag("--follow", followsLinks, "Follow symbolic links in folders");
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

void addFormat(CLI::App& command, std::string& format) {
    command.add_option("--format", format, "How to report: text, json, sarif, or github for annotations")
        ->check(CLI::IsMember(reportFormats()))
        ->type_name("FORMAT");
}

void addRules(CLI::App& command, RuleSettings& settings, const std::vector<std::string>& values,
              const SettableRules& rules) {
    const std::string forms =
        fmt::format("NAME={} or NAME={}", fmt::join(values.begin(), values.end() - 1, ", NAME="), values.back());
    const auto partsOf = [](const std::string& setting) {
        const std::size_t sign = setting.find('=');
        return std::pair(setting.substr(0, sign), sign == std::string::npos ? "" : setting.substr(sign + 1));
    };
    const auto validate = [=](const std::string& setting) -> std::string {
        const auto [name, value] = partsOf(setting);
        if (std::find(values.begin(), values.end(), value) == values.end()) {
            return fmt::format("{} must be {}", printable(setting), forms);
        }
        if (const auto rule = rules.find(name); rule != rules.end()) {
            return rule->second.empty() ? "" : fmt::format("{} cannot be changed: {}", name, rule->second);
        }
        std::vector<std::string_view> names;
        for (const auto& [each, reason] : rules) {
            if (reason.empty()) {
                names.push_back(each);
            }
        }
        const std::string nearest = Parameters::nearestWord(name, names);
        return fmt::format("There is no rule {}{}", printable(name),
                           nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest));
    };
    const auto set = [&settings, partsOf](const std::vector<std::string>& given) {
        for (const std::string& setting : given) {
            const auto [name, value] = partsOf(setting);
            settings[name] = value;
        }
    };
    command.add_option_function<std::vector<std::string>>("--rule", set, "Set a rule: " + forms)
        ->check(CLI::Validator(validate, ""))
        ->allow_extra_args(false)
        ->type_name("RULE");
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
    Catalog catalog = loadCatalog(readDocumentFiles(sources));
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
