// Port names and their order.
#include "port/PortNames.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <system_error>
#include <tuple>

namespace {

constexpr std::string_view prefix = "COM";

// Of the digits that end the name; 0 if there are none, or too many.
int NumberAtEnd(std::string_view name) {
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    int number = 0;
    const auto [stop, failed] = std::from_chars(name.data() + digits, name.data() + name.size(), number);
    return failed == std::errc() ? number : 0;
}

} // namespace

std::optional<std::string> ComPortName(std::string_view word) {
    const auto isSame = [](char each, char capital) { return each == capital || each == capital - 'A' + 'a'; };
    if (word.size() > prefix.size() && std::ranges::equal(word.substr(0, prefix.size()), prefix, isSame)) {
        word.remove_prefix(prefix.size());
    }
    const bool isNumber = word.find_first_not_of("0123456789") == std::string_view::npos;
    const int number = isNumber ? NumberAtEnd(word) : 0;
    if (number < 1 || number > 256) return std::nullopt;
    return std::string(prefix) + std::to_string(number);
}

int ComPortNumber(std::string_view name) {
    return ComPortName(name) == name ? NumberAtEnd(name) : 0;
}

std::vector<NamedPort> InPortOrder(std::vector<NamedPort> ports) {
    // One with words comes before its like without.
    std::ranges::sort(ports, {}, [](const NamedPort& each) {
        const std::string stem = each.name.substr(0, each.name.find_last_not_of("0123456789") + 1);
        return std::tuple(stem, NumberAtEnd(each.name), each.name, each.words.empty(), each.words);
    });
    const auto isSame = [](const NamedPort& one, const NamedPort& next) { return one.name == next.name; };
    ports.erase(std::unique(ports.begin(), ports.end(), isSame), ports.end());
    return ports;
}
