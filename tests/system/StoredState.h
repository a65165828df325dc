// The program's two stored values, put back at the end as they were found.
#pragma once

#include <map>
#include <optional>
#include <string>

#include <windows.h>

class CStoredState {
public:
    CStoredState();
    CStoredState(const CStoredState&) = delete;
    CStoredState& operator=(const CStoredState&) = delete;
    ~CStoredState();

    void Erase() const; // the whole key
    void Set(const char* name, DWORD type, const std::string& bytes) const;
    void Set(const char* name, DWORD value) const;
    // A REG_DWORD only.
    std::optional<DWORD> Get(const char* name) const;

private:
    struct Value {
        DWORD type;
        std::string bytes;
    };
    static std::optional<Value> Read(const char* name);

    std::map<std::string, Value> found;
};
