#pragma once

#include "DocumentFiles.h"

#include <Parameters/Diagnostics.h>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Tool {

/// How much a finding weighs: those of diagnoses, and of comparisons.
enum class Level { Error, Warning, Blocked, Incompatible, Compatible, Texts, Layout };

/// Something to be said of a place in a file.
struct Finding {
    Level level = Level::Error;
    std::string_view rule;
    /// Null where it is said of a path.
    const DocumentText* document = nullptr;
    std::string file;
    /// From 1, columns in characters; 0 where it is said of the file.
    std::size_t line = 0;
    std::size_t column = 0;
    /// Behind the last character.
    std::size_t endLine = 0;
    std::size_t endColumn = 0;
    std::string pointer;
    std::string typeId;
    std::string message;
    std::string suggestion;
    std::string cause;
    /// Whether the message quotes what stands at the place.
    bool quotesPlace = false;
};

/// What is said of documents, and of how many.
struct Report {
    std::vector<Finding> findings;
    std::size_t documents = 0;
    std::size_t errors = 0;
    std::size_t warnings = 0;
    /// Documents with errors or warnings.
    std::size_t documentsWithFindings = 0;
    /// Documents that cannot be loaded because of others.
    std::size_t blocked = 0;
    std::size_t unreadablePaths = 0;
    /// By document, whether it cannot be loaded.
    std::vector<bool> isRefused;
};

/// What rules are set to, by name.
using RuleSettings = std::map<std::string, std::string, std::less<>>;

struct ReportOptions {
    /// Rules that are off, or of another severity than usual.
    RuleSettings rules;
    /// Whether blocked documents are listed.
    bool listsBlocked = false;
    /// Whether warnings are looked for.
    bool hasWarnings = true;
};

/// Diagnoses documents. What is said of the context is left out.
Report reportOn(const DocumentFiles& files, const ReportOptions& options);

/// Prints what was said of documents, and of how many.
void printReport(const Report& report, std::string_view format);

} // namespace Tool
