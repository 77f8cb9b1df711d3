#include "ReportFormats.h"

#include "OutputJson.h"
#include "Text.h"

#include <fmt/core.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Tool {

namespace {

struct LevelRow {
    Level level;
    std::string_view name;
    /// Of a terminal.
    std::string_view color;
    /// In SARIF, and as annotation of a workflow.
    std::string_view sarifLevel;
    std::string_view annotation;
};

constexpr std::string_view red = "\033[1;31m";
constexpr std::string_view magenta = "\033[1;35m";
constexpr std::string_view blue = "\033[1;34m";
constexpr std::array levelRows = {
    LevelRow{Level::Error, "error", red, "error", "error"},
    LevelRow{Level::Warning, "warning", magenta, "warning", "warning"},
    LevelRow{Level::Blocked, "blocked", blue, "note", "notice"},
    LevelRow{Level::Incompatible, "incompatible", red, "error", "error"},
    LevelRow{Level::Compatible, "compatible", blue, "note", "notice"},
    LevelRow{Level::Texts, "texts", blue, "note", "notice"},
    LevelRow{Level::Layout, "layout", blue, "none", "notice"},
};

const LevelRow& rowOf(Level level) { return levelRows.at(static_cast<std::size_t>(level)); }

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

void printText(const std::vector<Finding>& findings, const ReportFrame& frame) {
    const bool hasColors = printsColors();
    for (const Finding& finding : findings) {
        fmt::print("{}\n", formatFinding(finding, hasColors));
    }
    fmt::print("{}\n", frame.summary);
}

void addUnlessEmpty(OutputJson& object, const char* key, std::string_view text) {
    if (!text.empty()) {
        object[key] = text;
    }
}

void printJson(const std::vector<Finding>& findings, const ReportFrame& frame) {
    OutputJson list = OutputJson::array();
    for (const Finding& finding : findings) {
        OutputJson object = {{"severity", rowOf(finding.level).name}, {"rule", finding.rule}, {"file", finding.file}};
        if (finding.line != 0) {
            object["line"] = finding.line;
            object["column"] = finding.column;
        }
        addUnlessEmpty(object, "pointer", finding.pointer);
        addUnlessEmpty(object, "typeid", finding.typeId);
        object["message"] = finding.message;
        addUnlessEmpty(object, "suggestion", finding.suggestion);
        addUnlessEmpty(object, "cause", finding.cause);
        list.push_back(std::move(object));
    }
    OutputJson summary = OutputJson::object();
    for (const auto& [name, count] : frame.counts) {
        summary[name] = count;
    }
    const OutputJson whole = {{"version", 1}, {"findings", std::move(list)}, {"summary", std::move(summary)}};
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

void printSarif(const std::vector<Finding>& findings, const ReportFrame& frame) {
    OutputJson rules = OutputJson::array();
    for (const ReportRule& rule : frame.rules) {
        rules.push_back({{"id", rule.name},
                         {"shortDescription", {{"text", rule.description}}},
                         {"defaultConfiguration", {{"level", rowOf(rule.level).sarifLevel}}}});
    }
    OutputJson results = OutputJson::array();
    for (const Finding& finding : findings) {
        OutputJson result = {{"ruleId", finding.rule},
                             {"level", rowOf(finding.level).sarifLevel},
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

void printWorkflowCommands(const std::vector<Finding>& findings, const ReportFrame& frame) {
    for (const Finding& finding : findings) {
        std::string place = fmt::format("file={}", escapedForWorkflow(finding.file, true));
        if (finding.line != 0) {
            place += fmt::format(",line={},col={}", finding.line, finding.column);
        }
        fmt::print("::{} {},title={}::{}\n", rowOf(finding.level).annotation, place, finding.rule,
                   escapedForWorkflow(wholeMessage(finding), false));
    }
    fmt::print("{}\n", frame.summary);
}

struct FormatRow {
    const char* name;
    void (*print)(const std::vector<Finding>& findings, const ReportFrame& frame);
};

constexpr std::array formatRows = {FormatRow{"text", printText}, FormatRow{"json", printJson},
                                   FormatRow{"sarif", printSarif}, FormatRow{"github", printWorkflowCommands}};

} // namespace

Finding findingOf(const Origin& origin, const std::string& typeId, const std::string& message) {
    Finding finding;
    finding.file = origin.file->name;
    finding.line = std::max<std::size_t>(origin.line, 1);
    finding.column = 1;
    finding.endLine = finding.line;
    finding.endColumn = finding.column;
    finding.typeId = typeId;
    finding.message = fmt::format("{}: {}", typeId, message);
    return finding;
}

std::string_view nameOf(Level level) { return rowOf(level).name; }

std::string formatFinding(const Finding& finding, bool hasColors) {
    const LevelRow& row = rowOf(finding.level);
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

void printFindings(const std::vector<Finding>& findings, const ReportFrame& frame, std::string_view format) {
    const auto* row =
        std::find_if(formatRows.begin(), formatRows.end(), [&](const FormatRow& each) { return each.name == format; });
    row->print(findings, frame);
}

} // namespace Tool
