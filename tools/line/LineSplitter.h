// Text that comes in pieces, cut into lines.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CLineSplitter {
public:
    // The lines that `piece` makes whole, without their ends.
    std::vector<std::string> Add(std::string_view piece) {
        std::vector<std::string> lines;
        for (const char character : piece) {
            if (character == '\n') {
                if (unfinished.ends_with('\r')) unfinished.pop_back(); // a console ends its lines with both
                lines.push_back(std::exchange(unfinished, {}));
            } else if (unfinished.size() < longestLine) {
                unfinished += character;
            }
        }
        return lines;
    }

    // What stands behind the last line end, at the end of the text; empty if nothing does.
    std::string TakeRest() { return std::exchange(unfinished, {}); }

private:
    // Longer ones are cut, so that a flood costs no memory.
    static constexpr std::size_t longestLine = 4096;

    std::string unfinished;
};
