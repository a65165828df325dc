// Words and numbers of a control line or an option.
#include "line/LineWords.h"

#include <charconv>
#include <system_error>

std::vector<std::string_view> SplitLineWords(std::string_view text) {
    constexpr std::string_view separators = " ,\t\r\n";
    std::vector<std::string_view> words;
    for (std::size_t begin = text.find_first_not_of(separators); begin != std::string_view::npos;) {
        const std::size_t end = text.find_first_of(separators, begin);
        words.push_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(separators, end);
    }
    return words;
}

std::optional<int> ParseLineNumber(std::string_view word, int lowest, int highest, std::string& error) {
    int value = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, failed] = std::from_chars(word.data(), end, value);
    if (failed == std::errc() && stop == end && value >= lowest && value <= highest) return value;
    error =
        '"' + std::string(word) + "\" is no number from " + std::to_string(lowest) + " to " + std::to_string(highest);
    return std::nullopt;
}
