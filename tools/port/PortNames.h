// Names of ports, and the list of them that a user chooses from.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// "COM2" for "com2", and for "2" too; none for what is no port from COM1 to COM256.
std::optional<std::string> ComPortName(std::string_view word);

// The number of such a name; 0 for any other.
int ComPortNumber(std::string_view name);

struct NamedPort {
    std::string name;  // by which it is opened
    std::string words; // the system's for it, such as "USB Serial Port (COM7)"; may be empty

    bool operator==(const NamedPort&) const = default;
};

// By rising number, those without one by name; each port once, with words if any entry of it has them.
std::vector<NamedPort> InPortOrder(std::vector<NamedPort> ports);

// The ports that this machine has, in port order, those too that a program holds. No port is opened for it.
std::vector<NamedPort> MachinePorts();
