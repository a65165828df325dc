// What a program understands on its command line, and the reading of it. Who includes this reads no header of the
// parser, which take the compiler longer than all else of a program.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

// Takes a value in; words for the user if it doesn't fit, else none.
using Taking = std::function<std::string(const std::string& value)>;

// An option with a value behind it, or a value by its place if the name has no dashes.
struct OptionWords {
    const char* name;
    const char* kind; // of the value, as the help names it
    const char* words;
};

// One option of a command. Given twice, it is a mistake, unless it is told otherwise.
class CCommandOption {
public:
    explicit CCommandOption(CLI::Option& added) : option(&added) {}

    CCommandOption Require() const;
    CCommandOption TakeLast() const; // given twice, it counts as given last
    CCommandOption Exclude(const CCommandOption& other) const;
    CCommandOption RefuseEmpty() const; // an empty value, such as a script's variable that was never set

private:
    CLI::Option* option;
};

// What the program understands, or one of its commands. Names and words are copied; what values go into has to live as
// long as the command line.
class CCommand {
public:
    explicit CCommand(CLI::App& described) : app(&described) {}

    CCommand AddCommand(const char* name, const char* words) const;
    void RequireCommand() const;
    bool IsGiven(const char* command) const;
    CCommandOption Add(const OptionWords& option, const Taking& take) const;
    // Decimal. Numbers out of bounds are a mistake.
    CCommandOption AddNumber(const OptionWords& option, int lowest, int highest,
                             const std::function<void(int)>& take) const;
    // May be given again and again, with one value each time.
    void AddRepeated(const OptionWords& option, const Taking& take) const;
    CCommandOption AddFlag(const char* name, const char* words, bool* target = nullptr) const;
    // Behind the help.
    void SetFooter(const std::string& text) const;

protected:
    CLI::App* app;
};

// What reading it came to. One is filled at most; with none of them there is something to be done.
struct CommandLineEnd {
    std::string help = {};
    std::string version = {};
    std::string mistake = {};
};

class CCommandLine : public CCommand {
public:
    CCommandLine(const char* words, const char* program, const char* version);
    ~CCommandLine();
    CCommandLine(const CCommandLine&) = delete;
    CCommandLine& operator=(const CCommandLine&) = delete;

    // `arguments` with the program's file name in front.
    CommandLineEnd Read(std::span<const char* const> arguments);

private:
    explicit CCommandLine(std::unique_ptr<CLI::App> parser);

    std::unique_ptr<CLI::App> owned;
};
