#include "skin/LinkOpener.h"

#include <array>

#include <windows.h>

#include "framework/Shell.h"
#include "framework/SystemHandles.h"
#include "skin/LinkTarget.h"

CLinkOpener& CLinkOpener::System() {
    static CLinkOpener opener;
    return opener;
}

int CLinkOpener::Open(const std::string& target, int showCommand) {
    constexpr int lastFailure = 32;
    const int result = OpenByShell(target, showCommand);
    if (result > lastFailure) return result;
    std::string pageType;
    std::string registered;
    if (!ReadDefaultValue(".htm", pageType)) return result;
    if (!ReadDefaultValue(pageType + R"(\shell\open\command)", registered)) return result;
    const auto command = BrowserCommand(registered, target);
    return command ? RunCommand(*command, showCommand) : result;
}

int CLinkOpener::OpenByShell(const std::string& target, int showCommand) {
    const HINSTANCE result = SystemShell().open(nullptr, "open", target.c_str(), nullptr, nullptr, showCommand);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

bool CLinkOpener::ReadDefaultValue(const std::string& subKey, std::string& value) {
    CRegistryKey key;
    if (::RegOpenKeyExA(HKEY_CLASSES_ROOT, subKey.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) != ERROR_SUCCESS) {
        return false;
    }
    std::array<char, 260> text{};
    auto length = static_cast<LONG>(text.size());
    if (::RegQueryValueA(key.GetHandle(), nullptr, text.data(), &length) != ERROR_SUCCESS) return false;
    text.back() = '\0';
    value = text.data();
    return true;
}

int CLinkOpener::RunCommand(const std::string& command, int showCommand) {
    return static_cast<int>(::WinExec(command.c_str(), static_cast<UINT>(showCommand)));
}
