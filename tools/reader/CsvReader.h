// Rows of a CSV text as in RFC 4180, from pieces of any size.
//
// Takes lines that end in LF too, and quotes where none belong. Memory is bounded whatever comes: of a field the first
// 255 bytes are kept, of a row the first 64 fields.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CCsvReader {
public:
    // Called for each row that isn't empty; the fields live as long as the call.
    using RowSink = std::function<void(std::span<const std::string> fields)>;

    explicit CCsvReader(RowSink receiver) : takeRow(std::move(receiver)) {}

    void Feed(std::string_view piece);
    // The end of the text: a last row without a line end is a row too, maybe torn.
    void Finish();

private:
    enum class State : std::uint8_t { Plain, Quoted, AfterQuote };

    void TakeCharacter(char each);
    void TakeQuoted(char each);
    void Append(char each);
    void EndField();
    void EndRow();

    RowSink takeRow;
    std::vector<std::string> fields; // of which `count` are of this row; the others keep their room
    std::size_t count = 0;
    std::string field;
    State state = State::Plain;
};
