#include "TrafficLog.h"

#include <fstream>
#include <iterator>
#include <regex>

#include <gtest/gtest.h>

#include "Program.h"

std::string LogPath() {
    return CProgram::Folder() + "Quorvane.log";
}

std::string LogText() {
    std::ifstream file(LogPath(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<LogLine> LogLines() {
    static const std::regex form(R"((\d{4}/\d\d/\d\d \d\d:\d\d:\d\d): (TX|RX)-->((?:[0-9a-f]{2} )*))");
    const std::string text = LogText();
    std::vector<LogLine> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        const std::string line = text.substr(at, end - at);
        std::smatch parts;
        if (end == std::string::npos || !std::regex_match(line, parts, form)) {
            ADD_FAILURE() << "line " << lines.size() + 1 << " of the log: \"" << line << '"';
            break;
        }
        lines.push_back({parts[1], parts[2] == "TX", parts[3]});
        at = end + 2;
    }
    return lines;
}
