#pragma once

#include "Findings.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tool {

/// A rule that findings can have.
struct ReportRule {
    std::string_view name;
    Level level;
    std::string_view description;
};

/// What a report says beside its findings.
struct ReportFrame {
    std::vector<ReportRule> rules;
    /// A sentence.
    std::string summary;
    /// The same for programs, by name.
    std::vector<std::pair<const char*, std::size_t>> counts;
};

/// Ways to print a report.
const std::vector<std::string>& reportFormats();
void printFindings(const std::vector<Finding>& findings, const ReportFrame& frame, std::string_view format);

/// Something to be said of a whole document.
Finding findingOf(const Origin& origin, const std::string& typeId, const std::string& message);

/// As formats name it.
std::string_view nameOf(Level level);

/// FILE:LINE:COLUMN: level: message [rule]
std::string formatFinding(const Finding& finding, bool hasColors);

} // namespace Tool
