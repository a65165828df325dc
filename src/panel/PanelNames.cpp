// Names for assistive software. It would take a label that stands directly before a control, in the same window; the
// panel's labels lie on the ground, and edits and picker over it. So these are told their names.
#include "panel/CounterPanel.h"

#include <memory>
#include <utility>

#include <oleacc.h>

#include "framework/ResourceModule.h"
#include "framework/Text.h"
#include "resources/ResourceIds.h"

namespace {

// PROPID_ACC_NAME, which the import libraries lack.
constexpr GUID nameProperty{0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};
constexpr auto object = static_cast<DWORD>(OBJID_CLIENT);

constexpr std::pair<int, UINT> names[] = {{IDC_DATE_PICKER, IDS_DATE},         {IDC_SENSITIVITY_EDIT, IDS_SENSITIVITY},
                                          {IDC_SD_PERIOD_EDIT, IDS_SD_PERIOD}, {IDC_ADDRESS_EDIT, IDS_ADDRESS},
                                          {IDC_TRANSMITTED_EDIT, IDS_TX},      {IDC_RECEIVED_EDIT, IDS_RX}};

struct Releaser {
    void operator()(IUnknown* shared) const { shared->Release(); }
};
using Services = std::unique_ptr<IAccPropServices, Releaser>;

// Null without COM, or where the system has none.
Services FindServices() {
    void* services = nullptr;
    ::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &services);
    return Services(static_cast<IAccPropServices*>(services));
}

} // namespace

void CCounterPanel::NameControls() const {
    const Services services = FindServices();
    if (!services) return;
    for (const auto& [id, text] : names) {
        services->SetHwndPropStr(GetDlgItem(id), object, CHILDID_SELF, nameProperty, ToWide(LoadText(text)).c_str());
    }
}

void CCounterPanel::OnDestroy() {
    // What was told outlives its window, whose handle another one may get.
    if (const Services services = FindServices()) {
        for (const auto& [id, text] : names) {
            services->ClearHwndProps(GetDlgItem(id), object, CHILDID_SELF, &nameProperty, 1);
        }
    }
    Default();
}
