#include "reader/BarChart.h"

#include <algorithm>

namespace {

constexpr std::uint64_t pictureHeight = 1000;

std::uint64_t HeightOf(std::uint64_t value, const ChartScale& scale) {
    return (value * pictureHeight + scale.top / 2) / scale.top;
}

void AppendBar(std::string& html, std::string_view kind, std::size_t left, std::uint64_t value, const ChartScale& scale,
               std::string_view title) {
    const std::uint64_t height = HeightOf(value, scale);
    html += FillIn(R"(<rect class="{0}" x="{1}" )", {kind, std::to_string(left)});
    html +=
        FillIn(R"(y="{0}" width="37" height="{1}">)", {std::to_string(pictureHeight - height), std::to_string(height)});
    html += FillIn("<title>{0}: {1}</title></rect>", {title, GroupedNumber(value)});
}

std::string PictureHtml(std::span<const BarPair> pairs, const ChartScale& scale, std::string_view label,
                        const ReportWords& words) {
    const std::string width = std::to_string(pairs.size() * 100);
    std::string html = FillIn(R"(<svg viewBox="0 0 {0} 1000" preserveAspectRatio="none" role="img" aria-label="{1}">)",
                              {width, label});
    html += R"(<path class="grid" d=")";
    for (std::uint64_t line = scale.step; line <= scale.top; line += scale.step) {
        html += FillIn("M0 {0}H{1}", {std::to_string(pictureHeight - HeightOf(line, scale)), width});
    }
    html += "\"/>";
    std::size_t left = 0;
    for (const BarPair& pair : pairs) {
        AppendBar(html, "in", left + 11, pair.people.in, scale, FillIn("{0} {1}", {pair.name, words.in}));
        AppendBar(html, "out", left + 52, pair.people.out, scale, FillIn("{0} {1}", {pair.name, words.out}));
        left += 100;
    }
    return html + "</svg>";
}

void AppendTableRow(std::string& html, std::string_view name, const PeopleSum& people) {
    html += FillIn(R"(<tr><th scope="row">{0}</th>)", {name});
    html += FillIn("<td>{0}</td><td>{1}</td></tr>\n", {GroupedNumber(people.in), GroupedNumber(people.out)});
}

} // namespace

ChartScale ScaleOf(std::uint64_t greatest) {
    const std::uint64_t least = std::max<std::uint64_t>(1, (greatest + 4) / 5);
    std::uint64_t power = 1;
    while (power * 10 <= least) power *= 10;
    std::uint64_t step = power;
    for (const std::uint64_t factor : {2U, 5U, 10U}) {
        if (step < least) step = power * factor;
    }
    return {std::max(step, (greatest + step - 1) / step * step), step};
}

std::string ChartHtml(std::span<const BarPair> pairs, std::string_view heading, const ReportWords& words) {
    std::uint64_t greatest = 0;
    for (const BarPair& pair : pairs) greatest = std::max({greatest, pair.people.in, pair.people.out});
    const ChartScale scale = ScaleOf(greatest);
    const std::size_t digits = GroupedNumber(scale.top).size();
    // A few bars stay slim.
    std::string html = FillIn(R"(<figure><div class="plot" style="--digits:{0};max-width:{1}rem">)",
                              {std::to_string(digits), std::to_string(pairs.size() * 6 + 4)});
    html += R"(<div class="scale" aria-hidden="true">)";
    for (std::uint64_t line = 0; line <= scale.top; line += scale.step) {
        html += FillIn(R"(<span style="bottom:{0}.{1}%">)",
                       {std::to_string(line * 100 / scale.top), std::to_string(line * 1000 / scale.top % 10)});
        html += GroupedNumber(line) + "</span>";
    }
    html += "</div><div class=\"bars\">" + PictureHtml(pairs, scale, FillIn(words.chart, {heading}), words);
    html += FillIn(R"(</div><div class="ticks{0}" aria-hidden="true">)", {pairs.size() > 12 ? " many" : ""});
    for (const BarPair& pair : pairs) html += "<span>" + pair.tick + "</span>";
    return html + "</div></div></figure>\n";
}

std::string TableHtml(std::span<const BarPair> pairs, std::string_view nameHead, const ReportWords& words) {
    std::string html = FillIn(R"(<table><thead><tr><th scope="col">{0}</th>)", {nameHead});
    html += FillIn(R"(<th scope="col">{0}</th><th scope="col">{1}</th></tr></thead><tbody>)", {words.in, words.out});
    html += '\n';
    PeopleSum total;
    for (const BarPair& pair : pairs) {
        AppendTableRow(html, pair.name, pair.people);
        total.in += pair.people.in;
        total.out += pair.people.out;
    }
    html += "</tbody><tfoot>";
    AppendTableRow(html, words.total, total);
    return html + "</tfoot></table>\n";
}
