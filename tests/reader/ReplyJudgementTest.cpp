// What is made of the bytes that came back on a request.
#include "reader/ReplyJudgement.h"

#include <gtest/gtest.h>

#include "support/Hex.h"

namespace {

struct JudgementCase {
    const char* what;
    std::string reply; // bytes in hexadecimal digits, frames in brackets without their skeleton
    Answer answer;
    bool hasEcho;
    std::size_t strayBytes, spoiltRecords;
    std::vector<std::uint8_t> others;
};

std::vector<std::uint8_t> BytesOfReply(const std::string& text) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at < text.size();) {
        const bool isFrame = text[at] == '[';
        const std::size_t end = text.find_first_of(isFrame ? "]" : "[", at);
        const std::string_view piece = std::string_view(text).substr(at + isFrame, end - at - isFrame);
        const auto more = isFrame ? FrameOf(piece) : BytesOf(piece);
        bytes.insert(bytes.end(), more.begin(), more.end());
        at = end == std::string::npos ? text.size() : end + isFrame;
    }
    return bytes;
}

TEST(ReplyJudgement, TellsWhoAnsweredAndWhatBelongsToNobody) {
    const std::string own = "[01 12 07 02 16 21 20 00 64 00 32 00 00 00]";
    const std::string other = "[04 12 07 02 16 21 20 00 64 00 32 00 00 00]";
    const std::string torn = "02 01 12 07 02 16 21 ";
    const std::string echo = "[01 81]";
    const JudgementCase cases[] = {
        {"nothing", "", Answer::Silent, false, 0, 0, {}},
        {"the record", own, Answer::Whole, false, 0, 0, {}},
        {"the request alone", echo, Answer::Silent, true, 0, 0, {}},
        {"request and record", echo + own, Answer::Whole, true, 0, 0, {}},
        {"another's request", "[02 81]", Answer::Spoilt, false, 5, 0, {}},
        {"noise", "ff 03 ", Answer::Spoilt, false, 2, 0, {}},
        {"noise about the record", "ff " + own + "fe fd ", Answer::Whole, false, 3, 0, {}},
        {"a torn record", torn, Answer::Spoilt, false, 7, 1, {}},
        {"a record without its beginning",
         "12 07 02 16 21 20 00 64 00 32 00 00 00 08 03 ",
         Answer::Spoilt,
         false,
         15,
         0,
         {}},
        {"torn, request, whole", torn + echo + own, Answer::Whole, true, 7, 1, {}},
        {"another counter", other, Answer::Spoilt, false, 0, 0, {4}},
        {"others beside the record", other + own + other, Answer::Whole, false, 0, 0, {4}},
        {"two of one address", own + own, Answer::Doubled, false, 0, 0, {}},
        {"two into each other", torn + torn + own, Answer::Whole, false, 14, 1, {}},
        {"a settings record on a poll", "[01 12 07 02 16 21 20 15 e4]", Answer::Spoilt, false, 12, 1, {}}};
    for (const JudgementCase& each : cases) {
        const ReplyJudgement judgement = JudgeReply(RequestCode::Poll, 1, BytesOfReply(each.reply));
        EXPECT_EQ(judgement.record.value_or(CounterRecord{}).inCount, each.answer == Answer::Whole ? 100 : 0);
        EXPECT_EQ(judgement, (ReplyJudgement{each.answer, judgement.record, each.hasEcho, each.strayBytes,
                                             each.spoiltRecords, each.others}))
            << each.what;
    }
    const auto settings = JudgeReply(RequestCode::ReadSettings, 1, BytesOfReply("[01 82][01 12 07 02 16 21 20 15 e4]"));
    EXPECT_TRUE(settings.hasEcho && settings.strayBytes == 0);
    EXPECT_TRUE(settings.record && settings.record->sensitivity == 0x15 && settings.record->sdPeriod == 4);
}

} // namespace
