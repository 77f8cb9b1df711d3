#include "Findings.h"

#include "ReportFormats.h"
#include "Text.h"

#include <fmt/core.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

namespace Tool {

using Parameters::Diagnosis;
using Parameters::Diagnostic;
using Parameters::Severity;

namespace {

Level levelOf(Severity severity) {
    return severity == Severity::Error ? Level::Error : severity == Severity::Warning ? Level::Warning : Level::Blocked;
}

/// Lines and columns to be found out, by the offsets that they are at.
using Positions = std::multimap<std::size_t, std::pair<std::size_t*, std::size_t*>>;

/// Finds them out in one walk through the text.
void findPositions(std::string_view text, const Positions& positions) {
    std::size_t offset = 0;
    std::size_t line = 1;
    std::size_t column = 1;
    for (const auto& [end, target] : positions) {
        for (; offset < std::min(end, text.size()); ++offset) {
            const auto byte = static_cast<unsigned char>(text[offset]);
            if (byte == '\n') {
                ++line;
                column = 1;
            } else if ((byte & 0xC0U) != 0x80U) {
                // All bytes of a character but the first look like this.
                ++column;
            }
        }
        *target.first = line;
        *target.second = column;
    }
}

bool isPartOfWord(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '-' || character == '_';
}

/// Whether a message says what stands at a place: the characters of a string.
bool quotes(std::string_view message, std::string_view value) {
    if (value.size() <= 2 || value.front() != '"') {
        return false;
    }
    value = value.substr(1, value.size() - 2);
    for (std::size_t at = message.find(value); at != std::string_view::npos; at = message.find(value, at + 1)) {
        const std::size_t end = at + value.size();
        if ((at == 0 || !isPartOfWord(message[at - 1])) && (end == message.size() || !isPartOfWord(message[end]))) {
            return true;
        }
    }
    return false;
}

/// Makes findings of what the library and reading say.
class Reporting {
public:
    Reporting(const DocumentFiles& files, const ReportOptions& options) : files_(files), options_(options) {}

    Report run() {
        report_.documents =
            static_cast<std::size_t>(std::count_if(files_.documents.begin(), files_.documents.end(),
                                                   [](const DocumentText& document) { return !document.isContext; }));
        for (const UnreadablePath& path : files_.unreadable) {
            addUnreadable(path);
        }
        const Diagnosis diagnosis = diagnoseAll();
        auto next = diagnosis.diagnostics.begin();
        for (std::size_t document = 0; document < files_.documents.size(); ++document) {
            const DocumentText& source = files_.documents[document];
            const auto last = std::find_if(next, diagnosis.diagnostics.end(), [&](const Diagnostic& diagnostic) {
                return diagnostic.document != document;
            });
            report_.isRefused.push_back(source.fault || std::any_of(next, last, [](const Diagnostic& diagnostic) {
                                            return diagnostic.severity != Severity::Warning;
                                        }));
            if (source.isContext) {
                next = last;
                continue;
            }
            const std::size_t before = report_.errors + report_.warnings;
            if (source.fault) {
                addFault(source);
                next = last;
            }
            std::for_each(next, last, [&](const Diagnostic& diagnostic) { add(source, diagnostic); });
            next = last;
            report_.documentsWithFindings += report_.errors + report_.warnings != before ? 1 : 0;
        }
        findPlaces();
        return std::move(report_);
    }

private:
    Diagnosis diagnoseAll() const {
        std::vector<std::string_view> texts;
        texts.reserve(files_.documents.size());
        for (const DocumentText& document : files_.documents) {
            texts.push_back(document.fault ? beginningOf(document) : document.text);
        }
        Parameters::DiagnosisOptions options;
        for (const Parameters::DiagnosticRule& rule : Parameters::diagnosticRules()) {
            const auto set = options_.rules.find(rule.name);
            const bool isOff = set != options_.rules.end() ? set->second == "off" : !options_.hasWarnings;
            if (rule.severity == Severity::Warning && isOff) {
                options.disabledRules.emplace(rule.name);
            }
        }
        return Parameters::diagnose(texts, {}, options);
    }

