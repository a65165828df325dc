#include "panel/FittingFont.h"

#include "framework/Dc.h"
#include "framework/Wnd.h"

namespace {

constexpr LONG smallest = 8; // pixels

} // namespace

CFont MakeFittingFont(const CWnd& control, std::string_view text, LONG width) {
    const CClientDC dc(control.GetHandle());
    const auto fits = [&](HFONT font) {
        const CSelectObject selected(dc, font);
        return dc.GetTextExtent(text).cx <= width;
    };
    const auto present = reinterpret_cast<HFONT>(control.SendMessage(WM_GETFONT));
    LOGFONTW description{};
    if (present == nullptr || fits(present) || ::GetObjectW(present, sizeof description, &description) == 0) return {};
    // Above zero the height is that of a line, below that of the characters.
    const LONG step = description.lfHeight > 0 ? -1 : 1;
    for (description.lfHeight += step; description.lfHeight * -step >= smallest; description.lfHeight += step) {
        CFont font(description);
        if (fits(font.GetHandle())) return font;
    }
    return {};
}
