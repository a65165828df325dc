// A line at a port.
#include "line/LineRunner.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "line/LineControl.h"

CLineRunner::CLineRunner(const LineOptions& options, const CalendarFields& date, LineTime now, CLinePort& linePort,
                         std::function<void(const std::string&)> sayTo)
    : line(StartLine(options, date, now)), portPaces(options.portPaces), port(linePort), say(std::move(sayTo)),
      traffic(options.showsTraffic, now) {}

bool CLineRunner::Start(const std::string& wirePath, std::string& error) {
    if (!wirePath.empty() && !log.Open(wirePath)) {
        error = "can't write " + wirePath + ": " + std::generic_category().message(errno);
        return false;
    }
    return OpenPort(error);
}

bool CLineRunner::OpenPort(std::string& error) {
    const bool opened = port.Open(error);
    if (!opened) return false;
    line.LeavePaceToPort(portPaces.value_or(port.KeepsPace()));
    say("line at " + port.Name());
    return true;
}

void CLineRunner::LosePort() {
    say("error: " + port.Name() + " is gone; \"plug\" opens it again");
    line.SetPlugged(false);
    port.Close();
}

void CLineRunner::Receive(LineTime now) {
    if (!port.IsOpen()) return;
    LineBytes bytes;
    if (!port.Read(bytes)) {
        LosePort();
        return;
    }
    Note(WireDirection::FromProgram, bytes, now);
    line.Feed(bytes, now);
}

void CLineRunner::Speak(LineTime now) {
    const LineBytes bytes = line.TakeDue(now);
    if (port.IsOpen() && !bytes.empty()) {
        Note(WireDirection::ToProgram, bytes, now);
        if (!port.Write(bytes)) LosePort();
    }
    if (const auto text = traffic.TakeFinished(now)) say(*text);
}

void CLineRunner::Note(WireDirection direction, const LineBytes& bytes, LineTime now) {
    if (!log.Note(direction, bytes, now)) say("error: the wire log can't be written and ends here");
    if (const auto text = traffic.Add(direction, bytes, now)) say(*text);
}

std::optional<LineTime> CLineRunner::NextDue() const {
    const auto byte = line.NextDue();
    const auto text = traffic.NextDue();
    return byte && text ? std::min(*byte, *text) : byte ? byte : text;
}

bool CLineRunner::Obey(std::string_view text, LineTime now) {
    const ControlAnswer answer = RunControlLine(line, text, now);
    if (!line.IsPlugged() && port.IsOpen()) port.Close();
    if (line.IsPlugged() && !port.IsOpen()) {
        std::string error;
        if (!OpenPort(error)) {
            line.SetPlugged(false);
            say("error: " + error);
            return true;
        }
    }
    if (answer.traffic) traffic.Show(*answer.traffic);
    if (!answer.text.empty()) say(answer.text);
    return !answer.quit;
}
