// The segment displays: with and without unlit segments, in colours, and as a clock.
#include "gallery/GalleryBoard.h"
#include "gallery/GalleryIds.h"
#include "gallery/GalleryPages.h"
#include "skin/SegmentDisplay.h"

void AddDisplays(CGalleryBoard& board) {
    constexpr int left = 504, top = 40;
    constexpr int width = 148, height = 46, step = 158;
    board.AddTitle("Segment display", left, top);
    const auto add = [&](UINT id, int index, const char* name) -> CSegmentDisplay& {
        const int x = left + step * index;
        board.AddLabel(name, x, top + 20 + height, width);
        return board.Add<CSegmentDisplay>(id, "", CRect::Sized(x, top + 18, width, height));
    };
    auto& panel = add(IDC_DISPLAY, 0, "as in the panel");
    panel.SetBackColor(RGB(0, 0, 255));
    panel.SetSegmentColor(RGB(255, 255, 255));
    panel.SetGhostSegments(false);
    panel.SetText("01234");
    add(IDC_DISPLAY_PLAIN, 1, "unlit segments").SetText("-56.7");
    auto& time = add(IDC_DISPLAY_TIME, 2, "time, colours of its own");
    time.SetBackColor(RGB(242, 242, 242));
    time.SetSegmentColor(RGB(176, 32, 32));
    time.SetOffColor(RGB(226, 226, 226));
    time.SetTimeText("%H:%M");
}
