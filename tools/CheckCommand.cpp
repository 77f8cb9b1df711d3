#include "CommandLine.h"
#include "Findings.h"

#include <memory>

namespace Tool {

namespace {

struct CheckOptions {
    Sources sources;
    ReportOptions report;
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

/// Only what is not refused anyway can be set.
SettableRules settableRules() {
    SettableRules rules;
    for (const Parameters::DiagnosticRule& rule : Parameters::diagnosticRules()) {
        rules[rule.name] =
            rule.severity == Parameters::Severity::Warning ? "" : "documents that break it cannot be loaded";
    }
    return rules;
}

} // namespace

void addCheck(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("check", "Report all errors in a catalog, and what can hardly be meant");
    auto options = std::make_shared<CheckOptions>();
    addSources(*command, options->sources);
    command
        ->add_option("--with", options->sources.context,
                     "Documents that are there for others to refer to, and not reported on")
        ->allow_extra_args(false)
        ->type_name("PATH");
    addFormat(*command, options->format);
    addRules(*command, options->report.rules, {"off", "warning", "error"}, settableRules());
    command->add_flag("--strict", options->isStrict, "Let warnings count for the exit status");
    command->add_flag("--all", options->report.listsBlocked, "List documents that cannot be loaded because of others");
    addExample(*command, "drafts --with catalog --rule unknown-value-type=off");
    command->callback([options, &status] { status = check(*options); });
}

} // namespace Tool
