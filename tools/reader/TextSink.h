// Where a command writes what it has to say.
#pragma once

#include <functional>
#include <string_view>

// Takes the text as it is, byte for byte; false if it could not be written, after which nothing more comes.
using TextSink = std::function<bool(std::string_view)>;
