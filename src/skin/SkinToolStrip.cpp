#include "skin/SkinToolStrip.h"

#include <algorithm>
#include <utility>

#include "framework/Dc.h"
#include "framework/ResourceModule.h"
#include "skin/StripLayout.h"

void CSkinToolStrip::PreSubclassWindow() {
    CSkinStatic::PreSubclassWindow();
    buttons.Clear();
}

bool CSkinToolStrip::LoadStrip(std::uint16_t id, int) {
    const char* name = MAKEINTRESOURCEA(id);
    const CBitmap loaded(::LoadBitmapA(FindResourceModule(name, RT_BITMAP), name));
    const CBitmap former(strip.CopyFrom(loaded.GetHandle()));
    return !strip.IsEmpty();
}

void CSkinToolStrip::CreateButtons(int buttonWidth, int buttonHeight, int frameWidth, int) {
    buttons.Replace([=, this, ids = buttonIds](CButtonRow::Buttons& made) {
        const int frameCount = FrameCount(strip.GetWidth(), frameWidth);
        const int count = std::min(frameCount, static_cast<int>(ids.size()));
        buttonRects = ButtonRow(count, buttonWidth, buttonHeight);
        for (std::size_t i = 0; i < buttonRects.size(); ++i) made.push_back(MakeButton(i, ids[i], frameCount));
        PlaceButtons(made);
    });
}

bool CSkinToolStrip::SerializeButtonRects(CArchive& archive) {
    if (archive.IsStoring()) {
        StoreRects(archive, buttonRects);
        return true;
    }
    auto loaded = LoadRects(archive);
    if (!loaded) return false;
    buttonRects = std::move(*loaded);
    return true;
}

std::unique_ptr<CSkinButton> CSkinToolStrip::MakeButton(std::size_t index, UINT id, int frameCount) const {
    auto button = std::make_unique<CSkinButton>();
    button->Create("BUTTON", "", WS_CHILD | WS_VISIBLE | BS_NOTIFY, buttonRects[index], GetHandle(), id);
    CSkinBitmap frame;
    strip.GetFrame(frame, static_cast<int>(index) + 1, 1, frameCount, 1);
    const CBitmap former(button->SetBitmapHandle(frame.GetHandle()));
    button->drawMode = CSkinButton::pictureMode;
    button->SetTextColor(buttonTextColor);
    return button;
}

void CSkinToolStrip::PlaceButtons(const CButtonRow::Buttons& made) const {
    TEXTMETRICA metrics{};
    {
        const CClientDC dc(GetHandle());
        ::GetTextMetricsA(dc.GetHandle(), &metrics);
    }
    std::vector<int> lengths; // in bytes: a character that takes more of them is a wide one
    for (const auto& button : made)
        lengths.push_back(static_cast<int>(LoadText(static_cast<UINT>(button->GetDlgCtrlID())).size()));
    const std::vector<CRect> row = WidenRow(buttonRects, lengths, metrics.tmAveCharWidth);
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i]->SetWindowPos(nullptr, row[i].left, row[i].top, row[i].Width(), row[i].Height(), SWP_NOZORDER);
}
