#include "skin/SkinBar.h"

#include <algorithm>

#include "skin/NamedControl.h"

namespace {

constexpr int buttonCount = 3;
constexpr int stateCount = 4;
constexpr int buttonTop = 3;
constexpr int buttonWidth = 21;
constexpr int buttonHeight = 20;
constexpr int loadedFromRight = 84; // where the first button stands until the bar is sized
constexpr int sizedFromRight = 454;

} // namespace

const CMessageMap& CSkinBar::ClassMap() {
    static constexpr std::array entries{On<WM_SIZE, &CSkinBar::OnSize>()};
    static const CMessageMap map{&CSkinStatic::ClassMap(), entries};
    return map;
}

void CSkinBar::PreSubclassWindow() {
    CSkinStatic::PreSubclassWindow();
    buttons.Clear();
}

int CSkinBar::LoadButtons(const std::string& path) {
    CSkinPicture picture;
    picture.LoadFromFile(path);
    buttons.Replace([this, &picture, ids = buttonIds](CButtonRow::Buttons& made) {
        const std::size_t count = std::min<std::size_t>(buttonCount, ids.size());
        for (std::size_t i = 0; i < count; ++i) {
            auto button = std::make_unique<CNamedControl<CSkinButton>>();
            button->Create("BUTTON", "", WS_CHILD | WS_VISIBLE, CRect(), GetHandle(), ids[i]);
            const CSkinBitmap row =
                picture.GetRow(static_cast<int>(i) + 1, stateCount, buttonCount, {buttonWidth, buttonHeight});
            const CBitmap former(button->SetBitmapHandle(row.GetHandle()));
            if (i < buttonNames.size()) button->SetAccessibleName(buttonNames[i]);
            made.push_back(std::move(button));
        }
        PlaceButtons(GetClientRect().Width() - loadedFromRight);
    });
    return 1;
}

void CSkinBar::OnSize(UINT, int width, int) {
    Default();
    PlaceButtons(width - sizedFromRight);
}

void CSkinBar::PlaceButtons(int left) const {
    for (const auto& button : buttons) {
        button->SetWindowPos(nullptr, left, buttonTop, buttonWidth, buttonHeight, SWP_NOZORDER);
        left += buttonWidth;
    }
}
