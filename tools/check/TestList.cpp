// The list, line by line, and what becomes of its conditions.
#include "check/TestList.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace {

using namespace std::string_view_literals;

constexpr std::array needs{"pure"sv, "gdi"sv, "window"sv, "ports"sv, "system"sv};

auto RankOf(const ListedProgram& program) {
    return std::ranges::find(needs, program.need);
}

// Why what stands behind the condition is left out; empty if it runs.
std::string_view HindranceOf(std::string_view condition, const CheckedMachine& machine) {
    if (condition == "wine") return "compared with pictures that Wine has drawn";
    if (condition == "cables" && machine.cables < 2) return "needs a second cable";
    if (condition == "clock") return "needs a clock that a script can set";
    if (condition == "pull" && !machine.hasPull) return "needs a cable that a script can pull";
    return {};
}

void Add(std::string& text, std::string_view separator, std::string_view more) {
    if (text.find(more) != std::string::npos) return;
    if (!text.empty()) text += separator;
    text += more;
}

} // namespace

std::vector<ListedProgram> ReadTestList(std::istream& list) {
    std::vector<ListedProgram> programs;
    for (std::string line, word; std::getline(list, line);) {
        std::istringstream words(line);
        ListedProgram program;
        if (!(words >> program.need >> program.name >> program.seconds)) continue;
        while (words >> word) {
            const std::size_t end = word.find('=');
            if (end != std::string::npos) program.conditions.emplace_back(word.substr(0, end), word.substr(end + 1));
        }
        programs.push_back(program);
    }
    std::ranges::stable_sort(programs, {}, RankOf);
    return programs;
}

LeftOutTests LeftOutOf(const ListedProgram& program, const CheckedMachine& machine) {
    if ((program.need == "ports" || program.need == "system") && machine.cables == 0)
        return {"*", "needs two ports joined by a null-modem cable"};
    LeftOutTests left;
    for (const auto& [condition, tests] : program.conditions) {
        const std::string_view hindrance = HindranceOf(condition, machine);
        if (hindrance.empty()) continue;
        if (tests == "*") return {tests, std::string(hindrance)};
        Add(left.tests, ":", tests);
        Add(left.why, "; ", hindrance);
    }
    return left;
}
