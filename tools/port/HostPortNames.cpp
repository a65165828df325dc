// The serial devices of the host.
#include <dirent.h>
#include <fcntl.h>

#include <array>
#include <cstdlib>
#include <memory>

#include "framework/Handle.h"
#include "port/Descriptor.h"
#include "port/PortNames.h"

namespace {

struct DirectoryTraits : NullTraits<DIR*> {
    static void Close(DIR* directory) { closedir(directory); }
};

// The names in a folder; none if there is no such folder.
std::vector<std::string> NamesIn(const char* folder) {
    std::vector<std::string> names;
    const CHandle<DirectoryTraits> directory(opendir(folder));
    if (directory.IsEmpty()) return names;
    // The only call in the program that lists a folder, so its buffer has one user.
    while (const dirent* const entry = readdir(directory.GetHandle())) { // NOLINT(concurrency-mt-unsafe)
        names.emplace_back(entry->d_name);
    }
    return names;
}

// Whether hardware stands behind a device of the board: the kernel makes nodes for more than there are. It is asked
// without opening one, which would move the modem lines.
bool IsReal(const std::string& name) {
    const std::string type = "/sys/class/tty/" + name + "/type";
    const CDescriptor file(open(type.c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 8> text{};
    return file.IsOpen() && read(file.Get(), text.data(), text.size()) > 0 && text[0] != '0';
}

std::string ResolvedPath(const std::string& path) {
    struct Release {
        void operator()(char* text) const { std::free(text); }
    };
    const std::unique_ptr<char, Release> resolved(realpath(path.c_str(), nullptr));
    return resolved ? resolved.get() : "";
}

} // namespace

std::vector<NamedPort> MachinePorts() {
    std::vector<NamedPort> ports;
    for (const std::string& name : NamesIn("/dev")) {
        const bool isAdapter = name.starts_with("ttyUSB") || name.starts_with("ttyACM");
        if (isAdapter || (name.starts_with("ttyS") && IsReal(name))) ports.push_back({"/dev/" + name, ""});
    }
    for (const std::string& name : NamesIn("/dev/serial/by-id")) {
        const std::string device = ResolvedPath("/dev/serial/by-id/" + name);
        if (name[0] != '.' && !device.empty()) ports.push_back({device, name});
    }
    return InPortOrder(std::move(ports));
}
