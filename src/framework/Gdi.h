// Owners of GDI objects. Each owns at most one handle and deletes it at its end; a handle that is selected into a
// device context is not deleted by the platform, so guards (Dc.h) are declared after the owner and end before it.
#pragma once

#include <utility>

#include <windows.h>

class CGdiObject {
public:
    CGdiObject() = default;
    explicit CGdiObject(HGDIOBJ object) : handle(object) {}
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    CGdiObject(CGdiObject&& other) noexcept : handle(other.Detach()) {}
    CGdiObject& operator=(CGdiObject&& other) noexcept {
        if (this != &other) Attach(other.Detach());
        return *this;
    }
    virtual ~CGdiObject() { DeleteObject(); }

    // Takes ownership; what was held before is deleted.
    void Attach(HGDIOBJ object) {
        DeleteObject();
        handle = object;
    }
    // Gives ownership to the caller.
    HGDIOBJ Detach() { return std::exchange(handle, nullptr); }
    void DeleteObject() {
        if (handle != nullptr) ::DeleteObject(std::exchange(handle, nullptr));
    }
    HGDIOBJ GetHandle() const { return handle; }
    bool IsEmpty() const { return handle == nullptr; }

private:
    HGDIOBJ handle = nullptr;
};

class CBitmap : public CGdiObject {
public:
    using CGdiObject::CGdiObject;
    HBITMAP GetHandle() const { return static_cast<HBITMAP>(CGdiObject::GetHandle()); }
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) : CGdiObject(::CreateSolidBrush(color)) {}
    HBRUSH GetHandle() const { return static_cast<HBRUSH>(CGdiObject::GetHandle()); }
};

class CPen : public CGdiObject {
public:
    CPen(int style, int width, COLORREF color) : CGdiObject(::CreatePen(style, width, color)) {}
    HPEN GetHandle() const { return static_cast<HPEN>(CGdiObject::GetHandle()); }
};

class CFont : public CGdiObject {
public:
    using CGdiObject::CGdiObject;
    // By a wide name, as GDI reads narrow ones in another code page than the process's.
    explicit CFont(const LOGFONTW& description) : CGdiObject(::CreateFontIndirectW(&description)) {}
    HFONT GetHandle() const { return static_cast<HFONT>(CGdiObject::GetHandle()); }
};

class CRgn : public CGdiObject {
public:
    using CGdiObject::CGdiObject;
    HRGN GetHandle() const { return static_cast<HRGN>(CGdiObject::GetHandle()); }
};
