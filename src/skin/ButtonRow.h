// The row of skin buttons that a control makes for itself.
//
// The parent of the control is told of each button that goes or comes, by the platform and by the button, and may ask
// for a new row then. A row that is asked for while one is being made isn't made.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "skin/SkinButton.h"

class CButtonRow {
public:
    using Buttons = std::vector<std::unique_ptr<CSkinButton>>;

    CButtonRow() = default;
    CButtonRow(const CButtonRow&) = delete;
    CButtonRow& operator=(const CButtonRow&) = delete;
    ~CButtonRow() { Clear(); }

    // Ends the present buttons, then calls make(Buttons&), which adds others.
    template <class Make>
    void Replace(Make make) {
        if (std::exchange(replacing, true)) return;
        std::exchange(buttons, {}).clear(); // out of the row first, so that nobody comes upon one that is half gone
        make(buttons);
        replacing = false;
    }

    void Clear() {
        Replace([](const Buttons&) {});
    }

    Buttons::const_iterator begin() const { return buttons.begin(); }
    Buttons::const_iterator end() const { return buttons.end(); }

private:
    Buttons buttons;
    bool replacing = false;
};
