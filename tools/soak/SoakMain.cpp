// Soak.exe: uses the built program for a while as a restless user does, over a bad line, and tells whether it stayed
// sound.
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include <shlwapi.h>
#include <windows.h>

#include "soak/SoakRun.h"

namespace {

std::string Environment(const char* name, const std::string& usual) {
    char value[MAX_PATH]{};
    return ::GetEnvironmentVariableA(name, value, sizeof value) != 0 ? value : usual;
}

// The program's stored values: the port with the counters, and English at first.
void StoreValues(const std::string& port) {
    const DWORD number = std::strtoul(port.c_str() + 3, nullptr, 10), english = 0;
    constexpr char key[] = "SOFTWARE\\BRENHOLT\\QV";
    ::SHSetValueA(HKEY_CURRENT_USER, key, "COM", REG_DWORD, &number, sizeof number);
    ::SHSetValueA(HKEY_CURRENT_USER, key, "Language", REG_DWORD, &english, sizeof english);
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
    if (all.size() != 3) {
        std::puts("Soak SECONDS SEED");
        return 2;
    }
    SoakOptions options;
    options.seconds = std::strtoll(all[1], nullptr, 10);
    options.seed = std::strtoull(all[2], nullptr, 10);
    options.nearPort = Environment("QUORVANE_TEST_PORT_A", options.nearPort);
    options.farPort = Environment("QUORVANE_TEST_PORT_B", options.farPort);
    options.pulledFile = Environment("QUORVANE_TEST_PULLED", "");
    StoreValues(options.nearPort);
    CSoakRun run(options);
    std::fputs(run.Run().c_str(), stdout);
    return run.IsSound() ? 0 : 1;
}
