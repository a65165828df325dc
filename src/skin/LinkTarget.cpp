#include "skin/LinkTarget.h"

#include <array>

#include "framework/Text.h"

namespace {

struct FailureText {
    int code;
    const char* text;
};

constexpr std::array<FailureText, 13> failureTexts{
    {{0, "The operating system is out\nof memory or resources."},
     {2, "The specified file was not found."},
     {3, "The specified path was not found."},
     {5, "The operating system denied\naccess to the specified file."},
     {8, "There was not enough memory to complete the operation."},
     {11, "The .EXE file is invalid\n(non-Win32 .EXE or error in .EXE image)."},
     {26, "A sharing violation occurred. "},
     {27, "The filename association is\nincomplete or invalid."},
     {28, "The DDE transaction could not\nbe completed because the request timed out."},
     {29, "The DDE transaction failed."},
     {30, "The DDE transaction could not\nbe completed because other DDE transactions\nwere being processed."},
     {31, "There is no application associated\nwith the given filename extension."},
     {32, "The specified dynamic-link library was not found."}}};

} // namespace

std::optional<std::string> BrowserCommand(const std::string& registered, const std::string& target) {
    std::size_t end = registered.find("\"%1\"");
    if (end == std::string::npos) end = registered.find("%1");
    std::string command = registered.substr(0, end) + " " + target;
    if (command.size() >= browserCommandRoom) return std::nullopt;
    return command;
}

std::string OpenFailureText(int code) {
    const std::string opening = "Unable to open hyperlink:\n\n";
    for (const FailureText& each : failureTexts) {
        if (each.code == code) return opening + each.text;
    }
    return opening + FormatText("Unknown Error (%d) occurred.", code);
}
