#include "framework/ResourceModule.h"

#include "framework/Text.h"

namespace {

HINSTANCE moduleInForce = nullptr;

bool LoadTextFrom(HINSTANCE module, UINT id, std::string& text) {
    // With a length of 0 the wide call hands out a pointer to the resource itself, which isn't zero-ended.
    const wchar_t* characters = nullptr;
    const int length = ::LoadStringW(module, id, reinterpret_cast<wchar_t*>(&characters), 0);
    if (length <= 0 || characters == nullptr) return false;
    text = ToNarrow({characters, static_cast<std::size_t>(length)});
    return true;
}

} // namespace

HINSTANCE ProgramModule() {
    return ::GetModuleHandleA(nullptr);
}

HINSTANCE ResourceModule() {
    return moduleInForce != nullptr ? moduleInForce : ProgramModule();
}

void SetResourceModule(HINSTANCE module) {
    moduleInForce = module;
}

HINSTANCE FindResourceModule(const char* name, const char* type) {
    return ::FindResourceA(ResourceModule(), name, type) != nullptr ? ResourceModule() : ProgramModule();
}

std::span<const std::byte> LoadResourceBytes(const char* name, const char* type) {
    const HINSTANCE module = FindResourceModule(name, type);
    const HRSRC resource = ::FindResourceA(module, name, type);
    if (resource == nullptr) return {};
    const HGLOBAL block = ::LoadResource(module, resource);
    const void* bytes = block != nullptr ? ::LockResource(block) : nullptr;
    if (bytes == nullptr) return {};
    return {static_cast<const std::byte*>(bytes), ::SizeofResource(module, resource)};
}

std::string LoadText(UINT id) {
    std::string text;
    if (!LoadTextFrom(ResourceModule(), id, text)) LoadTextFrom(ProgramModule(), id, text);
    return text;
}

std::string ProgramFolder() {
    return ToNarrow(ProgramFolderWide());
}

std::wstring ProgramFolderWide() {
    std::wstring path(MAX_PATH, L'\0');
    // The system's limit is beyond MAX_PATH; what is cut fills the room.
    DWORD length = 0;
    while ((length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) == path.size()) {
        path.resize(2 * path.size());
    }
    path.resize(length);
    return path.substr(0, path.rfind(L'\\') + 1);
}
