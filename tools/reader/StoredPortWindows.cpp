#include <windows.h>

#include "dialogs/StoredValues.h"
#include "reader/StoredPort.h"
#include "resources/Product.h"

namespace {

constexpr char valueName[] = "COM";

} // namespace

std::optional<int> StoredPort() {
    std::int32_t number = 0;
    if (ReadRegistryInt(valueName, number, 0) == 0) return std::nullopt;
    return number;
}

bool StorePort(int number, std::string& error) {
    if (WriteRegistryInt(valueName, number) != 0) return true;
    error = "the registry refuses it";
    return false;
}

bool IsQuorvaneRunning() {
    return FindWindowA(nullptr, PRODUCT_TITLE) != nullptr;
}
