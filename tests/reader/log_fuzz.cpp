// Fuzzes the decoder of logs: in one piece or byte by byte, a text says the same.
#include <cstdlib>

#include "support/TokenText.h"
#include "reader/LogDecoder.h"

namespace {

struct LogNotes : CLogSink {
    void TakeTrace(const LineTrace& trace) override { text += MomentText(trace.time) + std::to_string(trace.address); }
    void TakeClear(std::int32_t address) override { text += 'c' + std::to_string(address); }
    void TakeMove(std::int32_t address) override { text += 'm' + std::to_string(address); }
    std::string text;
};

constexpr std::string_view logTokens[] = {"2026/10/25 02:59:59: ",
                                          "2026/11/26 10:00:00: ",
                                          "TX-->",
                                          "RX-->",
                                          "02 00 81 81 03 ",
                                          "02 05 82 87 03 ",
                                          "02 ff 87 86 03 ",
                                          "02 00 12 07 02 16 21 20 00 64 00 32 00 00 00 08 03 ",
                                          "02 02 00 02 03 ",
                                          "\r\n",
                                          "\n",
                                          "02 ff 89 03 8b 03 "};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string log = TokenText({data, size}, logTokens);
    LogNotes whole, pieces;
    CLogDecoder first(whole, SystemZoneOffset), second(pieces, SystemZoneOffset);
    first.Feed(log);
    for (const char& each : log) second.Feed({&each, 1});
    if (whole.text != pieces.text || first.UnreadableLines() != second.UnreadableLines()) std::abort();
    return 0;
}
