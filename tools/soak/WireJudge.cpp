#include "soak/WireJudge.h"

#include <algorithm>

namespace {

// What is queued behind other commands goes out late, and what the window shows is seen late.
constexpr LineTime pollGrace = std::chrono::seconds(2);
constexpr LineTime pressGrace = std::chrono::seconds(5);

bool IsWithin(const std::optional<LineTime>& since, LineTime now, LineTime grace) {
    return since && now - *since <= grace;
}

// Empty if the frame carries what the controls read.
std::string Compare(const LineRequest& request, const UpdateForm& form) {
    const auto at = [&](std::size_t place) { return request.frame[place]; };
    switch (request.Code()) {
    case RequestCode::WriteSettings:
        if (at(15) != form.sensitivity) return "another sensitivity than that of the window";
        if (at(16) != form.settings) return "other settings than those of the window";
        [[fallthrough]];
    case RequestCode::SetClock:
        return std::ranges::equal(request.Clock(), form.clock) ? "" : "another clock than that of the window";
    default:
        return at(3) == form.address ? "" : "another new address than that of the window";
    }
}

} // namespace

// Answers that are still under way change what the controls read.
void CWireJudge::PressUpdate(LineTime now, const std::optional<UpdateForm>& form) {
    const bool quiet = !IsWithin(lastPolling, now, pollGrace) && !IsWithin(lastCommand, now, pollGrace);
    presses.push_back({.time = now, .clears = 0, .settings = 1, .addresses = 1, .form = quiet ? form : std::nullopt});
}

std::string CWireJudge::Judge(const LineRequest& request, LineTime now) {
    std::erase_if(presses, [now](const Press& press) { return now - press.time > pressGrace; });
    const RequestCode code = request.Code();
    if (code == RequestCode::Poll || code == RequestCode::ReadSettings) return JudgePoll(request, now);
    lastCommand = now;
    if (code == RequestCode::ClearCounts) return JudgeClear(request);
    return JudgeUpdate(request, code == RequestCode::SetAddress ? &Press::addresses : &Press::settings);
}

std::string CWireJudge::JudgePoll(const LineRequest& request, LineTime now) {
    if (request.Address() >= counterCount) return "asks an address that can't be";
    if (!IsWithin(lastPolling, now, pollGrace)) return "asks though nobody polls";
    std::optional<LineTime>& last = polled[request.Address()];
    if (request.Code() == RequestCode::Poll) {
        last = now;
    } else if (!IsWithin(last, now, pollGrace) && !IsWithin(lastDisturbed, now, pollGrace)) {
        return "reads settings of a counter that wasn't polled";
    }
    return {};
}

std::string CWireJudge::JudgeClear(const LineRequest& request) {
    const auto press = std::ranges::find_if(presses, [](const Press& each) { return each.clears > 0; });
    if (press == presses.end()) return "clears though nobody pressed Clear";
    --press->clears;
    const bool toAll = request.Address() == allCountersAddress;
    if (!toAll && request.Address() >= counterCount) return "clears an address that can't be";
    return toAll || updatesSent == 0 ? "" : "clears one counter after an Update to all";
}

// A press sends only what has changed, so the frame may be that of a later one.
std::string CWireJudge::JudgeUpdate(const LineRequest& request, int Press::*budget) {
    ++updatesSent;
    if (request.Address() != allCountersAddress) return "an Update to one counter";
    std::string wrong = "changes settings though nobody pressed Update";
    for (Press& press : presses) {
        if (press.*budget == 0) continue;
        wrong = press.form ? Compare(request, *press.form) : "";
        if (!wrong.empty()) continue;
        --(press.*budget);
        if (press.form) ++updatesCompared;
        break;
    }
    return wrong;
}
