// Pairs of bars as an inline picture, and the table of their numbers beside it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "reader/ReportFigures.h"
#include "reader/ReportWords.h"

// All texts are HTML.
struct BarPair {
    std::string tick; // short, under the bars
    std::string name; // in the table
    PeopleSum people;
};

// What is at the top of the scale and the distance of its lines, for the greatest value: 1, 2 or 5 times a power of
// ten, and no more than five lines above 0.
struct ChartScale {
    std::uint64_t top = 1, step = 1;

    bool operator==(const ChartScale&) const = default;
};
ChartScale ScaleOf(std::uint64_t greatest);

// A <figure>. Its picture is 1000 units high, the scale's top, whatever the size on the page; each pair has 100 in
// width.
std::string ChartHtml(std::span<const BarPair> pairs, std::string_view heading, const ReportWords& words);

// A <table> with a row for each pair, and the total below.
std::string TableHtml(std::span<const BarPair> pairs, std::string_view nameHead, const ReportWords& words);
