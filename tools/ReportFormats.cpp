#include "DocumentJson.h"
#include "Findings.h"
#include "Text.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Tool {

using Parameters::Severity;

namespace {

struct SeverityRow {
    Severity severity;
    std::string_view name;
    /// Of a terminal.
    std::string_view color;
    /// In SARIF, and as annotation of a workflow.
    std::string_view level;
    std::string_view annotation;
};

constexpr std::array severityRows = {
    SeverityRow{Severity::Error, "error", "\033[1;31m", "error", "error"},
    SeverityRow{Severity::Warning, "warning", "\033[1;35m", "warning", "warning"},
    SeverityRow{Severity::Blocked, "blocked", "\033[1;34m", "note", "notice"},
};

const SeverityRow& rowOf(Severity severity) { return severityRows.at(static_cast<std::size_t>(severity)); }

constexpr std::string_view bold = "\033[1m";
constexpr std::string_view plain = "\033[0m";

/// Whether standard output is a terminal that shows colors and its user has not declined them.
bool printsColors() {
    const char* declined = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return isatty(STDOUT_FILENO) == 1 && (declined == nullptr || *declined == '\0') && terminal != nullptr &&
           std::string_view(terminal) != "dumb";
}

/// The message, with what may have been meant.
std::string wholeMessage(const Finding& finding) {
    if (finding.suggestion.empty()) {
        return finding.message;
    }
    // Names of members stand in quotation marks, typeids do not.
    const char* mark = finding.message.find('"') != std::string::npos ? "\"" : "";
    const std::string_view sentence(finding.message);
    return fmt::format("{}; did you mean {}{}{}?", sentence.substr(0, sentence.size() - 1), mark, finding.suggestion,
                       mark);
}

/// "2 errors and 1 warning"
std::string countedFindings(const Report& report) {
    std::string text = report.errors != 0 ? counted(report.errors, "error") : "";
    if (report.warnings != 0) {
        text += (text.empty() ? "" : " and ") + counted(report.warnings, "warning");
    }
    return text;
}

std::string summaryOf(const Report& report) {
    if (report.errors + report.warnings == 0) {
        return report.documents == 0 ? "No document was read." : counted(report.documents, "document") + ", no faults.";
    }
    std::string text = countedFindings(report);
    if (report.documents != 0) {
        text += fmt::format(" in {} of {}", report.documentsWithFindings, counted(report.documents, "document"));
    }
    if (report.blocked != 0) {
        text += fmt::format("; {} more cannot be loaded because of them", report.blocked);
    }
    return text + ".";
}

void printText(const Report& report) {
    const bool hasColors = printsColors();
    for (const Finding& finding : report.findings) {
        fmt::print("{}\n", formatFinding(finding, hasColors));
    }
    fmt::print("{}\n", summaryOf(report));
}

void addUnlessEmpty(OutputJson& object, const char* key, std::string_view text) {
    if (!text.empty()) {
        object[key] = text;
    }
}

void printJson(const Report& report) {
    OutputJson findings = OutputJson::array();
    for (const Finding& finding : report.findings) {
        OutputJson object = {
            {"severity", rowOf(finding.severity).name}, {"rule", finding.rule}, {"file", finding.file}};
        if (finding.line != 0) {
            object["line"] = finding.line;
            object["column"] = finding.column;
        }
        addUnlessEmpty(object, "pointer", finding.pointer);
        addUnlessEmpty(object, "typeid", finding.typeId);
        object["message"] = finding.message;
        addUnlessEmpty(object, "suggestion", finding.suggestion);
        addUnlessEmpty(object, "cause", finding.cause);
        findings.push_back(std::move(object));
    }
    const OutputJson whole = {{"version", 1},
                              {"findings", std::move(findings)},
                              {"summary",
                               {{"documents", report.documents},
                                {"documentsWithFindings", report.documentsWithFindings},
                                {"errors", report.errors},
                                {"warnings", report.warnings},
                                {"blocked", report.blocked}}}};
    fmt::print("{}\n", dumped(whole));
}

/// A path as a relative reference of a URI.
std::string uriOf(std::string_view path) {
    constexpr std::string_view unreserved = "-._~/";
    std::string uri;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
                             (byte >= 'A' && byte <= 'Z') || unreserved.find(character) != std::string_view::npos;
        uri += isPlain ? std::string(1, character) : fmt::format("%{:02X}", byte);
    }
    return uri;
}

