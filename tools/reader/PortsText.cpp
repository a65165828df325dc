#include "reader/PortsText.h"

#include <algorithm>

namespace {

// As many as Quorvane's menu has room for.
constexpr int mostOffered = 6;
// A menu entry keeps its number in 8 bits.
constexpr int highestOffered = 255;

void AppendPort(std::string& list, const NamedPort& port, std::size_t width, const std::string& marks) {
    std::string line = port.name;
    line.resize(std::max(width, line.size()) + 2, ' ');
    line += port.words;
    if (!marks.empty()) line += (port.words.empty() ? "(" : " (") + marks + ")";
    list += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
}

} // namespace

std::string PortsText(const std::vector<NamedPort>& ports, std::optional<int> stored) {
    const NamedPort storedPort{stored ? "COM" + std::to_string(*stored) : "", ""};
    std::size_t width = storedPort.name.size();
    for (const NamedPort& port : ports) width = std::max(width, port.name.size());
    std::string list;
    int offered = 0;
    bool isStoredThere = !stored;
    for (const NamedPort& port : ports) {
        const int number = ComPortNumber(port.name);
        std::string marks;
        if (number > 0 && number <= highestOffered && offered++ < mostOffered) marks = "offered by Quorvane";
        if (number > 0 && number == stored) {
            marks += marks.empty() ? "stored by Quorvane" : ", stored";
            isStoredThere = true;
        }
        AppendPort(list, port, width, marks);
    }
    if (!isStoredThere) AppendPort(list, storedPort, width, "stored by Quorvane, but not there");
    return list;
}
