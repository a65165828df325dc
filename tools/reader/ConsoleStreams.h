// The platform's standard streams.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

enum class ConsoleStream : std::uint8_t { Output, Error };

// All of the text. False with the system's words in `error`; without words if whoever read it has gone.
bool WriteToStream(ConsoleStream stream, std::string_view text, std::string& error);

// Whether it is a terminal that takes control sequences; where it has to be told to do so, this tells it.
bool IsTerminal(ConsoleStream stream);
