// What has to hold of the search and of the decoders for any bytes that a line may bring.
#pragma once

#include <vector>

#include "framework/Time.h"
#include "link/CounterFrame.h"

// By the plain wording of the protocol, each position on its own.
inline std::vector<std::size_t> SearchPlainly(std::span<const std::uint8_t> reply, std::size_t length) {
    std::vector<std::size_t> found;
    for (std::size_t at = 0; at + length <= reply.size();) {
        unsigned sum = 0;
        for (const std::uint8_t byte : reply.subspan(at + 1, length - 3)) sum += byte;
        const bool isRecord =
            reply[at] == 0x02 && reply[at + length - 2] == (sum & 0xFF) && reply[at + length - 1] == 0x03;
        if (isRecord) found.push_back(at);
        at += isRecord ? length : 1;
    }
    return found;
}

inline std::uint32_t TimeOfField(std::span<const std::uint8_t> field) {
    const auto value = [&](std::size_t at) { return field[at] / 16 * 10 + field[at] % 16; };
    return CTime(CalendarFields{2000 + value(0), value(1), value(2), value(3), value(4), value(5)}).GetTime();
}

// `require` is told of each thing whether it holds. Gives how many records there are of all kinds.
template <class Require>
std::size_t CheckReply(std::span<const std::uint8_t> reply, Require require) {
    constexpr CounterRecord before{0, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
    std::size_t count = 0;
    const auto search = [&]<int length>(std::integral_constant<int, length>, auto decode) {
        std::vector<std::size_t> found;
        SearchRecords<length>(reply, [&](std::span<const std::uint8_t, length> bytes) {
            found.push_back(static_cast<std::size_t>(bytes.data() - reply.data()));
            CounterRecord record = before, expected = before;
            if (length > 5)
                expected.address = bytes[1],
                expected.deviceTime = TimeOfField(std::span<const std::uint8_t>(bytes).subspan(2));
            decode(bytes, record, expected);
            require(record == expected, "what is decoded");
            for (const std::uint8_t two : EncodeClockField(record.deviceTime))
                require(two % 16 < 10 && two / 16 < 10, "a clock that a counter understands");
        });
        require(found == SearchPlainly(reply, length), "what is found");
        count += found.size();
    };
    search(std::integral_constant<int, 17>(), [&](auto bytes, CounterRecord& record, CounterRecord& expected) {
        require(!DecodeStatusRecord(bytes.data(), 16, record) && record == before, "too few bytes");
        require(DecodeStatusRecord(bytes.data(), 17, record), "enough bytes");
        expected.inCount = bytes[8] * 256 + bytes[9];
        expected.outCount = bytes[10] * 256 + bytes[11];
        expected.extraCount = bytes[12] * 256 + bytes[13];
        expected.extraByte = bytes[14];
    });
    search(std::integral_constant<int, 12>(), [&](auto bytes, CounterRecord& record, CounterRecord& expected) {
        require(!DecodeSettingsRecord(bytes.data(), 11, record) && record == before, "too few bytes");
        require(DecodeSettingsRecord(bytes.data(), 12, record), "enough bytes");
        expected.sensitivity = bytes[8];
        expected.language = bytes[9] < 128 ? 1 : 0;
        expected.direction = bytes[9] / 64 % 2 == 0 ? 1 : 0;
        expected.sdDetect = bytes[9] / 32 % 2;
        expected.sdPeriod = bytes[9] % 32;
        // What goes back to the counter carries its settings unchanged.
        const auto request = BuildWriteSettingsRequest(bytes[1], record);
        require(request[15] == bytes[8] && request[16] == bytes[9], "settings there and back");
        require(SearchPlainly(request, 19).size() == 1, "a whole request");
    });
    search(std::integral_constant<int, 5>(), [&](auto bytes, CounterRecord&, CounterRecord&) {
        const auto [address, status] = DecodeAcknowledgement(bytes);
        require(address == (bytes[1] < 128 ? bytes[1] : bytes[1] - 256) && status == bytes[2], "acknowledgement");
    });
    return count;
}
