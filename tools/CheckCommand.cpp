#include "CommandLine.h"
#include "Findings.h"
#include "Text.h"

#include <fmt/core.h>

#include <memory>

namespace Tool {

namespace {

struct CheckOptions {
    Sources sources;
    ReportOptions report;
    std::vector<std::string> rules;
    std::string format = "text";
    bool isStrict = false;
};

Status check(const CheckOptions& options) {
    const DocumentFiles files = readDocumentFiles(options.sources);
    printSkippedLinks(files);
    const Report report = reportOn(files, options.report);
    printReport(report, options.format);
    const bool isRefused = options.isStrict && report.warnings != 0;
    const Status nothingRead = report.documents == 0 ? Status::Failure : Status::Success;
    return statusOf(report) | (isRefused ? Status::Errors : Status::Success) | nothingRead;
}

/// NAME=off|warning|error of a rule of warnings; why it is not.
std::string validateRule(const std::string& setting) {
    const std::size_t sign = setting.find('=');
    const std::string name = setting.substr(0, sign);
    const std::string value = sign == std::string::npos ? "" : setting.substr(sign + 1);
    if (value != "off" && value != "warning" && value != "error") {
        return fmt::format("{} must be NAME=off, NAME=warning or NAME=error", printable(setting));
    }
    std::vector<std::string_view> names;
    for (const Parameters::DiagnosticRule& rule : Parameters::diagnosticRules()) {
        if (rule.severity == Parameters::Severity::Warning) {
            names.push_back(rule.name);
        }
        if (rule.name == name) {
            return rule.severity == Parameters::Severity::Warning
                       ? ""
                       : fmt::format("{} cannot be changed: documents that break it cannot be loaded", name);
        }
    }
    const std::string nearest = Parameters::nearestWord(name, names);
    return fmt::format("There is no rule {}{}", printable(name),
                       nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest));
}

} // namespace

void addCheck(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("check", "Report all errors in a catalog, and what can hardly be meant");
    auto options = std::make_shared<CheckOptions>();
    addSources(*command, options->sources);
    command
        ->add_option("--with", options->sources.context,
                     "Documents that are there for others to refer to, and not reported on")
        ->type_name("PATH");
    command->add_option("--format", options->format, "How to report: text, json, sarif, or github for annotations")
        ->check(CLI::IsMember(reportFormats()))
        ->type_name("FORMAT");
    command->add_option("--rule", options->rules, "Set a warning: NAME=off, NAME=warning or NAME=error")
        ->check(CLI::Validator(validateRule, ""))
        ->type_name("RULE");
    command->add_flag("--strict", options->isStrict, "Let warnings count for the exit status");
    command->add_flag("--all", options->report.listsBlocked, "List documents that cannot be loaded because of others");
    addExample(*command, "drafts --with catalog --rule unknown-value-type=off");
    command->callback([options, &status] {
        for (const std::string& setting : options->rules) {
            const std::size_t sign = setting.find('=');
            options->report.rules[setting.substr(0, sign)] = setting.substr(sign + 1);
        }
        status = check(*options);
    });
}

} // namespace Tool
