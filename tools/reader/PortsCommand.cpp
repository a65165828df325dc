#include "reader/PortsCommand.h"

#include "port/PortNames.h"
#include "reader/PortsText.h"
#include "reader/StoredPort.h"

namespace {

int UsePort(const std::string& word, CConsole& console) {
    const auto name = ComPortName(word);
    std::string error = "no port from COM1 to COM256";
    if (!name || !StorePort(ComPortNumber(*name), error)) {
        console.Complain("ports use " + word + ": " + error);
        return 1;
    }
    return console.Write("Quorvane opens " + *name + " at its next start\n") ? 0 : 1;
}

} // namespace

int RunPorts(const PortsOptions& options, CConsole& console) {
    if (!options.use.empty()) return UsePort(options.use, console);
    const std::string list = PortsText(MachinePorts(), StoredPort());
    if (list.empty()) console.Complain("there is no serial port here");
    return console.Write(list) ? 0 : 1;
}
