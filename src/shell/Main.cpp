// The program's entry.
#include <windows.h>

#include "shell/QuorvaneApp.h"

namespace {

CQuorvaneApp theApp;

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return theApp.Run();
}
