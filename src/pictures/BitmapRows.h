// The rows of a bitmap file that is too large to be kept: those that are wanted are read from the file.
#pragma once

#include <array>
#include <string>

#include <windows.h>

#include "framework/FileStream.h"
#include "framework/Gdi.h"
#include "pictures/PictureFile.h"

class CBitmapRows {
public:
    // Without a width if the file can't be read, or doesn't hold its rows plainly (PictureFile.h).
    explicit CBitmapRows(const std::wstring& path);

    int GetWidth() const { return static_cast<int>(layout.width); }
    int GetHeight() const { return static_cast<int>(layout.height); }

    // `count` rows, whole and in the file's depth, as the bitmap's rows from the top: the `first` to the last of the
    // `stretched` rows to which the `height` rows from `top` on are stretched. Rows that the picture hasn't are black.
    // Null on failure, and for more than 64 MiB of rows.
    struct Piece {
        int top;
        int height;
        int stretched;
        int first;
        int count;

        bool operator==(const Piece&) const = default;
    };
    CBitmap Read(const Piece& piece) const;

private:
    CFileStream file;
    PlainLayout layout;
    std::array<std::uint8_t, largestPlainHeader> header{};
};
