// A line at a port.
#include "line/LineRunner.h"

#include <utility>

#include "line/LineControl.h"

CLineRunner::CLineRunner(const LineOptions& options, const CalendarFields& date, LineTime now, CLinePort& linePort,
                         std::function<void(const std::string&)> sayTo)
    : line(StartLine(options, date, now)), port(linePort), say(std::move(sayTo)) {}

bool CLineRunner::Start(const std::string& wirePath, std::string& error) {
    if (!wirePath.empty() && !log.Open(wirePath)) {
        error = "can't write " + wirePath;
        return false;
    }
    return OpenPort(error);
}

bool CLineRunner::OpenPort(std::string& error) {
    const bool opened = port.Open(error);
    if (opened) say("line at " + port.Name());
    return opened;
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
    log.Note(WireDirection::FromProgram, bytes, now);
    line.Feed(bytes, now);
}

void CLineRunner::Speak(LineTime now) {
    const LineBytes bytes = line.TakeDue(now);
    if (!port.IsOpen() || bytes.empty()) return;
    log.Note(WireDirection::ToProgram, bytes, now);
    if (!port.Write(bytes)) LosePort();
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
    if (!answer.text.empty()) say(answer.text);
    return !answer.quit;
}
