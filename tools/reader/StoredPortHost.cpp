#include "reader/StoredPort.h"

std::optional<int> StoredPort() {
    return std::nullopt;
}

bool StorePort(int, std::string& error) {
    error = "Quorvane keeps its port on Windows only";
    return false;
}

bool IsQuorvaneRunning() {
    return false;
}
