#include "reader/PortsCommand.h"

#include <algorithm>
#include <vector>

#include "port/PortNames.h"
#include "reader/StoredPort.h"

namespace {

// As many as Quorvane's menu has room for.
constexpr int mostOffered = 6;
// A menu entry keeps its number in 8 bits.
constexpr int highestOffered = 255;

int UsePort(const std::string& word, CConsole& console) {
    const auto name = ComPortName(word);
    std::string error = "no port from COM1 to COM256";
    if (!name || !StorePort(ComPortNumber(*name), error)) {
        console.Complain("ports use " + word + ": " + error);
        return 1;
    }
    return console.Write("Quorvane opens " + *name + " at its next start\n") ? 0 : 1;
}

std::string Padded(const std::string& text, std::size_t width) {
    return text + std::string(std::max(width, text.size()) - text.size(), ' ');
}

void AppendPort(std::string& list, const NamedPort& port, std::size_t width, const std::string& marks) {
    std::string line = Padded(port.name, width) + "  " + port.words;
    if (!marks.empty()) line += (port.words.empty() ? "(" : " (") + marks + ")";
    list += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
}

std::string ListOf(const std::vector<NamedPort>& ports) {
    const auto stored = StoredPort();
    std::string list;
    std::size_t width = 0;
    int offered = 0;
    bool isStoredThere = !stored;
    for (const NamedPort& port : ports) width = std::max(width, port.name.size());
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
    if (!isStoredThere) {
        AppendPort(list, {"COM" + std::to_string(*stored), ""}, width, "stored by Quorvane, but not there");
    }
    return list;
}

} // namespace

int RunPorts(const PortsOptions& options, CConsole& console) {
    if (!options.use.empty()) return UsePort(options.use, console);
    const std::string list = ListOf(MachinePorts());
    if (list.empty()) console.Complain("there is no serial port here");
    return console.Write(list) ? 0 : 1;
}
