// Text inside HTML.
#pragma once

#include <string>
#include <string_view>

// The text with the characters that mean something in HTML, and control characters, as references; good between tags
// and in quoted attributes. Bytes that are no UTF-8 stay; a browser shows its replacement sign for them.
inline std::string HtmlText(std::string_view text) {
    std::string html;
    for (const char each : text) {
        if (each == '&')
            html += "&amp;";
        else if (each == '<')
            html += "&lt;";
        else if (each == '>')
            html += "&gt;";
        else if (each == '"')
            html += "&quot;";
        else if (each == '\'')
            html += "&#39;";
        else if (static_cast<unsigned char>(each) < ' ' || each == '\x7F')
            html += "&#xFFFD;";
        else
            html += each;
    }
    return html;
}
