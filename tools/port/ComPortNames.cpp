// The COM ports of Windows.
#include <windows.h>
#include <initguid.h>
#include <setupapi.h>

#include <array>
#include <string_view>

#include "framework/Handle.h"
#include "framework/SystemHandles.h"
#include "port/PortNames.h"
#include "port/SystemWords.h"

namespace {

DEFINE_GUID(comPortInterface, 0x86E0D1E0, 0x8089, 0x11D0, 0x9C, 0xE4, 0x08, 0x00, 0x3E, 0x30, 0x1F, 0x73);

struct DeviceListTraits {
    using Type = HDEVINFO;
    static Type Empty() { return INVALID_HANDLE_VALUE; }
    static void Close(Type list) { SetupDiDestroyDeviceInfoList(list); }
};

// As the device manager shows the device.
std::string FriendlyName(HDEVINFO list, SP_DEVINFO_DATA& device) {
    std::array<wchar_t, 256> text{};
    constexpr DWORD room = (text.size() - 1) * sizeof text[0];
    auto* const bytes = reinterpret_cast<BYTE*>(text.data());
    if (!SetupDiGetDeviceRegistryPropertyW(list, &device, SPDRP_FRIENDLYNAME, nullptr, bytes, room, nullptr)) return {};
    return ForConsole(text.data());
}

// "COM7", which the driver keeps with the device.
std::string NameOfDevice(HDEVINFO list, SP_DEVINFO_DATA& device) {
    const HKEY opened = SetupDiOpenDevRegKey(list, &device, DICS_FLAG_GLOBAL, 0, DIREG_DEV, KEY_QUERY_VALUE);
    if (opened == INVALID_HANDLE_VALUE) return {};
    const CRegistryKey key(opened);
    std::array<char, 64> name{};
    DWORD size = name.size() - 1;
    auto* const bytes = reinterpret_cast<BYTE*>(name.data());
    if (RegQueryValueExA(opened, "PortName", nullptr, nullptr, bytes, &size) != ERROR_SUCCESS) return {};
    return name.data();
}

// What the device manager knows.
void AddDevices(std::vector<NamedPort>& ports) {
    const CHandle<DeviceListTraits> list(
        SetupDiGetClassDevsA(&comPortInterface, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE));
    SP_DEVINFO_DATA device{};
    device.cbSize = sizeof device;
    for (DWORD at = 0; !list.IsEmpty() && SetupDiEnumDeviceInfo(list.GetHandle(), at, &device); ++at) {
        ports.push_back({NameOfDevice(list.GetHandle(), device), FriendlyName(list.GetHandle(), device)});
    }
}

// What can be opened by name, virtual ports without a device too.
void AddNames(std::vector<NamedPort>& ports) {
    std::vector<char> all;
    DWORD length = 0;
    do {
        all.resize(all.size() + 65'536);
        length = QueryDosDeviceA(nullptr, all.data(), static_cast<DWORD>(all.size()));
    } while (length == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    std::string_view rest(all.data(), length);
    while (!rest.empty() && rest.front() != '\0') {
        const std::string_view name = rest.substr(0, rest.find('\0'));
        ports.push_back({std::string(name), ""});
        rest.remove_prefix(name.size() + 1);
    }
}

} // namespace

std::vector<NamedPort> MachinePorts() {
    std::vector<NamedPort> ports;
    AddDevices(ports);
    AddNames(ports);
    std::erase_if(ports, [](const NamedPort& each) { return ComPortNumber(each.name) == 0; });
    return InPortOrder(std::move(ports));
}
