#include "skin/SkinToolStrip.h"

#include <algorithm>

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "framework/Text.h"
#include "skin/StripLayout.h"

bool CSkinToolStrip::LoadStrip(std::uint16_t id, int) {
    const char* name = MAKEINTRESOURCEA(id);
    const CBitmap loaded(::LoadBitmapA(FindResourceModule(name, RT_BITMAP), name));
    const CBitmap former(strip.CopyFrom(loaded.GetHandle()));
    return !strip.IsEmpty();
}

void CSkinToolStrip::CreateButtons(int buttonWidth, int buttonHeight, int frameWidth, int) {
    buttons.clear();
    const int frameCount = FrameCount(strip.GetWidth(), frameWidth);
    const int count = std::min(frameCount, static_cast<int>(buttonIds.size()));
    buttonRects = ButtonRow(count, buttonWidth, buttonHeight);
    for (std::size_t i = 0; i < buttonRects.size(); ++i) AddButton(i, frameCount);
    PlaceButtons();
}

void CSkinToolStrip::AddButton(std::size_t index, int frameCount) {
    const Box& box = buttonRects[index];
    auto button = std::make_unique<CSkinButton>();
    button->Create("BUTTON", "", WS_CHILD | WS_VISIBLE | BS_NOTIFY,
                   CRect(box.x, box.y, box.x + box.width, box.y + box.height), GetHandle(), buttonIds[index]);
    CSkinBitmap frame;
    strip.GetFrame(frame, static_cast<int>(index) + 1, 1, frameCount, 1);
    const CBitmap former(button->SetBitmapHandle(frame.GetHandle()));
    button->drawMode = CSkinButton::pictureMode;
    button->SetTextColor(buttonTextColor);
    buttons.push_back(std::move(button));
}

void CSkinToolStrip::PlaceButtons() const {
    TEXTMETRICA metrics{};
    {
        const CClientDC dc(GetHandle());
        ::GetTextMetricsA(dc.GetHandle(), &metrics);
    }
    std::vector<int> lengths;
    for (std::size_t i = 0; i < buttons.size(); ++i)
        lengths.push_back(static_cast<int>(ToWide(LoadText(buttonIds[i])).size()));
    const std::vector<Box> row = WidenRow(buttonRects, lengths, metrics.tmAveCharWidth);
    for (std::size_t i = 0; i < buttons.size(); ++i)
        buttons[i]->SetWindowPos(nullptr, row[i].x, row[i].y, row[i].width, row[i].height, SWP_NOZORDER);
}
