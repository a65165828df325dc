#include "soak/SoakRecord.h"

#include <span>

#include "framework/Text.h"

std::string CSoakRecord::TimeText() const {
    return FormatText("%.3f s", std::chrono::duration<double>(TimeSinceStart()).count());
}

void CSoakRecord::FailLocked(const std::string& what) {
    if (!sound) return;
    firstFault = "at " + TimeText() + ": " + what;
    sound = false;
}

void CSoakRecord::Fail(const std::string& what) {
    const std::scoped_lock hold(lock);
    FailLocked(what);
}

std::string CSoakRecord::Note(const std::string& action) {
    constexpr std::size_t kept = 30;
    const std::scoped_lock hold(lock);
    actions.push_back(TimeText() + "  " + action);
    if (actions.size() > kept) actions.pop_front();
    return actions.back();
}

std::string CSoakRecord::Verdict() const {
    const std::scoped_lock hold(lock);
    if (sound) return "sound\n";
    std::string text = "last actions:\n";
    for (const std::string& each : actions) text += "  " + each + "\n";
    return text + "WRONG " + firstFault + "\n";
}

void CSoakRecord::Hear(const LineRequest& request) {
    const std::scoped_lock hold(lock);
    const LineTime now = SteadyLineTime();
    ++frames;
    if (request.Code() == RequestCode::Poll) ++polls;
    log.Hear(request.frame, now);
    const std::string wrong = wire.Judge(request, now);
    if (!wrong.empty()) FailLocked("on the wire:" + TextOf(request.frame) + ": " + wrong);
}

// Each stretch of bytes that is a status record counts as told, however it came about.
void CSoakRecord::Speak(const LineBytes& bytes) {
    const std::scoped_lock hold(lock);
    log.Speak(bytes, SteadyLineTime());
    tail.insert(tail.end(), bytes.begin(), bytes.end());
    constexpr std::size_t length = statusRecordLength;
    for (std::size_t at = 0; at + length <= tail.size(); ++at) {
        const std::span<const std::uint8_t> record = std::span(tail).subspan(at, length);
        if (record.front() != frameStart || record.back() != frameEnd) continue;
        if (CheckFrameChecksum(record.data(), statusRecordLength))
            told.insert({record[8] << 8 | record[9], record[10] << 8 | record[11]});
    }
    if (tail.size() >= length) tail.erase(tail.begin(), tail.end() - (length - 1));
}

void CSoakRecord::Disturb() {
    const std::scoped_lock hold(lock);
    wire.Disturb(SteadyLineTime());
    log.Disturb(SteadyLineTime());
}

void CSoakRecord::RestartProgram() {
    const std::scoped_lock hold(lock);
    wire.Restart();
    log.Restart(SteadyLineTime());
}

void CSoakRecord::ReadLog(std::string_view text) {
    const std::scoped_lock hold(lock);
    const std::string wrong = log.Read(text, SteadyLineTime());
    if (!wrong.empty()) FailLocked("in the log: " + wrong);
}

void CSoakRecord::EndLog() {
    const std::scoped_lock hold(lock);
    if (!log.IsWhole()) FailLocked("the log ends in the middle of a line");
}

void CSoakRecord::PressStart() {
    const std::scoped_lock hold(lock);
    wire.PressStart(SteadyLineTime());
}

void CSoakRecord::PressClear() {
    const std::scoped_lock hold(lock);
    wire.PressClear(SteadyLineTime());
}

void CSoakRecord::PressUpdate(const std::optional<UpdateForm>& form) {
    const std::scoped_lock hold(lock);
    wire.PressUpdate(SteadyLineTime(), form);
}

void CSoakRecord::SeePolling() {
    const std::scoped_lock hold(lock);
    wire.SeePolling(SteadyLineTime());
}

bool CSoakRecord::WereTold(int in, int out) const {
    const std::scoped_lock hold(lock);
    return told.contains({in, out});
}

std::size_t CSoakRecord::LogLines() const {
    const std::scoped_lock hold(lock);
    return log.Lines();
}

std::size_t CSoakRecord::UpdatesCompared() const {
    const std::scoped_lock hold(lock);
    return wire.UpdatesCompared();
}