    /// Of a text that is not read: it may tell the typeid, so that nobody misses it, and lacks its end, so that it
    /// remains refused.
    static std::string_view beginningOf(const DocumentText& document) {
        const std::string_view text = document.text.substr(0, document.fault->offset);
        const std::size_t end = text.find_last_not_of(blanks);
        return text.substr(0, end != std::string_view::npos ? end : 0);
    }

    void addUnreadable(const UnreadablePath& path) {
        Finding finding;
        finding.rule = readingRules().front().name;
        finding.file = path.path;
        finding.message = path.reason;
        finding.message.front() = static_cast<char>(finding.message.front() - 'a' + 'A');
        ++report_.unreadablePaths;
        count(std::move(finding));
    }

    void addFault(const DocumentText& source) {
        Finding finding;
        finding.rule = source.fault->rule;
        finding.message = source.fault->message;
        place(finding, source, source.fault->offset, 0);
        count(std::move(finding));
    }

    void add(const DocumentText& source, const Diagnostic& diagnostic) {
        if (diagnostic.severity == Severity::Blocked) {
            ++report_.blocked;
            if (!options_.listsBlocked) {
                return;
            }
        }
        Finding finding;
        finding.level = levelOf(severityOf(diagnostic));
        finding.rule = diagnostic.rule;
        finding.pointer = diagnostic.pointer;
        finding.typeId = diagnostic.typeId;
        finding.message = diagnostic.message;
        finding.suggestion = diagnostic.suggestion;
        finding.cause = diagnostic.cause;
        finding.quotesPlace = quotes(finding.message, source.text.substr(diagnostic.offset, diagnostic.length));
        place(finding, source, diagnostic.offset, diagnostic.length);
        count(std::move(finding));
    }

    [[nodiscard]] Severity severityOf(const Diagnostic& diagnostic) const {
        const auto set = options_.rules.find(diagnostic.rule);
        if (set == options_.rules.end() || diagnostic.severity != Severity::Warning) {
            return diagnostic.severity;
        }
        return set->second == "error" ? Severity::Error : Severity::Warning;
    }

    void place(Finding& finding, const DocumentText& source, std::size_t offset, std::size_t length) {
        const SourceFile& file = *source.origin.file;
        finding.document = &source;
        finding.file = file.name;
        const std::size_t begin =
            static_cast<std::size_t>((source.text.empty() ? file.text.data() : source.text.data()) - file.text.data()) +
            offset;
        places_[&file].push_back({report_.findings.size(), begin, begin + length});
    }

    /// Tells of all findings with places which lines and columns these are.
    void findPlaces() {
        for (const auto& [file, places] : places_) {
            Positions positions;
            for (const Place& place : places) {
                Finding& finding = report_.findings[place.finding];
                positions.emplace(place.begin, std::pair(&finding.line, &finding.column));
                positions.emplace(place.end, std::pair(&finding.endLine, &finding.endColumn));
            }
            findPositions(file->text, positions);
        }
    }

    void count(Finding finding) {
        report_.errors += finding.level == Level::Error ? 1 : 0;
        report_.warnings += finding.level == Level::Warning ? 1 : 0;
        report_.findings.push_back(std::move(finding));
    }

    const DocumentFiles& files_;
    const ReportOptions& options_;
    Report report_;
    /// Of a finding, which is counted next, in its file.
    struct Place {
        std::size_t finding;
        std::size_t begin;
        std::size_t end;
    };
    std::map<const SourceFile*, std::vector<Place>> places_;
};

/// All rules that findings can have: those of diagnoses and those of reading.
std::vector<ReportRule> allRules() {
    std::vector<ReportRule> rules;
    for (const Parameters::DiagnosticRule& rule : Parameters::diagnosticRules()) {
        rules.push_back({rule.name, levelOf(rule.severity), rule.description});
    }
    for (const ReadingRule& rule : readingRules()) {
        rules.push_back({rule.name, Level::Error, rule.description});
    }
    return rules;
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

} // namespace

Report reportOn(const DocumentFiles& files, const ReportOptions& options) { return Reporting(files, options).run(); }

void printReport(const Report& report, std::string_view format) {
    printFindings(report.findings,
                  {allRules(),
                   summaryOf(report),
                   {{"documents", report.documents},
                    {"documentsWithFindings", report.documentsWithFindings},
                    {"errors", report.errors},
                    {"warnings", report.warnings},
                    {"blocked", report.blocked}}},
                  format);
}

} // namespace Tool
