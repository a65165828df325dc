// A file of rows that grows: each line in it is whole, whatever happens to the program or the disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

class CRowFile {
public:
    // `headerLine` with its line end stands at the beginning of the file, once; may be empty. A file that begins
    // otherwise than by `fileFront` is left as it is.
    CRowFile(std::string filePath, std::string headerLine, std::string fileFront)
        : path(std::move(filePath)), header(std::move(headerLine)), front(std::move(fileFront)) {}

    // Adds whole lines by one write, which either gets into the file as a whole or not at all. What can't be written is
    // kept for the next time, the newest 64 KiB of it. The file is held open only meanwhile, so that others can take it
    // away or look into it. A torn last line, as a crash leaves it, is cut off first. False with words in `error`.
    bool Append(std::string_view lines, std::string& error);

    // Whether the last call failed for another program that has the file.
    bool IsHeld() const { return isHeld; }
    // Lines that are kept.
    std::size_t Waiting() const;
    // Lines that were given up since the last call, for want of room to keep them.
    std::size_t TakeLost() { return std::exchange(lost, 0); }

private:
    bool Write(std::string& error);
    void DropOldest();

    std::string path;
    std::string header;
    std::string front;
    std::string waiting;
    std::size_t lost = 0;
    bool isHeld = false;
};
