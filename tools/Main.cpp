#include "CommandLine.h"
#include "Text.h"

#include <Parameters/Diagnostics.h>

#include <fmt/core.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

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

/// ", did you mean NEAREST?" or the end of the sentence.
std::string endOf(const std::string& word, const std::vector<std::string>& candidates) {
    const std::string nearest = Parameters::nearestWord(word, {candidates.begin(), candidates.end()});
    return nearest.empty() ? "." : fmt::format("; did you mean {}?", nearest);
}

std::vector<std::string> commandsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App* /*command*/) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

std::vector<std::string> optionsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

/// What is wrong with a command line, with the word that is at fault.
std::string faultOf(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& arguments) {
    const auto commands = app.get_subcommands();
    if (commands.empty()) {
        const bool hasCommand = !arguments.empty() && arguments.front().substr(0, 1) != "-";
        if (hasCommand) {
            const std::string& word = arguments.front();
            return fmt::format("There is no command {}{}", Tool::printable(word), endOf(word, commandsOf(app)));
        }
        return arguments.empty() ? "A command is needed." : fmt::format("{}.", error.what());
    }
    const CLI::App& command = *commands.front();
    for (const std::string& word : command.remaining()) {
        const std::string name = word.substr(0, word.find('='));
        return name.substr(0, 1) == "-" ? fmt::format("Command {} has no option {}{}", command.get_name(),
                                                      Tool::printable(name), endOf(name, optionsOf(command)))
                                        : fmt::format("{} is one argument too many.", Tool::printable(word));
    }
    const std::string message = error.what();
    return message.back() == '?' ? message : message + '.';
}

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
    Tool::addDiff(app, status);
    Tool::addFmt(app, status);
    Tool::addGraph(app, status);
    Tool::addEditorSchema(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            app.exit(error);
            return Tool::Status::Success;
        }
        Tool::printError(faultOf(app, error, {argv + 1, argv + argc}));
        const auto commands = app.get_subcommands();
        Tool::printError(fmt::format("parameters{} --help tells what there is.",
                                     commands.empty() ? "" : " " + commands.front()->get_name()));
        return Tool::Status::Failure;
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
