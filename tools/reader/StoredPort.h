// The port that Quorvane opens at its start, as it keeps it between runs.
#pragma once

#include <optional>
#include <string>

// Its number; none where nothing is stored, or the system isn't Quorvane's.
std::optional<int> StoredPort();

// False with words in `error`.
bool StorePort(int number, std::string& error);

// Whether Quorvane runs on this desktop.
bool IsQuorvaneRunning();
