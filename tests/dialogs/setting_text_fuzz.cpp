// Fuzzes what users type or store for the line: settings as text and back, and names of ports.
#include <cstdlib>

#include "dialogs/ComSettingText.h"
#include "support/TokenText.h"

namespace {

constexpr std::string_view settingTokens[] = {"\n",         "COM",        "-",    "+",   " ",
                                              "2147483647", "9999999999", "EVEN", "ODD", "N"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string typed = TokenText({data, size}, settingTokens);
    ComSettingText text;
    std::size_t at = 0;
    for (std::string* field : {&text.port, &text.baudRate, &text.parity, &text.dataBits, &text.stopBits}) {
        const std::size_t end = std::min(typed.find('\n', at), typed.size());
        *field = typed.substr(at, end - at);
        at = std::min(end + 1, typed.size());
    }
    const PortSettings former{7}, settings = SettingsOf(text, former);
    // What the dialog shows of it is taken as it is.
    const ComSettingText shown = TextOf(settings);
    PortSettings again = SettingsOf(shown, former);
    if (shown != TextOf(again)) std::abort();
    again.parityLetter = settings.parityLetter;
    if (again != settings) std::abort();
    // A device's path is the name itself, at most behind the mark of devices.
    const std::string path = DevicePath(text.port);
    if (path != text.port && path != R"(\\.\)" + text.port) std::abort();
    if (settings.portNumber > 9 && DevicePath(shown.port) == shown.port) std::abort();
    return 0;
}
