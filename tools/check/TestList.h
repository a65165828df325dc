// Which test programs a machine can run, and which of their tests.
#pragma once

#include <istream>
#include <string>
#include <utility>
#include <vector>

// One line of the list that the build writes: what it needs ("pure", "gdi", "window", "ports" or "system"), its name
// without
// ".exe", and the seconds after which it counts as hanging. Behind these stand conditions, such as
// "wine=Sheets.Rows:Sheets.Icons": tests that run only where the condition holds, "*" for all.
struct ListedProgram {
    std::string need;
    std::string name;
    int seconds = 0;
    std::vector<std::pair<std::string, std::string>> conditions{};
};

struct CheckedMachine {
    int cables = 0;       // pairs of ports joined by a null-modem cable
    bool hasPull = false; // something pulls the first of them when a test asks for it
};

struct LeftOutTests {
    std::string tests{}; // joined by ':'; "*" is the whole program
    std::string why{};
};

// Empty lines are passed over. The programs that need least come first, those that need the same in the order of the
// list.
std::vector<ListedProgram> ReadTestList(std::istream& list);

LeftOutTests LeftOutOf(const ListedProgram& program, const CheckedMachine& machine);
