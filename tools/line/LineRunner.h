// A line at a port: carries bytes between them, keeps the wire log, obeys control lines, pulls and plugs the cable.
//
// The front end waits, in the way of its platform, for input, control lines and the next due byte, and calls the
// runner for each. For one thread.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "line/CounterLine.h"
#include "line/LineOptions.h"
#include "port/LinePort.h"
#include "line/TrafficView.h"
#include "line/WireLog.h"

class CLineRunner {
public:
    // `port` must outlive the runner. `say` gets what the user is to read, a text without a line end at a time.
    CLineRunner(const LineOptions& options, const CalendarFields& date, LineTime now, CLinePort& port,
                std::function<void(const std::string&)> say);

    // Starts the wire log and opens the port. False with words for the user in `error`.
    bool Start(const std::string& wirePath, std::string& error);

    // Hands what the program has written to the line. A port that is gone counts as a pulled cable.
    void Receive(LineTime now);
    // Hands what is due to the program.
    void Speak(LineTime now);
    // Carries out a control line. False if the program is to end.
    bool Obey(std::string_view text, LineTime now);

    // When Speak is to be called at the latest; none while nothing is under way.
    std::optional<LineTime> NextDue() const;

private:
    bool OpenPort(std::string& error);
    void LosePort();
    void Note(WireDirection direction, const LineBytes& bytes, LineTime now);

    CCounterLine line;
    std::optional<bool> portPaces; // what the user says
    CLinePort& port;
    std::function<void(const std::string&)> say;
    CWireLog log;
    CTrafficView traffic;
};
