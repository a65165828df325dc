// A tap that keeps what it is told, as one text: "T3 R0 closed".
#pragma once

#include <mutex>
#include <string>

#include "serial/TrafficTap.h"

class CTapRecorder : public CTrafficTap {
public:
    void LogTransmitted(const void*, std::uint32_t count) override { Note("T" + std::to_string(count)); }
    void LogReceived(const void*, std::uint32_t count) override { Note("R" + std::to_string(count)); }
    void ShowPortState(bool open) override { Note(open ? "open" : "closed"); }

    // What was told since the last call.
    std::string Take() {
        const std::scoped_lock hold(lock);
        return std::exchange(told, {});
    }

private:
    void Note(const std::string& text) {
        const std::scoped_lock hold(lock);
        told += (told.empty() ? "" : " ") + text;
    }

    std::mutex lock;
    std::string told;
};
