#include "options/CommandLine.h"

#include <charconv>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>

namespace {

// The parser throws what is wrong with a value, with the option's first name before it.
void Take(const std::string& names, const std::string& value, const Taking& take) {
    if (const std::string error = take(value); !error.empty())
        throw CLI::ValidationError(names.substr(0, names.find(',')), error);
}

} // namespace

CCommandOption CCommandOption::Require() const {
    option->required();
    return *this;
}

CCommandOption CCommandOption::TakeLast() const {
    option->take_last();
    return *this;
}

CCommandOption CCommandOption::Exclude(const CCommandOption& other) const {
    option->excludes(other.option);
    return *this;
}

CCommandOption CCommandOption::RefuseEmpty() const {
    option->check([](const std::string& text) { return std::string(text.empty() ? "is empty" : ""); });
    return *this;
}

CCommand CCommand::AddCommand(const char* name, const char* words) const {
    return CCommand(*app->add_subcommand(name, words));
}

void CCommand::RequireCommand() const {
    app->require_subcommand(1);
}

bool CCommand::IsGiven(const char* command) const {
    return app->got_subcommand(command);
}

CCommandOption CCommand::Add(const OptionWords& option, const Taking& take) const {
    const auto takeOne = [name = option.name, take](const CLI::results_t& values) {
        Take(name, values.front(), take);
        return true;
    };
    return CCommandOption(
        *app->add_option(option.name, CLI::callback_t(takeOne), option.words)->type_name(option.kind));
}

CCommandOption CCommand::AddNumber(const OptionWords& option, int lowest, int highest,
                                   const std::function<void(int)>& take) const {
    // The parser's own numbers are octal after a zero.
    return Add(option, [=](const std::string& text) {
        int value = 0;
        const char* const end = text.data() + text.size();
        const auto [stop, failed] = std::from_chars(text.data(), end, value);
        if (failed != std::errc() || stop != end || value < lowest || value > highest) {
            return '"' + text + "\" is no number from " + std::to_string(lowest) + " to " + std::to_string(highest);
        }
        take(value);
        return std::string();
    });
}

void CCommand::AddRepeated(const OptionWords& option, const Taking& take) const {
    const auto takeAll = [name = option.name, take](const std::vector<std::string>& values) {
        for (const std::string& value : values) Take(name, value, take);
    };
    app->add_option_function<std::vector<std::string>>(option.name, takeAll, option.words)
        ->type_name(option.kind)
        ->allow_extra_args(false);
}

CCommandOption CCommand::AddFlag(const char* name, const char* words, bool* target) const {
    const std::string text = words; // the parser would take other words for a variable
    return CCommandOption(target != nullptr ? *app->add_flag(name, *target, text) : *app->add_flag(name, text));
}

void CCommand::SetFooter(const std::string& text) const {
    app->footer(text);
}

CCommandLine::CCommandLine(const char* words, const char* program, const char* version)
    : CCommandLine(std::make_unique<CLI::App>(words, program)) {
    app->allow_windows_style_options(false);
    app->set_version_flag("--version", version);
}

CCommandLine::CCommandLine(std::unique_ptr<CLI::App> parser) : CCommand(*parser), owned(std::move(parser)) {}

CCommandLine::~CCommandLine() = default;

CommandLineEnd CCommandLine::Read(std::span<const char* const> arguments) {
    try {
        app->parse(static_cast<int>(arguments.size()), arguments.data());
    } catch (const CLI::CallForHelp&) {
        return {.help = app->help()};
    } catch (const CLI::CallForVersion& asked) {
        return {.version = asked.what()};
    } catch (const CLI::ParseError& wrong) {
        return {.mistake = wrong.what()};
    }
    return {};
}
