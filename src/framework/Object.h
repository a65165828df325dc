// Run-time class information, as far as the program needs it: a class has a name and a base, and an object can be asked
// whether it is of a class or of one derived from it.
#pragma once

struct CRuntimeClass {
    const char* name;
    const CRuntimeClass* base; // null for CObject

    bool IsDerivedFrom(const CRuntimeClass& ancestor) const {
        for (const CRuntimeClass* each = this; each != nullptr; each = each->base) {
            if (each == &ancestor) return true;
        }
        return false;
    }
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
