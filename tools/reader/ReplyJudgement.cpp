#include "reader/ReplyJudgement.h"

#include <algorithm>
#include <utility>

namespace {

using Bytes = std::span<const std::uint8_t>;

class CReplyJudge {
public:
    CReplyJudge(Bytes requestFrame, std::uint8_t asked) : echo(requestFrame), address(asked) {}

    template <int length, class Decode>
    ReplyJudgement Judge(Bytes reply, Decode decode) {
        std::size_t begin = 0; // of what no record has taken yet
        SearchRecords<length>(reply, [&](std::span<const std::uint8_t, length> found) {
            const auto at = static_cast<std::size_t>(found.data() - reply.data());
            TakeGap(reply.subspan(begin, at - begin));
            begin = at + length;
            CounterRecord record;
            decode(found.data(), length, record);
            TakeRecord(record);
        });
        TakeGap(reply.subspan(begin));
        return Conclude(reply);
    }

private:
    void TakeRecord(const CounterRecord& record) {
        const auto from = static_cast<std::uint8_t>(record.address);
        if (from == address) {
            if (++ownRecords == 1) judgement.record = record;
        } else if (std::ranges::find(judgement.others, from) == judgement.others.end()) {
            judgement.others.push_back(from);
        }
    }

    // What lies between two records: echoes, and what is between those.
    void TakeGap(Bytes gap) {
        while (!gap.empty()) {
            const auto found = std::search(gap.begin(), gap.end(), echo.begin(), echo.end());
            TakeStray({gap.begin(), found});
            if (found == gap.end()) return;
            judgement.hasEcho = true;
            gap = gap.subspan(static_cast<std::size_t>(found - gap.begin()) + echo.size());
        }
    }

    void TakeStray(Bytes stray) {
        judgement.strayBytes += stray.size();
        const auto opening = std::ranges::adjacent_find(
            stray, [&](std::uint8_t first, std::uint8_t second) { return first == frameStart && second == address; });
        if (opening != stray.end()) ++judgement.spoiltRecords;
    }

    ReplyJudgement Conclude(Bytes reply) {
        const bool onlyEcho = judgement.strayBytes == 0 && judgement.others.empty();
        if (ownRecords == 1)
            judgement.answer = Answer::Whole;
        else if (ownRecords > 1)
            judgement.answer = Answer::Doubled;
        else if (!reply.empty() && !onlyEcho)
            judgement.answer = Answer::Spoilt;
        if (ownRecords != 1) judgement.record.reset();
        return std::move(judgement);
    }

    Bytes echo;
    std::uint8_t address;
    ReplyJudgement judgement;
    std::size_t ownRecords = 0;
};

} // namespace

ReplyJudgement JudgeReply(RequestCode request, std::uint8_t address, std::span<const std::uint8_t> reply) {
    if (request == RequestCode::ReadSettings) {
        const auto frame = BuildReadSettingsRequest(address);
        return CReplyJudge(frame, address).Judge<settingsRecordLength>(reply, DecodeSettingsRecord);
    }
    const auto frame = BuildPollRequest(address);
    return CReplyJudge(frame, address).Judge<statusRecordLength>(reply, DecodeStatusRecord);
}
