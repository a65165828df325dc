// A round of readings in the text exposition format, as a collector of text files takes it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "reader/Reading.h"

// The whole file. `round` has one reading for each asked address; `port` becomes a label of every sample, so that the
// files of several lines go together, and may hold any characters. A counter that gave no whole answer has no sample of
// its counts and its clock, but says so in `quorvane_sensor_up` and `quorvane_sensor_answer`.
std::string PromText(std::span<const Reading> round, std::string_view port);
