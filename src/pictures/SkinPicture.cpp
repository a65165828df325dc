#include "pictures/SkinPicture.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include "framework/Dc.h"
#include "framework/Text.h"
#include "pictures/BitmapRows.h"

namespace {

constexpr std::int64_t mostKept =
    std::int64_t{512} * 1024; // pixels; the largest picture of a theme has some ten thousand

// The folder in force may be another one when the file is read again.
std::wstring AbsolutePath(const std::string& path) {
    const std::wstring wide = ToWide(path);
    std::wstring absolute(::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    absolute.resize(::GetFullPathNameW(wide.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr));
    return absolute;
}

// A file in one state of its content.
struct FileState {
    std::wstring path;
    FILETIME written{};
    DWORD size = 0;

    auto Key() const { return std::tuple(path, written.dwLowDateTime, written.dwHighDateTime, size); }
    bool operator<(const FileState& other) const { return Key() < other.Key(); }
};

// Nothing for what is no file.
std::optional<FileState> StateOf(const std::string& path) {
    FileState state{AbsolutePath(path)};
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (::GetFileAttributesExW(state.path.c_str(), GetFileExInfoStandard, &data) == FALSE) return {};
    state.written = data.ftLastWriteTime;
    state.size = data.nFileSizeLow;
    return state;
}

// The pictures of files that somebody holds.
std::map<FileState, std::weak_ptr<CSkinBitmap>>& HeldPictures() {
    static std::map<FileState, std::weak_ptr<CSkinBitmap>> held;
    std::erase_if(held, [](const auto& entry) { return entry.second.expired(); });
    return held;
}

} // namespace

bool CSkinPicture::LoadFromFile(const std::string& path) {
    Attach(nullptr);
    const auto state = StateOf(path);
    auto& held = HeldPictures();
    if (const auto found = state ? held.find(*state) : held.end(); found != held.end()) {
        Hold(found->second.lock());
        return true;
    }
    if (KindOfPath(path) == PictureKind::Bitmap) {
        const CBitmapRows rows(ToWide(path));
        if (std::int64_t{rows.GetWidth()} * rows.GetHeight() > mostKept) {
            largeFile = AbsolutePath(path);
            size = {rows.GetWidth(), rows.GetHeight()};
            return true;
        }
    }
    CSkinBitmap loaded;
    loaded.LoadFromFile(path, 0);
    if (std::int64_t{loaded.GetWidth()} * loaded.GetHeight() > mostKept) {
        Attach(loaded.Detach());
    } else {
        const CBitmap former(CopyFrom(loaded.GetHandle())); // a copy, because copies are the quicker to draw from
    }
    if (state && !IsEmpty()) held[*state] = bitmap;
    return !IsEmpty();
}

void CSkinPicture::Attach(HBITMAP whole) {
    auto own = std::make_shared<CSkinBitmap>();
    own->Attach(whole);
    Hold(std::move(own));
}

HBITMAP CSkinPicture::CopyFrom(HBITMAP source) {
    auto own = std::make_shared<CSkinBitmap>();
    const CBitmap none(own->CopyFrom(source));
    CSkinBitmap former;
    if (bitmap.use_count() == 1) {
        former.Attach(bitmap->Detach());
    } else {
        const CBitmap nothing(former.CopyFrom(bitmap->GetHandle())); // the others keep theirs
    }
    Hold(std::move(own));
    return former.Detach();
}

void CSkinPicture::Hold(std::shared_ptr<CSkinBitmap> whole) {
    bitmap = std::move(whole);
    largeFile.clear();
    size = {bitmap->GetWidth(), bitmap->GetHeight()};
}

CSkinBitmap CSkinPicture::CutTo(const CRect& within, CRect& place) const {
    const CPoint whole = place.TopLeft();
    ::IntersectRect(&place, &place, &within);
    CSkinBitmap out;
    out.CreateBlank(place);
    const int width = out.GetWidth(), height = out.GetHeight();
    CopyCells(out, {{{0, 0, width, height}, CRect::Sized(place.left - whole.x, place.top - whole.y, width, height)}});
    return out;
}

CSkinBitmap CSkinPicture::GetCell(int column, int row, int columns, int rows, const CSize& most) const {
    const CRect cell = FrameCell(GetWidth(), GetHeight(), column, row, columns, rows);
    CRect place = CRect::Sized(-cell.left, -cell.top, GetWidth(), GetHeight());
    return CutTo({0, 0, std::min<LONG>(cell.Width(), most.cx), std::min<LONG>(cell.Height(), most.cy)}, place);
}

CSkinBitmap CSkinPicture::GetRow(int row, int columns, int rows, const CSize& most) const {
    CSkinBitmap out;
    std::vector<SliceCell> cells;
    int width = 0, height = 0;
    for (int column = 1; column <= columns; ++column) {
        const CRect cell = FrameCell(GetWidth(), GetHeight(), column, row, columns, rows);
        width = std::min<LONG>(cell.Width(), most.cx);
        height = std::min<LONG>(cell.Height(), most.cy);
        cells.push_back(
            {CRect::Sized((column - 1) * width, 0, width, height), CRect::Sized(cell.left, cell.top, width, height)});
    }
    out.CreateBlank({0, 0, width * columns, height});
    CopyCells(out, cells);
    return out;
}

void CSkinPicture::DrawNineSlice(HDC dc, const CRect& rect, int cornerWidth, int cornerHeight) const {
    if (largeFile.empty()) {
        bitmap->DrawNineSlice(dc, rect, cornerWidth, cornerHeight);
        return;
    }
    CSkinBitmap stretched;
    BuildNineSlice(stretched, rect, cornerWidth, cornerHeight);
    stretched.Draw(dc, rect);
}

void CSkinPicture::BuildNineSlice(CSkinBitmap& out, const CRect& rect, int cornerWidth, int cornerHeight) const {
    if (largeFile.empty()) {
        bitmap->BuildNineSlice(out, rect, cornerWidth, cornerHeight);
        return;
    }
    out.CreateBlank(rect);
    CopyCells(out, NineSliceCells(out.GetBounds(), {0, 0, GetWidth(), GetHeight()}, cornerWidth, cornerHeight));
}

void CSkinPicture::CopyCells(CSkinBitmap& out, const std::vector<SliceCell>& cells) const {
    if (largeFile.empty()) {
        bitmap->CopyCells(out, cells);
        return;
    }
    if (!CopyRows(out, cells)) out.Close(); // who keeps it would show black; without it the next paint tries again
}

bool CSkinPicture::CopyRows(const CSkinBitmap& out, const std::vector<SliceCell>& cells) const {
    const CBitmapRows file(largeFile);
    if (file.GetWidth() != GetWidth() || file.GetHeight() != GetHeight()) return false; // another file by now
    const CMemoryDC target(nullptr), source(nullptr);
    if (target.GetHandle() == nullptr || source.GetHandle() == nullptr) return false;
    const CSelectObject canvas(target, out.GetHandle());
    CBitmapRows::Piece held{}; // cells side by side are cut from the same rows
    CBitmap rows;
    for (const auto& [to, from] : cells) {
        const int first = std::max<LONG>(0, -to.top);
        const int count = std::min<LONG>(to.Height(), out.GetHeight() - to.top) - first;
        if (count <= 0) continue;
        const CBitmapRows::Piece wanted{from.top, from.Height(), to.Height(), first, count};
        if (held != wanted) rows = file.Read(held = wanted);
        if (rows.IsEmpty()) return false;
        const CSelectObject selected(source, rows.GetHandle());
        ::StretchBlt(target.GetHandle(), to.left, to.top + first, to.Width(), count, source.GetHandle(), from.left, 0,
                     from.Width(), count, SRCCOPY);
    }
    return true;
}
