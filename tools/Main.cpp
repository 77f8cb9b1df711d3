#include "CommandLine.h"
#include "Text.h"

#include <cstdio>
#include <exception>

namespace {

constexpr const char* footer = R"(Exit status:
  0  all is well
  1  the catalog has faults, or a document cannot be represented as asked
  2  wrong usage, or a file that cannot be read or written
Results go to standard output, errors to standard error.)";

Tool::Status run(int argc, char** argv) {
    CLI::App app("Checks, shows and converts catalogs of schema documents.", "parameters");
    app.set_version_flag("--version", "parameters " PARAMETERS_VERSION);
    app.set_help_all_flag("--help-all", "Print this help message with that of all commands and exit");
    app.footer(footer);
    app.require_subcommand(1);
    app.fallthrough(false);

    auto status = Tool::Status::Success;
    Tool::addCheck(app, status);
    Tool::addList(app, status);
    Tool::addShow(app, status);
    Tool::addSchema(app, status);
    Tool::addExport(app, status);
    Tool::addDeps(app, status);
    Tool::addBundle(app, status);
    Tool::addGraph(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? Tool::Status::Success : Tool::Status::Failure;
    }
    return status;
}

} // namespace

int main(int argc, char** argv) {
    auto status = Tool::Status::Failure;
    try {
        status = run(argc, argv);
    } catch (const std::exception& exception) {
        // What standard output refuses is told below.
        if (std::ferror(stdout) == 0) {
            Tool::printError(exception.what());
        }
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        Tool::printError("Standard output cannot be written.");
        status = Tool::Status::Failure;
    }
    return static_cast<int>(status);
}
