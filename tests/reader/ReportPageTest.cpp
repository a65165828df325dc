// The page of a report as a browser lays it out: on a screen, on a telephone, on paper.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

#include "reader/HtmlText.h"
#include "reader/ReportPage.h"
#include "reader/ReportReader.h"

namespace {

namespace fs = std::filesystem;

std::string TextOfFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class ReportPageTest : public testing::TestWithParam<ReportLanguage> {
protected:
    ReportPageTest() { fs::create_directories(folder); }
    ~ReportPageTest() override { fs::remove_all(folder); }

    // What the browser says to the page with these options.
    std::string Browse(const std::string& page, const std::string& options) const {
        const fs::path source = folder / "page.html", said = folder / "said";
        std::ofstream(source, std::ios::binary) << page;
        const std::string command =
            "chromium --headless=new --no-sandbox --disable-gpu --user-data-dir=" + (folder / "profile").string() +
            ' ' + options + " file://" + fs::absolute(source).string() + " >" + said.string() + " 2>/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        return TextOfFile(said);
    }

    fs::path folder = fs::absolute("report-page-" + std::to_string(static_cast<int>(GetParam())));
};

// Each day of a month, each hour, twelve counters, and everything that can be missing. Counts rise by hour and day, so
// that no two bars are alike.
std::string FullPage(ReportLanguage language) {
    CReportReader reader;
    std::ostringstream csv;
    csv << "time,address,in,out,answer\nno reading\n";
    for (int address = 0; address < 12; ++address) {
        int in = 64000, out = address;
        for (int step = 0; step < 31 * 24 * 2; ++step) {
            const int day = step / 48, hour = step / 2 % 24;
            in = (in + hour + day + 1) % 65536;
            out = (out + hour / 2) % 65536;
            if (step == 700) in = out = 0;
            if (step == 900) in += 50000;
            csv << "2026-12-" << (day < 9 ? "0" : "") << day + 1 << (hour < 10 ? "T0" : "T") << hour
                << (step % 2 == 0 ? ":00" : ":30") << ":01+01:00," << address << ',';
            if (hour % 5 == 1 && day % 2 == 0)
                csv << ",,silent\n";
            else
                csv << in << ',' << out << ",ok\n";
        }
    }
    reader.Feed(csv.str());
    reader.Finish();
    return ReportPage(reader.Figures(), "<script>alert('\"&\x01</script>.csv", reader.Unreadable(), language);
}

// The page in a frame of a width, and a script that writes what is to be known of it in place of everything: whether it
// overflows, and of each bar how high it is by the scale beside it and what the table says.
std::string Measured(std::string page, int width) {
    std::ranges::replace(page, '\n', ' ');
    return "<!DOCTYPE html><meta charset=utf-8><body style='margin:0'><iframe style='border:0;height:4000px;width:" +
           std::to_string(width) + "px' srcdoc=\"" + HtmlText(page) + R"text("></iframe><script>onload = () => {
  const inner = document.querySelector("iframe").contentDocument, root = inner.documentElement, lines = [];
  const number = each => Number(each.textContent.replaceAll(",", ""));
  const middle = each => { const box = each.getBoundingClientRect(); return (box.top + box.bottom) / 2; };
  for (const each of inner.body.querySelectorAll("*")) {
    const box = each.getBoundingClientRect();
    if (box.right > root.clientWidth + 0.5 || box.left < -0.5) lines.push("beyond " + each.outerHTML);
  }
  lines.push("width " + root.scrollWidth);
  for (const part of inner.querySelectorAll(".pair:has(svg)")) {
    const marks = [...part.querySelectorAll(".scale span")], zero = middle(marks[0]), top = middle(marks.at(-1));
    const cells = [...part.querySelectorAll("tbody td")], bars = [...part.querySelectorAll("rect")];
    lines.push("bars " + bars.length + " cells " + cells.length);
    bars.forEach((bar, at) => {
      const box = bar.getBoundingClientRect(), most = number(marks.at(-1));
      lines.push((Math.abs(box.bottom - zero) < 1.5 ? "stands " : "floats ") + box.height / (zero - top) * most + " " +
                 number(cells[at]) + " " + most);
    });
  }
  document.body.innerText = lines.join("\n");
}</script>)text";
}

TEST_P(ReportPageTest, BarsStandWhereTheNumbersSayAtEveryWidth) {
    const std::string page = FullPage(GetParam());
    for (const int width : {1100, 360}) {
        const std::string said = Browse(Measured(page, width), "--window-size=1200,3000 --dump-dom");
        EXPECT_EQ(said.find("beyond"), std::string::npos) << said;
        EXPECT_NE(said.find("width " + std::to_string(width)), std::string::npos) << said;
        EXPECT_NE(said.find("bars 48 cells 48"), std::string::npos) << said;
        EXPECT_NE(said.find("bars 62 cells 62"), std::string::npos) << said;
        const std::regex bar("(stands|floats) ([0-9.e+-]+) ([0-9]+) ([0-9]+)");
        std::ptrdiff_t high = 0;
        for (std::sregex_iterator each(said.begin(), said.end(), bar), end; each != end; ++each) {
            const double shown = std::stod((*each)[2]), number = std::stod((*each)[3]), most = std::stod((*each)[4]);
            EXPECT_EQ((*each)[1], "stands");
            EXPECT_LT(std::abs(shown - number), most / 100) << (*each)[0] << ' ' << width;
            if (number > most / 2) ++high;
        }
        EXPECT_GT(high, 20) << "nothing to see";
    }
}

TEST_P(ReportPageTest, AFullMonthIsOneSheet) {
    const fs::path pdf = folder / "page.pdf";
    Browse(FullPage(GetParam()), "--no-pdf-header-footer --print-to-pdf=" + pdf.string());
    const std::string printed = TextOfFile(pdf);
    const std::regex sheet("/Type */Page[^s]");
    EXPECT_EQ(std::distance(std::sregex_iterator(printed.begin(), printed.end(), sheet), {}), 1);
    EXPECT_NE(printed.find("/MediaBox [0 0 594"), std::string::npos) << "A4";
}

TEST_P(ReportPageTest, NeedsNothingElseAndRunsNothing) {
    const std::string page = FullPage(GetParam());
    for (const char* foreign : {"<script", "http", "url(", "@import", "src=", "href"}) {
        EXPECT_EQ(page.find(foreign), std::string::npos) << foreign;
    }
    EXPECT_NE(page.find("&lt;script&gt;alert(&#39;&quot;&amp;&#xFFFD;&lt;/script&gt;.csv"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Languages, ReportPageTest, testing::Values(ReportLanguage::English, ReportLanguage::Chinese));

} // namespace
