// The fault grammar and the faults in force.
#include "line/LineFaults.h"

#include <algorithm>
#include <array>

#include "line/LineFrames.h"
#include "line/LineWords.h"

namespace {

struct KindRow {
    LineFaultKind kind;
    std::string_view name;
    bool takesValue;
    int usual; // the value if none is given
    int lowest;
    int highest;
    std::string_view description;
};

constexpr std::array<KindRow, 14> kinds{{
    {LineFaultKind::Silent, "silent", false, 0, 0, 0, "neither obeys nor answers"},
    {LineFaultKind::Refuse, "refuse", true, 1, 1, 255, "doesn't obey, acknowledges with this status"},
    {LineFaultKind::Noise, "noise", true, 8, 1, 4096, "random bytes before, between and after records"},
    {LineFaultKind::Torn, "torn", true, 0, 0, 4096, "only so many bytes of a record; 0: half of it"},
    {LineFaultKind::Split, "split", true, 150, 1, 60'000, "a silence of so many ms in the middle of a record"},
    {LineFaultKind::Checksum, "checksum", false, 0, 0, 0, "a wrong checksum"},
    {LineFaultKind::Late, "late", true, 150, 1, 60'000, "the reply begins so many ms late"},
    {LineFaultKind::Stranger, "stranger", true, 9, 0, 255, "the record carries this address"},
    {LineFaultKind::Twice, "twice", false, 0, 0, 0, "two records in one reply"},
    {LineFaultKind::Overlong, "overlong", true, 20, 1, 4096, "so many bytes too many in a record"},
    {LineFaultKind::GarbleDate, "garbledate", false, 0, 0, 0, "the clock is no decimal number"},
    {LineFaultKind::NoDate, "nodate", false, 0, 0, 0, "the clock is all zero"},
    {LineFaultKind::Latency, "latency", true, 16, 1, 60'000, "the reply comes in lumps, every so many ms"},
    {LineFaultKind::Echo, "echo", false, 0, 0, 0, "the request itself comes back first"},
}};

const KindRow* FindKind(std::string_view name) {
    const auto* row =
        std::find_if(kinds.begin(), kinds.end(), [name](const KindRow& each) { return each.name == name; });
    return row == kinds.end() ? nullptr : row;
}

} // namespace

std::optional<LineFaultKind> LineFaultKindOf(std::string_view name) {
    const KindRow* row = FindKind(name);
    if (row == nullptr) return std::nullopt;
    return row->kind;
}

std::optional<LineFault> ParseLineFault(std::string_view text, std::string& error) {
    const auto fail = [&error](std::string_view what, std::string_view word) {
        error = std::string(what) + " \"" + std::string(word) + "\"";
        return std::nullopt;
    };
    const auto words = SplitLineWords(text);
    if (words.empty()) return fail("no fault in", text);
    if (words.size() > 3) return fail("too many words in", text);

    const std::size_t equals = words[0].find('=');
    const KindRow* row = FindKind(words[0].substr(0, equals));
    if (row == nullptr) return fail("no such fault:", words[0]);
    LineFault fault{row->kind, std::nullopt, row->usual, 0};
    if (equals != std::string_view::npos) {
        if (!row->takesValue) return fail("this fault has no value:", words[0]);
        const auto value = ParseLineNumber(words[0].substr(equals + 1), row->lowest, row->highest, error);
        if (!value) return std::nullopt;
        fault.value = *value;
    }
    if (words.size() > 1 && words[1] != "*") {
        const auto address = ParseLineNumber(words[1], 0, highestLineAddress, error);
        if (!address) return std::nullopt;
        fault.address = static_cast<std::uint8_t>(*address);
    }
    if (words.size() > 2) {
        const auto count = ParseLineNumber(words[2], 1, 1'000'000, error);
        if (!count) return std::nullopt;
        fault.remaining = *count;
    }
    return fault;
}

std::string DescribeLineFaults() {
    std::string text;
    for (const KindRow& row : kinds) {
        std::string name(row.name);
        if (row.takesValue) name.append(1, '=').append(std::to_string(row.usual));
        name.resize(std::max<std::size_t>(name.size(), 14), ' ');
        text += "  " + name + std::string(row.description) + "\n";
    }
    return text;
}

void CLineFaults::Add(const LineFault& fault) {
    std::erase_if(faults,
                  [&fault](const LineFault& each) { return each.kind == fault.kind && each.address == fault.address; });
    // Those for one counter stand in front, so that a search from the front meets them first.
    faults.insert(fault.address ? faults.begin() : faults.end(), fault);
}

void CLineFaults::Clear(LineFaultKind kind) {
    std::erase_if(faults, [kind](const LineFault& each) { return each.kind == kind; });
}

std::optional<int> CLineFaults::Take(LineFaultKind kind, std::uint8_t address) {
    const auto found = std::find_if(faults.begin(), faults.end(), [kind, address](const LineFault& each) {
        return each.kind == kind && (!each.address || *each.address == address);
    });
    if (found == faults.end()) return std::nullopt;
    const int value = found->value;
    if (found->remaining > 0 && --found->remaining == 0) faults.erase(found);
    return value;
}
