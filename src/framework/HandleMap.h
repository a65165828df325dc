// Which object stands for a platform handle.
//
// A handle has at most one permanent object, the one that was attached to it. Where none is attached, Wrap makes a
// temporary object, which lives until DropTemporaries: the framework's outermost message loop calls that when it has
// nothing else to do, so a temporary may be used freely inside one message handler and never kept.
// User-interface thread only.
#pragma once

#include <memory>
#include <unordered_map>

#include "framework/Menu.h"
#include "framework/Wnd.h"

template <class Handle, class Object>
class CHandleMap {
public:
    Object* FindPermanent(Handle handle) const {
        const auto found = permanent.find(handle);
        return found == permanent.end() ? nullptr : found->second;
    }

    void SetPermanent(Handle handle, Object* object) {
        permanent[handle] = object; // a temporary object, if there is one, is still good to whoever holds it
    }

    // Removes the entry only if it still names this object: another one may have been attached since.
    void RemovePermanent(Handle handle, const Object* object) {
        const auto found = permanent.find(handle);
        if (found != permanent.end() && found->second == object) permanent.erase(found);
    }

    // Null for a null handle.
    Object* Wrap(Handle handle) {
        if (handle == nullptr) return nullptr;
        if (Object* object = FindPermanent(handle)) return object;
        std::unique_ptr<Object>& wrapper = temporary[handle];
        if (!wrapper) wrapper = Object::MakeTemporary(handle);
        return wrapper.get();
    }

    bool HasTemporaries() const { return !temporary.empty(); }
    void DropTemporaries() { temporary.clear(); }

private:
    std::unordered_map<Handle, Object*> permanent;
    std::unordered_map<Handle, std::unique_ptr<Object>> temporary;
};

// The process's two: windows and menus.
CHandleMap<HWND, CWnd>& WindowMap();
CHandleMap<HMENU, CMenu>& MenuMap();

bool HaveTemporaryWrappers();
// Ends all temporary wrappers; called by the outermost message loop when it is idle.
void DropTemporaryWrappers();
