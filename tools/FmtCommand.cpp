#include "CommandLine.h"
#include "Findings.h"
#include "Formatting.h"
#include "OutputFiles.h"
#include "Progress.h"
#include "ReportFormats.h"
#include "Text.h"

#include <dtl/dtl.hpp>
#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

namespace Tool {

namespace {

struct FmtOptions {
    Sources sources;
    bool checks = false;
    bool showsDifferences = false;
    bool writes = false;
};

/// A file as it should be.
struct FormattedFile {
    const SourceFile* file = nullptr;
    std::string text;
};

/// Puts documents that are JSON into the layout. What lies between lines of documents stays.
std::vector<FormattedFile> formatAll(const DocumentFiles& files, const std::set<const DocumentText*>& broken) {
    std::vector<FormattedFile> results;
    Progress progress("Formatting", files.documents.size());
    std::size_t copied = 0;
    const auto copyUpTo = [&](std::size_t end) {
        FormattedFile& result = results.back();
        result.text += std::string_view(result.file->text).substr(copied, end - copied);
        copied = end;
    };
    const auto finish = [&] {
        if (!results.empty()) {
            copyUpTo(results.back().file->text.size());
        }
        copied = 0;
    };
    for (const DocumentText& document : files.documents) {
        progress.advance();
        if (results.empty() || results.back().file != document.origin.file) {
            finish();
            results.push_back({document.origin.file, {}});
        }
        if (broken.count(&document) != 0) {
            continue;
        }
        copyUpTo(static_cast<std::size_t>(document.text.data() - document.origin.file->text.data()));
        results.back().text += document.origin.line == 0 ? formatted(document.text) : formattedAsLine(document.text);
        copied += document.text.size();
        if (document.origin.line != 0 && copied == document.origin.file->text.size()) {
            results.back().text += '\n';
        }
    }
    finish();
    return results;
}

void printDifferences(const SourceFile& file, const std::string& text) {
    const auto linesOf = [](const std::string& whole) {
        std::vector<std::string> lines;
        std::istringstream stream(whole);
        for (std::string line; std::getline(stream, line);) {
            lines.push_back(std::move(line));
        }
        return lines;
    };
    dtl::Diff<std::string> difference(linesOf(file.text), linesOf(text));
    difference.onHuge();
    difference.compose();
    difference.composeUnifiedHunks();
    std::ostringstream hunks;
    difference.printUnifiedFormat(hunks);
    const std::string whole = fmt::format("--- {}\n+++ {}\n{}", file.name, file.name, hunks.str());
    // Elsewhere it may be applied.
    fmt::print("{}", isatty(STDOUT_FILENO) != 0 ? printableJson(whole) : whole);
}

Status format(const FmtOptions& options) {
    const DocumentFiles files = readDocumentFiles(options.sources);
    printSkippedLinks(files);
    ReportOptions reportOptions;
    reportOptions.hasWarnings = false;
    const Report report = reportOn(files, reportOptions);
    std::set<const DocumentText*> broken;
    Status status = report.unreadablePaths != 0 || report.documents == 0 ? Status::Failure : Status::Success;
    for (const Finding& finding : report.findings) {
        if (finding.document == nullptr || finding.document->fault || finding.rule == "invalid-json") {
            printError(formatFinding(finding, false));
            broken.insert(finding.document);
            status = status | Status::Errors;
        }
    }
    std::vector<OutputFile> outputs;
    const std::vector<FormattedFile> results = formatAll(files, broken);
    for (const auto& [file, text] : results) {
        const bool differs = text != file->text;
        if (options.writes) {
            if (differs) {
                outputs.push_back({std::filesystem::canonical(file->name), text});
            }
        } else if (!options.checks && !options.showsDifferences) {
            fmt::print("{}", isatty(STDOUT_FILENO) != 0 ? printableJson(text) : text);
        } else if (differs) {
            status = status | Status::Errors;
            if (options.checks) {
                fmt::print("{}\n", printable(file->name));
            } else {
                printDifferences(*file, text);
            }
        }
    }
    if (options.writes) {
        writeFiles(outputs, true);
        fmt::print("{} of {} rewritten.\n", outputs.size(), counted(results.size(), "file"));
    }
    return status;
}

} // namespace

void addFmt(CLI::App& app, Status& status) {
    auto* command = app.add_subcommand("fmt", "Print documents in the one layout, or put files into it");
    auto options = std::make_shared<FmtOptions>();
    addSources(*command, options->sources);
    auto* check = command->add_flag("--check", options->checks, "List files that are laid out otherwise");
    auto* diff = command->add_flag("--diff", options->showsDifferences, "Show what would change")->excludes(check);
    command->add_flag("--write", options->writes, "Rewrite the files")->excludes(check)->excludes(diff);
    addExample(*command, "catalog --write");
    command->callback([options, &status] {
        const auto& paths = options->sources.paths;
        if (options->writes && std::find(paths.begin(), paths.end(), "-") != paths.end()) {
            throw CLI::ValidationError("--write", "standard input cannot be rewritten");
        }
        status = format(*options);
    });
}

} // namespace Tool
