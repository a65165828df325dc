#include "reader/CsvReader.h"

namespace {

constexpr std::size_t mostFields = 64, longestField = 255;

} // namespace

void CCsvReader::Feed(std::string_view piece) {
    for (const char each : piece) {
        if (state == State::Quoted)
            TakeQuoted(each);
        else
            TakeCharacter(each);
    }
}

void CCsvReader::Finish() {
    EndRow();
    state = State::Plain;
}

void CCsvReader::TakeQuoted(char each) {
    if (each == '"')
        state = State::AfterQuote;
    else
        Append(each);
}

void CCsvReader::TakeCharacter(char each) {
    if (each == '"' && state == State::AfterQuote) {
        Append(each); // two of them mean one
        state = State::Quoted;
    } else if (each == '"' && field.empty()) {
        state = State::Quoted;
    } else if (each == ',') {
        EndField();
    } else if (each == '\n') {
        EndRow();
    } else if (each != '\r') {
        Append(each);
        state = State::Plain; // what follows a closing quote stands for itself
    }
}

void CCsvReader::Append(char each) {
    if (field.size() < longestField) field += each;
}

void CCsvReader::EndField() {
    if (count < mostFields) {
        if (count == fields.size()) fields.emplace_back();
        fields[count++].swap(field);
    }
    field.clear();
    state = State::Plain;
}

void CCsvReader::EndRow() {
    if (count == 0 && field.empty()) {
        state = State::Plain;
        return;
    }
    EndField();
    takeRow(std::span(fields).first(count));
    count = 0;
}
