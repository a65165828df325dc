// The list of ports as a user sees it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "port/PortNames.h"

// A line for each port, which are in port order: its name, the system's words for it, and whether Quorvane has stored
// it or offers it, where its number lets it. A stored port that isn't there comes last.
std::string PortsText(const std::vector<NamedPort>& ports, std::optional<int> stored);
