#include "framework/Shell.h"

#include <objbase.h>

#include "framework/SystemLibrary.h"

namespace {

class CComponents {
public:
    CComponents() : result(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)) {}
    CComponents(const CComponents&) = delete;
    CComponents& operator=(const CComponents&) = delete;
    ~CComponents() {
        if (SUCCEEDED(result)) ::CoUninitialize();
    }

private:
    HRESULT result;
};

} // namespace

void PrepareComponents() {
    static const CComponents components;
}

Shell& SystemShell() {
    PrepareComponents();
    static Shell shell = [] {
        const HMODULE module = LoadSystemLibrary(L"shell32.dll");
        Shell found{};
        FindFunction(module, "ShellExecuteA", found.open);
        FindFunction(module, "ShellExecuteW", found.openWide);
        FindFunction(module, "ShellExecuteExA", found.openWith);
        return found;
    }();
    return shell;
}
