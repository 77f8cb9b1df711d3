#pragma once

#include "Catalog.h"

#include <Parameters/DataModelVersion.h>

#include <CLI/CLI.hpp>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Tool {

enum class Status {
    Success = 0,
    /// The catalog has errors.
    Errors = 1,
    /// Wrong usage, or a file that cannot be read or written.
    Failure = 2,
};

/// The more severe of two.
Status operator|(Status left, Status right);

/// Shows at the end of a command's help how it is called.
void addExample(CLI::App& command, const std::string& arguments);

// Options of several commands.

CLI::Option* addSources(CLI::App& command, Sources& sources);
void addFollow(CLI::App& command, bool& followsLinks);
CLI::Option* addTypeId(CLI::App& command, std::string& typeId);
CLI::Option* addDataModel(CLI::App& command, std::string& version);
void addOutputFolder(CLI::App& command, std::string& folder, bool& overwrite);
void addForce(CLI::App& command, bool& overwrite);
void addFormat(CLI::App& command, std::string& format);
/// Those of a command, by name: why one cannot be set, or nothing.
using SettableRules = std::map<std::string_view, std::string_view>;
/// --rule NAME=VALUE, which goes to the settings.
void addRules(CLI::App& command, RuleSettings& settings, const std::vector<std::string>& values,
              const SettableRules& rules);
Parameters::DataModelVersion versionOf(const std::string& text);

/// Tells of links that were not followed, on standard error.
void printSkippedLinks(const DocumentFiles& files);

/// Loads a catalog for a command that works on what is finished, and prints errors to standard error.
Catalog loadForUse(const Sources& sources);

/// The outcome of reading and loading.
Status statusOf(const Report& report);

// Each adds a command that sets the status when it runs.

void addCheck(CLI::App& app, Status& status);
void addList(CLI::App& app, Status& status);
void addShow(CLI::App& app, Status& status);
void addSchema(CLI::App& app, Status& status);
void addEditorSchema(CLI::App& app, Status& status);
void addExport(CLI::App& app, Status& status);
void addDeps(CLI::App& app, Status& status);
void addBundle(CLI::App& app, Status& status);
void addDiff(CLI::App& app, Status& status);
void addFmt(CLI::App& app, Status& status);
void addGraph(CLI::App& app, Status& status);

} // namespace Tool
