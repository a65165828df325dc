// The owner of one reference to a COM object.
#pragma once

#include "framework/Handle.h"

template <class Interface>
struct InterfaceTraits : NullTraits<Interface*> {
    static void Close(Interface* object) { object->Release(); }
};
template <class Interface>
using CInterface = CHandle<InterfaceTraits<Interface>>;
