// Stands in front of the system's call in this test program: refuses what common controls before version 6 refuse, or
// everything.
#include <windows.h>

#include <commctrl.h>

#include "StrictControls.h"

bool haveNoControls = false;

namespace {

BOOL WINAPI InitStrictly(const INITCOMMONCONTROLSEX* classes) {
    constexpr DWORD known = ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_USEREX_CLASSES | ICC_COOL_CLASSES |
                            ICC_INTERNET_CLASSES | ICC_PAGESCROLLER_CLASS | ICC_NATIVEFNTCTL_CLASS;
    return !haveNoControls && classes->dwSize == sizeof *classes && (classes->dwICC & ~known) == 0;
}

} // namespace

// The slot through which the program calls the import; the linker takes this one before that of the library.
extern "C" decltype(&InitStrictly) strictControlsSlot
#ifdef _WIN64
    __asm__("__imp_InitCommonControlsEx");
#else
    __asm__("__imp__InitCommonControlsEx@4");
#endif
decltype(&InitStrictly) strictControlsSlot = &InitStrictly;
