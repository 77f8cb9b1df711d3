#include "CommandLine.h"
#include "Text.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <string>

namespace {

constexpr const char* footer = R"(Exit status:
  0  no errors
  1  the catalog has errors, or a document cannot be represented as requested
  2  wrong usage, or a file that cannot be read or written
Results go to standard output, messages to standard error.)";

/// Makes each command in --help-all a section with its options, which help2man understands.
class HelpFormatter final : public CLI::Formatter {
public:
    std::string make_expanded(const CLI::App* command) const override {
        std::string text = "\n" + command->get_name() + ":\n  " + command->get_description() + "\n\n";
        for (const CLI::Option* option : command->get_options()) {
            if (option != command->get_help_ptr() && option != command->get_help_all_ptr()) {
                text += make_option(option, option->get_positional());
            }
        }
        // The base class ends the section with another line feed.
        text.pop_back();
        return text;
    }
};

Tool::Status run(int argc, char** argv) {
    CLI::App app("Check, show and convert catalogs of schema documents.", "parameters");
    app.formatter(std::make_shared<HelpFormatter>());
    app.set_version_flag("--version", "parameters " PARAMETERS_VERSION);
    app.set_help_all_flag("--help-all", "Print the help of all commands and exit");
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
        // Errors of standard output are reported below.
        if (std::ferror(stdout) == 0) {
            Tool::printError(exception.what());
        }
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        Tool::printError("Cannot write to standard output.");
        status = Tool::Status::Failure;
    }
    return static_cast<int>(status);
}
