// Lays out menu and toolbar resources byte by byte.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

class CTemplateBytes {
public:
    static constexpr unsigned last = 0x80, popup = 0x10;

    // A menu template's header: version 0 with nothing before the first item.
    static CTemplateBytes Menu() { return CTemplateBytes().Words({0, 0}); }

    CTemplateBytes& Words(std::initializer_list<unsigned> words) {
        for (const unsigned word : words) {
            bytes.push_back(static_cast<std::byte>(word));
            bytes.push_back(static_cast<std::byte>(word >> 8));
        }
        return *this;
    }
    CTemplateBytes& Text(std::u16string_view text) {
        for (const char16_t character : text) Words({character});
        return Words({0});
    }
    CTemplateBytes& Item(unsigned flags, unsigned id, std::u16string_view text) {
        return Words({flags, id}).Text(text);
    }
    CTemplateBytes& Popup(unsigned flags, std::u16string_view text) { return Words({flags | popup}).Text(text); }

    std::vector<std::byte> bytes;
};
