// Files of Windows.
#include "port/SystemWords.h"
#include "reader/OutputFile.h"

namespace {

bool Fail(std::string& error, DWORD reason = GetLastError()) {
    error = SystemWords(reason);
    return false;
}

bool WriteWhole(HANDLE file, std::string_view text, std::string& error) {
    DWORD written = 0;
    if (!WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr)) return Fail(error);
    return written == text.size() || Fail(error, ERROR_DISK_FULL);
}

bool Seek(HANDLE file, std::uint64_t offset) {
    LARGE_INTEGER place{};
    place.QuadPart = static_cast<LONGLONG>(offset);
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN) != FALSE;
}

bool Identify(const std::string& path, BY_HANDLE_FILE_INFORMATION& identity) {
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const CFileHandle file(CreateFileA(path.c_str(), 0, shared, nullptr, OPEN_EXISTING, 0, nullptr));
    return !file.IsEmpty() && GetFileInformationByHandle(file.GetHandle(), &identity);
}

} // namespace

bool COutputFile::Open(const std::string& path, std::string& error) {
    file.Attach(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsEmpty()) return true;
    isHeld = GetLastError() == ERROR_SHARING_VIOLATION;
    return Fail(error);
}

std::optional<std::uint64_t> COutputFile::Size() const {
    LARGE_INTEGER size{};
    if (GetFileType(file.GetHandle()) != FILE_TYPE_DISK || !GetFileSizeEx(file.GetHandle(), &size)) return std::nullopt;
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::optional<std::string> COutputFile::ReadAt(std::uint64_t offset, std::size_t size) const {
    std::string text(size, '\0');
    DWORD got = 0;
    const bool read = Seek(file.GetHandle(), offset) &&
                      ReadFile(file.GetHandle(), text.data(), static_cast<DWORD>(size), &got, nullptr) != FALSE;
    if (!read || got != size) return std::nullopt;
    return text;
}

bool COutputFile::Append(std::string_view text, std::string& error) {
    if (const auto size = Size(); size && !Seek(file.GetHandle(), *size)) return Fail(error);
    return WriteWhole(file.GetHandle(), text, error);
}

bool COutputFile::Cut(std::uint64_t size) {
    return Seek(file.GetHandle(), size) && SetEndOfFile(file.GetHandle()) != FALSE;
}

bool IsPipe(const std::string&) {
    return false;
}

bool IsSameFile(const std::string& path, const std::string& other) {
    BY_HANDLE_FILE_INFORMATION first{}, second{};
    return Identify(path, first) && Identify(other, second) &&
           first.dwVolumeSerialNumber == second.dwVolumeSerialNumber && first.nFileIndexHigh == second.nFileIndexHigh &&
           first.nFileIndexLow == second.nFileIndexLow;
}

bool ReplaceWholeFile(const std::string& path, std::string_view text, std::string& error) {
    const std::string beside = path + ".new";
    CFileHandle file(
        CreateFileA(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.IsEmpty()) return Fail(error);
    bool replaced = WriteWhole(file.GetHandle(), text, error);
    file.Close();
    if (replaced && !MoveFileExA(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) replaced = Fail(error);
    if (!replaced) DeleteFileA(beside.c_str());
    return replaced;
}
