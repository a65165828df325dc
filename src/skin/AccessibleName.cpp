#include "skin/AccessibleName.h"

#include <oleacc.h>

#include "framework/Shell.h"
#include "framework/SystemHandles.h"
#include "framework/Text.h"

namespace {

// The platform's store of names. Its library is loaded with the first name, and isn't missed where there is none.
class CNameStore {
public:
    CNameStore() {
        PrepareComponents();
        ::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                           reinterpret_cast<void**>(services.Receive()));
    }

    bool Set(HWND window, const std::wstring& name) const {
        return !services.IsEmpty() && SUCCEEDED(services.GetHandle()->SetHwndPropStr(window, whole, CHILDID_SELF,
                                                                                     PROPID_ACC_NAME, name.c_str()));
    }
    void Clear(HWND window) const {
        if (services.IsEmpty()) return;
        services.GetHandle()->ClearHwndProps(window, whole, CHILDID_SELF, &PROPID_ACC_NAME, 1);
    }

private:
    static constexpr auto whole = static_cast<DWORD>(OBJID_CLIENT);
    CInterface<IAccPropServices> services;
};

} // namespace

void CAccessibleName::Give(HWND newOwner, const std::string& name) {
    Clear();
    if (CNameStore().Set(newOwner, ToWide(name))) owner = newOwner;
}

void CAccessibleName::Clear() {
    if (owner == nullptr) return;
    CNameStore().Clear(owner);
    owner = nullptr;
}
