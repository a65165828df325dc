// Whole lines or none.
#include "reader/RowFile.h"

#include <algorithm>
#include <optional>

#include "reader/OutputFile.h"

namespace {

constexpr std::size_t mostWaiting = std::size_t{64} * 1024;
// Longer than any line of rows.
constexpr std::size_t tailLength = 4096;

// Where the last whole line of a file of that size ends; none if it can't be read. A line that is longer than any row
// is none of ours, and stays.
std::optional<std::uint64_t> EndOfLines(const COutputFile& file, std::uint64_t size) {
    const std::uint64_t from = size > tailLength ? size - tailLength : 0;
    const auto tail = file.ReadAt(from, static_cast<std::size_t>(size - from));
    if (!tail) return std::nullopt;
    const std::size_t end = tail->rfind('\n') + 1; // 0 if there is none
    return end == 0 && from > 0 ? size : from + end;
}

std::size_t LinesIn(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count(text, '\n'));
}

} // namespace

bool CRowFile::Append(std::string_view lines, std::string& error) {
    waiting += lines;
    if (!Write(error)) {
        DropOldest();
        error.insert(0, path + ": ");
        return false;
    }
    waiting.clear();
    return true;
}

std::size_t CRowFile::Waiting() const {
    return LinesIn(waiting);
}

bool CRowFile::Write(std::string& error) {
    COutputFile file;
    const bool opened = file.Open(path, error);
    isHeld = !opened && file.IsHeld();
    if (!opened) return false;
    const auto size = file.Size();
    if (!size) return file.Append(waiting, error);
    const auto end = EndOfLines(file, *size);
    const auto begin = file.ReadAt(0, static_cast<std::size_t>(std::min<std::uint64_t>(*size, front.size())));
    if (!end || !begin) {
        error = "what it holds can't be read";
        return false;
    }
    // A file that ends within the first row or the header is ours too.
    if (!front.starts_with(*begin)) {
        error = "the file has other columns, or none";
        return false;
    }
    if (*end < *size && !file.Cut(*end)) {
        error = "its torn last line can't be cut off";
        return false;
    }
    if (file.Append(*end == 0 ? header + waiting : waiting, error)) return true;
    // Even if this fails, the next time begins by it.
    file.Cut(*end);
    return false;
}

void CRowFile::DropOldest() {
    if (waiting.size() <= mostWaiting) return;
    const std::size_t end = waiting.find('\n', waiting.size() - mostWaiting) + 1;
    lost += LinesIn(std::string_view(waiting).substr(0, end));
    waiting.erase(0, end);
}
