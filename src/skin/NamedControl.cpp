#include "skin/NamedControl.h"

#include <array>

#include "skin/SkinButton.h"

template <class Control>
const CMessageMap& CNamedControl<Control>::ClassMap() {
    static constexpr std::array entries{OnMessage<WM_GETOBJECT, &CNamedControl::OnGetObject>(),
                                        On<WM_DESTROY, &CNamedControl::OnDestroy>()};
    static const CMessageMap map{&Control::ClassMap(), entries};
    return map;
}

template class CNamedControl<CWnd>;
template class CNamedControl<CDateTimeCtrl>;
template class CNamedControl<CSkinButton>;
