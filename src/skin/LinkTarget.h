// Opening what a link points at, and telling why that failed.
#pragma once

#include <optional>
#include <string>

// Room for a browser's command line with the target, in bytes, the ending zero included.
inline constexpr std::size_t browserCommandRoom = 520;

// The command line of a browser for a target: the placeholder "%1", in quotes or without, and what stands behind it are
// replaced by a blank and the target; without a placeholder these are added. Nothing if it would not fit the room.
std::optional<std::string> BrowserCommand(const std::string& registered, const std::string& target);

// Why opening failed, in words, by the code that the shell gave (0 to 32).
std::string OpenFailureText(int code);
