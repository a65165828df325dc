// Where the simulated line meets a program on the host: a pseudo-terminal of its own.
//
// A pseudo-terminal gets a new name each time it is opened, so programs use a symbolic link that always leads to the
// present one. It is raw: no echo, no line editing, every byte passes as it is.
#pragma once

#include <string>
#include <utility>

#include "port/DescriptorPort.h"

class CPseudoTerminal final : public CDescriptorPort {
public:
    // `linkPath` is the symbolic link's; without it there is none.
    explicit CPseudoTerminal(std::string linkPath) : link(std::move(linkPath)) {}
    ~CPseudoTerminal() override { CPseudoTerminal::Close(); }

    // A symbolic link that is in the way is replaced, any other file isn't.
    bool Open(std::string& error) override;
    // Programs that have it open see the line hang up. Takes the link away, lest it leads to whoever gets the name
    // next.
    void Close() override;

private:
    bool Make(std::string& error);
    bool MakeLink(std::string& error);

    std::string link;
    // The program's end, held open too: without it the pseudo-terminal reports a hang-up, over and over, until a
    // program comes and after it has gone.
    CDescriptor theirs;
};
