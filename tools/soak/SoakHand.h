// The user's hand: mouse and keys of the system, whatever window they meet. It tells the record what it may bring
// about.
#pragma once

#include <optional>

#include <windows.h>

#include "soak/SoakRecord.h"
#include "soak/SoakedProgram.h"

class CSoakHand {
public:
    CSoakHand(const CSoakedProgram& soaked, CSoakRecord& soakRecord) : program(soaked), record(soakRecord) {}

    void PointAt(POINT place) const;
    // On whatever is there, but for links, which would lead to other programs.
    void ClickAt(POINT place) const;
    // In the middle of a control that can be seen; nothing otherwise.
    void Click(int id) const;
    void Drag(POINT from, POINT to) const;
    void PressKey(int key, WORD held = 0) const;

private:
    void Announce(int id) const;
    std::optional<UpdateForm> ReadForm() const;

    const CSoakedProgram& program;
    CSoakRecord& record;
};
