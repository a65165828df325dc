// Fuzzes the search and the decoders with what a line may bring: any bytes at all. The search is held against the plain
// wording of the protocol, and every clock field that comes out is one that a counter understands.
#include <cstdlib>
#include <vector>

#include "link/CounterFrame.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// Byte by byte, each position on its own.
template <int recordLength>
std::vector<const std::uint8_t*> SearchPlainly(std::span<const std::uint8_t> reply) {
    std::vector<const std::uint8_t*> found;
    const std::uint8_t* p = reply.data();
    int left = static_cast<int>(reply.size());
    while (left >= recordLength) {
        const bool hit = p[0] == frameStart && p[recordLength - 1] == frameEnd && CheckFrameChecksum(p, recordLength);
        if (hit) found.push_back(p);
        p += hit ? recordLength : 1;
        left -= hit ? recordLength : 1;
    }
    return found;
}

template <int recordLength, class Decode>
void Check(std::span<const std::uint8_t> reply, Decode decode) {
    const auto expected = SearchPlainly<recordLength>(reply);
    std::size_t count = 0;
    const std::uint8_t* free = reply.data();
    SearchRecords<recordLength>(reply, [&](std::span<const std::uint8_t, recordLength> record) {
        Require(record.data() >= free && record.data() + recordLength <= reply.data() + reply.size());
        Require(count < expected.size() && record.data() == expected[count]);
        free = record.data() + recordLength;
        ++count;
        decode(record);
    });
    Require(count == expected.size() && count <= reply.size() / recordLength);
}

void CheckClock(std::uint32_t deviceTime) {
    for (const std::uint8_t digits : EncodeClockField(deviceTime)) Require((digits & 0x0F) < 10 && digits >> 4 < 10);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > replyCapacity) return 0;
    const std::span reply(data, size);

    Check<statusRecordLength>(reply, [](auto bytes) {
        CounterRecord record;
        Require(DecodeStatusRecord(bytes.data(), statusRecordLength, record));
        Require(record.inCount >= 0 && record.inCount <= 0xFFFF && record.outCount >= 0 && record.outCount <= 0xFFFF);
        Require(record.address == bytes[1]);
        CheckClock(record.deviceTime);
    });
    Check<settingsRecordLength>(reply, [](auto bytes) {
        CounterRecord record;
        Require(DecodeSettingsRecord(bytes.data(), settingsRecordLength, record));
        Require(EncodeSettingsByte(record) == bytes[9]);
        // What goes back to the counter carries its settings unchanged.
        const auto request = BuildWriteSettingsRequest(bytes[1], record);
        Require(request[15] == bytes[8] && request[16] == bytes[9] && CheckFrameChecksum(request.data(), 19));
        CheckClock(record.deviceTime);
    });
    Check<acknowledgementLength>(reply, [](auto bytes) {
        const Acknowledgement answer = DecodeAcknowledgement(bytes);
        Require(static_cast<std::uint8_t>(answer.address) == bytes[1] && answer.status == bytes[2]);
    });
    return 0;
}
