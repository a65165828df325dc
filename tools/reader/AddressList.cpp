#include "reader/AddressList.h"

#include "link/CounterRecord.h"

std::optional<std::vector<std::uint8_t>> AddressesOf(std::string_view text) {
    const auto address = [](char digit) { return digit >= '0' && digit < '0' + counterCount ? digit - '0' : -1; };
    unsigned chosen = 0;
    for (;; text.remove_prefix(1)) {
        const int first = text.empty() ? -1 : address(text[0]);
        const bool isRange = text.size() > 2 && text[1] == '-';
        const int last = isRange ? address(text[2]) : first;
        if (first < 0 || last < first) return std::nullopt;
        for (int each = first; each <= last; ++each) chosen |= 1U << each;
        text.remove_prefix(isRange ? 3 : 1);
        if (text.empty()) break;
        if (text[0] != ',') return std::nullopt;
    }
    std::vector<std::uint8_t> addresses;
    for (std::uint8_t each = 0; each < counterCount; ++each) {
        if ((chosen & (1U << each)) != 0) addresses.push_back(each);
    }
    return addresses;
}
