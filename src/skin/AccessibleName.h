// The name by which assistive software speaks of a window that has no text to say. Nothing of it is seen.
#pragma once

#include <string>

#include <windows.h>

class CAccessibleName {
public:
    CAccessibleName() = default;
    CAccessibleName(const CAccessibleName&) = delete;
    CAccessibleName& operator=(const CAccessibleName&) = delete;
    ~CAccessibleName() { Clear(); }

    // Needs COM on this thread, and a platform that keeps such names; without either it does nothing.
    void Give(HWND newOwner, const std::string& name);
    bool IsKept() const { return owner != nullptr; }
    // The platform keeps a name until it is told, so this comes before the window's end.
    void Clear();

private:
    HWND owner = nullptr; // null: no name is kept
};
