#include "StoredState.h"

#include <cstring>

namespace {

constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";

} // namespace

CStoredState::CStoredState() {
    for (const char* name : {"COM", "Language"}) {
        if (const auto value = Read(name)) found.emplace(name, *value);
    }
}

CStoredState::~CStoredState() {
    Erase();
    for (const auto& [name, value] : found) Set(name.c_str(), value.type, value.bytes);
}

std::optional<CStoredState::Value> CStoredState::Read(const char* name) {
    HKEY key = nullptr;
    if (::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, KEY_READ, &key) != ERROR_SUCCESS) return std::nullopt;
    Value value{REG_NONE, std::string(64, '\0')};
    auto length = static_cast<DWORD>(value.bytes.size());
    const bool read = ::RegQueryValueExA(key, name, nullptr, &value.type, reinterpret_cast<BYTE*>(value.bytes.data()),
                                         &length) == ERROR_SUCCESS;
    ::RegCloseKey(key);
    if (!read) return std::nullopt;
    value.bytes.resize(length);
    return value;
}

void CStoredState::Erase() const {
    ::RegDeleteKeyA(HKEY_CURRENT_USER, keyName);
}

void CStoredState::Set(const char* name, DWORD type, const std::string& bytes) const {
    HKEY key = nullptr;
    ::RegCreateKeyExA(HKEY_CURRENT_USER, keyName, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    ::RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
    ::RegCloseKey(key);
}

void CStoredState::Set(const char* name, DWORD value) const {
    Set(name, REG_DWORD, std::string(reinterpret_cast<const char*>(&value), sizeof value));
}

std::optional<DWORD> CStoredState::Get(const char* name) const {
    const auto value = Read(name);
    DWORD number = 0;
    if (!value || value->type != REG_DWORD || value->bytes.size() != sizeof number) return std::nullopt;
    std::memcpy(&number, value->bytes.data(), sizeof number);
    return number;
}
