#include "framework/Text.h"
#include "port/SystemWords.h"
#include "reader/SharedFile.h"

bool CSharedFile::Open(const std::string& path, std::string& error) {
    file.Attach(::CreateFileW(ToWide(path).c_str(), GENERIC_READ,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (file.IsEmpty()) error = SystemWords(::GetLastError());
    return !file.IsEmpty();
}

std::size_t CSharedFile::Read(std::span<char> buffer, std::string& error) {
    DWORD got = 0;
    if (!::ReadFile(file.GetHandle(), buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr)) {
        error = SystemWords(::GetLastError());
    }
    return got;
}