OutputJson sarifLocationOf(const Finding& finding) {
    OutputJson location = {{"physicalLocation", {{"artifactLocation", {{"uri", uriOf(finding.file)}}}}}};
    if (finding.line != 0) {
        location["physicalLocation"]["region"] = {{"startLine", finding.line},
                                                  {"startColumn", finding.column},
                                                  {"endLine", finding.endLine},
                                                  {"endColumn", finding.endColumn}};
    }
    if (!finding.pointer.empty()) {
        location["logicalLocations"] = OutputJson::array({{{"fullyQualifiedName", finding.pointer}}});
    }
    return location;
}

void printSarif(const Report& report) {
    OutputJson rules = OutputJson::array();
    for (const Parameters::DiagnosticRule& rule : allRules()) {
        rules.push_back({{"id", rule.name},
                         {"shortDescription", {{"text", rule.description}}},
                         {"defaultConfiguration", {{"level", rowOf(rule.severity).level}}}});
    }
    OutputJson results = OutputJson::array();
    for (const Finding& finding : report.findings) {
        OutputJson result = {{"ruleId", finding.rule},
                             {"level", rowOf(finding.severity).level},
                             {"message", {{"text", wholeMessage(finding)}}},
                             {"locations", OutputJson::array({sarifLocationOf(finding)})}};
        OutputJson properties = OutputJson::object();
        addUnlessEmpty(properties, "typeid", finding.typeId);
        addUnlessEmpty(properties, "suggestion", finding.suggestion);
        addUnlessEmpty(properties, "cause", finding.cause);
        if (!properties.empty()) {
            result["properties"] = std::move(properties);
        }
        results.push_back(std::move(result));
    }
    const OutputJson driver = {{"name", "parameters"}, {"version", PARAMETERS_VERSION}, {"rules", std::move(rules)}};
    const OutputJson run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", std::move(results)}};
    const OutputJson whole = {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                              {"version", "2.1.0"},
                              {"runs", OutputJson::array({run})}};
    fmt::print("{}\n", dumped(whole));
}

/// Escapes what ends a part of a workflow command.
std::string escapedForWorkflow(std::string_view text, bool isProperty) {
    std::string escaped;
    for (const char character : text) {
        const bool isEscaped = character == '%' || character == '\r' || character == '\n' ||
                               (isProperty && (character == ':' || character == ','));
        escaped +=
            isEscaped ? fmt::format("%{:02X}", static_cast<unsigned char>(character)) : std::string(1, character);
    }
    return escaped;
}

void printWorkflowCommands(const Report& report) {
    for (const Finding& finding : report.findings) {
        std::string place = fmt::format("file={}", escapedForWorkflow(finding.file, true));
        if (finding.line != 0) {
            place += fmt::format(",line={},col={}", finding.line, finding.column);
        }
        fmt::print("::{} {},title={}::{}\n", rowOf(finding.severity).annotation, place, finding.rule,
                   escapedForWorkflow(wholeMessage(finding), false));
    }
    fmt::print("{}\n", summaryOf(report));
}

struct FormatRow {
    const char* name;
    void (*print)(const Report& report);
};

constexpr std::array formatRows = {FormatRow{"text", printText}, FormatRow{"json", printJson},
                                   FormatRow{"sarif", printSarif}, FormatRow{"github", printWorkflowCommands}};

} // namespace

std::string formatFinding(const Finding& finding, bool hasColors) {
    const SeverityRow& row = rowOf(finding.severity);
    std::string place = printable(finding.file);
    if (finding.line != 0) {
        place += fmt::format(":{}:{}", finding.line, finding.column);
    }
    const auto colored = [&](std::string_view color, std::string_view text) {
        return hasColors ? fmt::format("{}{}{}", color, text, plain) : std::string(text);
    };
    const bool hasPointer = !finding.quotesPlace && !finding.pointer.empty();
    return fmt::format("{} {} {} [{}]{}", colored(bold, place + ":"), colored(row.color, fmt::format("{}:", row.name)),
                       printable(wholeMessage(finding)), finding.rule,
                       hasPointer ? " at " + printable(finding.pointer) : "");
}

const std::vector<std::string>& reportFormats() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        all.reserve(formatRows.size());
        for (const FormatRow& row : formatRows) {
            all.emplace_back(row.name);
        }
        return all;
    }();
    return names;
}

void printReport(const Report& report, std::string_view format) {
    const auto* row =
        std::find_if(formatRows.begin(), formatRows.end(), [&](const FormatRow& each) { return each.name == format; });
    row->print(report);
}

} // namespace Tool
