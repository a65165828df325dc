#include "skin/BoldFont.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "framework/Dc.h"
#include "framework/Wnd.h"

namespace {

constexpr wchar_t face[] = L"Times New Roman";
constexpr int tenthsPerInch = 720;

int PixelsOf(int tenthsOfPoint) {
    const CClientDC screen(nullptr);
    return ::GetDeviceCaps(screen.GetHandle(), LOGPIXELSY) * tenthsOfPoint / tenthsPerInch;
}

} // namespace

void SetBoldFont(const CWnd& window, int tenthsOfPoint, CFont& font) {
    LOGFONTW description{};
    description.lfHeight = -PixelsOf(tenthsOfPoint); // negative: of the characters, without the room above them
    description.lfWeight = FW_BOLD;
    description.lfCharSet = DEFAULT_CHARSET;
    static_assert(std::size(face) <= std::size(description.lfFaceName));
    std::copy(std::begin(face), std::end(face), description.lfFaceName);
    CFont bold(description);
    window.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(bold.GetHandle()), TRUE);
    font = std::move(bold);
}
