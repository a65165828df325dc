// Run-time class information, as far as the program needs it: a class has a name and a base, and an object can be asked
// whether it is of a class or of one derived from it.
#pragma once

#include <memory>

class CObject;

struct CRuntimeClass {
    const char* name;
    const CRuntimeClass* base;      // null for CObject
    CObject* (*create)() = nullptr; // where objects can be made by their class

    bool IsDerivedFrom(const CRuntimeClass& ancestor) const {
        for (const CRuntimeClass* each = this; each != nullptr; each = each->base) {
            if (each == &ancestor) return true;
        }
        return false;
    }
    // A new object of the class; null for a class that makes none.
    std::unique_ptr<CObject> CreateObject() const;
};

class CObject {
public:
    static constexpr CRuntimeClass classInfo{"CObject", nullptr};

    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;

    virtual const CRuntimeClass& GetRuntimeClass() const { return classInfo; }
    bool IsKindOf(const CRuntimeClass& ancestor) const { return GetRuntimeClass().IsDerivedFrom(ancestor); }
};

inline std::unique_ptr<CObject> CRuntimeClass::CreateObject() const {
    return std::unique_ptr<CObject>(create != nullptr ? create() : nullptr);
}
