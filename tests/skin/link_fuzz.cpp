// Fuzzes the command line that is made of a browser's entry in the registry and a link's target.
#include <algorithm>
#include <cstdlib>

#include "skin/LinkTarget.h"
#include "support/TokenText.h"

namespace {

constexpr std::string_view linkTokens[] = {"",  "%1", "\"%1\"", "\"",
                                           "%", "1",  " ",      "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb"};

// Character by character.
std::size_t PlaceOf(const std::string& mark, const std::string& text) {
    for (std::size_t at = 0; at + mark.size() <= text.size(); ++at)
        if (std::equal(mark.begin(), mark.end(), text.begin() + static_cast<std::ptrdiff_t>(at))) return at;
    return text.size();
}

} // namespace

// The bytes up to the first zero are the entry, those behind it the target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span bytes(data, size);
    const auto split = static_cast<std::size_t>(std::find(data, data + size, 0) - data);
    const std::string entry = TokenText(bytes.first(split), linkTokens);
    const std::string target = TokenText(bytes.subspan(split), linkTokens);
    const std::size_t quoted = PlaceOf("\"%1\"", entry);
    const std::size_t end = quoted < entry.size() ? quoted : PlaceOf("%1", entry);
    const std::string wanted = entry.substr(0, end) + ' ' + target;
    const auto command = BrowserCommand(entry, target);
    if (command.has_value() != (wanted.size() + 1 <= browserCommandRoom) || command.value_or(wanted) != wanted)
        std::abort();
    return 0;
}
