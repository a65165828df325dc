#include "reader/LineCheck.h"

#include <algorithm>

void CLineCheck::Run(std::span<const std::uint8_t> addresses, LineTime duration,
                     const std::function<void(LineTime)>& afterRound) {
    const LineTime end = ground.Now() + duration;
    while (ground.Now() < end && RunRound(addresses)) {
        const LineTime now = ground.Now();
        afterRound(std::max(end - now, LineTime(0)));
        if (inquiry.IsPortAway() && !inquiry.Idle(std::min(end, now + retryInterval))) return;
    }
}

bool CLineCheck::RunRound(std::span<const std::uint8_t> addresses) {
    return std::ranges::all_of(addresses, [this](std::uint8_t address) {
        if (!Ask(address, Question::Counts)) return false;
        const AddressFigures& figures = sheet.Addresses().at(address);
        const bool isKnown = figures.settings || figures.Count(Answer::Whole) == 0;
        return isKnown || Ask(address, Question::Settings);
    });
}

bool CLineCheck::Ask(std::uint8_t address, Question question) {
    const auto trace = inquiry.Ask(address, question);
    if (trace) sheet.Take(*trace);
    return trace.has_value();
}

bool HaveAllAnswered(const CLineSheet& sheet, std::span<const std::uint8_t> addresses, bool all) {
    bool anyAnswered = false;
    for (const std::uint8_t address : addresses) {
        const AddressFigures& figures = sheet.Addresses().at(address);
        const bool isThere = figures.Asked() > figures.Count(Answer::Silent);
        if ((isThere || all) && (figures.Asked() == 0 || figures.Count(Answer::Whole) < figures.Asked())) return false;
        anyAnswered = anyAnswered || isThere;
    }
    return anyAnswered;
}
