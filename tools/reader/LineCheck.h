// A line asked as often as it goes, for the sheet of its state.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "reader/LineInquiry.h"
#include "reader/LineSheet.h"

class CLineCheck {
public:
    // Both must outlive this; the inquiry is started.
    CLineCheck(CReaderGround& readerGround, CLineInquiry& lineInquiry) : ground(readerGround), inquiry(lineInquiry) {}

    // For so long, or until the program is to end: the counts of each address in turn, the settings until they are
    // known. `afterRound` gets the time that is left.
    void Run(std::span<const std::uint8_t> addresses, LineTime duration,
             const std::function<void(LineTime)>& afterRound);

    const CLineSheet& Sheet() const { return sheet; }

private:
    bool RunRound(std::span<const std::uint8_t> addresses);
    bool Ask(std::uint8_t address, Question question);

    CReaderGround& ground;
    CLineInquiry& inquiry;
    CLineSheet sheet;
};

// Whether all counters answered each time. Of `addresses` those that never answered count only if `all` of them are to
// have a counter; one counter at least must have answered.
bool HaveAllAnswered(const CLineSheet& sheet, std::span<const std::uint8_t> addresses, bool all);
