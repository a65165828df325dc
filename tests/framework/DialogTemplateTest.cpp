// Templates and initialisation lists: random ones are read back, cut ones are told, and of hostile ones nothing beyond
// their end is read. Each input lies in a block of just its own size, so that a sanitizer sees a read beyond it.
#include "framework/DialogTemplate.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

namespace {

using Bytes = std::vector<std::byte>;

int AnyNumber() {
    return *rc::gen::arbitrary<std::int16_t>();
}

// Writes resources as their compiler does.
struct CWriter {
    Bytes bytes;

    void Number(std::size_t size, std::uint64_t value) {
        for (; size-- > 0; value >>= 8) bytes.push_back(static_cast<std::byte>(value & 0xFF));
    }
    void Word(int value) { Number(2, static_cast<std::uint64_t>(value)); }
    void Noise(std::size_t size) { // what readers pass over
        for (; size > 0; --size) Number(1, bytes.size() * 37 + 11);
    }
    void Text(const std::u16string& text) {
        for (const char16_t character : text) Word(character);
        Word(0);
    }
    // A class, a menu, or a caption: a number, which means `meaning`, or a text that may be empty.
    std::u16string Name(const std::u16string& meaning = {}) {
        const std::size_t kind = *rc::gen::inRange<std::size_t>(0, 4);
        const std::u16string text = kind == 0 ? meaning : std::u16string(kind - 1, u'\uFFFE');
        kind == 0 ? Number(4, 0x0082FFFF) : Text(text);
        return text;
    }
    DialogPlace Place() {
        const DialogPlace place{AnyNumber(), AnyNumber(), AnyNumber(), AnyNumber()};
        for (const int value : {place.x, place.y, place.width, place.height}) Word(value);
        return place;
    }
};

// A random layout, its bytes, and where its style ends.
struct Template {
    DialogLayout layout;
    CWriter writer;
    std::size_t styleEnd;
};

Template AnyTemplate() {
    Template made{{*rc::gen::arbitrary<std::uint32_t>() & 0xFFFEFFFF, {}, {0, 0, false, 1, u""}, {}}, {}, 0};
    auto& [layout, writer, styleEnd] = made;
    const bool extended = *rc::gen::arbitrary<bool>();
    const int count = *rc::gen::inRange(0, 6);
    if (extended) writer.Number(4, 0xFFFF0001); // which no style of a plain one is
    if (extended) writer.Noise(8);
    writer.Number(4, layout.style);
    styleEnd = writer.bytes.size();
    if (!extended) writer.Noise(4);
    writer.Word(count);
    layout.place = writer.Place();
    for (int name = 0; name < 3; ++name) writer.Name();
    if ((layout.style & 0x40) != 0) {
        const int italic = *rc::gen::element(0, 1, 0x80);
        DialogFont font{AnyNumber() & 0xFFFF, AnyNumber() & 0xFFFF, italic != 0, 0x86, u"\u5B8B\u4F53"};
        writer.Word(font.pointSize);
        if (extended) writer.Word(font.weight);
        if (extended) writer.Word(italic | 0x8600);
        writer.Text(font.face);
        layout.font = extended ? font : DialogFont{font.pointSize, 0, false, 1, font.face};
    }
    for (int number = 0; number < count; ++number) {
        if (writer.bytes.size() % 4 != 0) writer.Noise(2);
        DialogItem& item = layout.items.emplace_back();
        item.begin = writer.bytes.size();
        item.style = *rc::gen::arbitrary<std::uint32_t>();
        item.extendedStyle = *rc::gen::arbitrary<std::uint32_t>();
        item.id = AnyNumber() & 0xFFFF;
        if (extended) writer.Noise(4);
        if (extended) writer.Number(4, item.extendedStyle);
        writer.Number(4, item.style);
        item.styleEnd = writer.bytes.size();
        if (!extended) writer.Number(4, item.extendedStyle);
        item.place = writer.Place();
        writer.Word(item.id);
        if (extended) writer.Noise(2);
        item.windowClass = writer.Name(u"Static");
        item.caption = writer.Name();
        const int data = 2 * *rc::gen::inRange(0, 4);
        writer.Word(extended || data == 0 ? data : data + 2); // the plain form counts the length itself as well
        writer.Noise(static_cast<std::size_t>(data));
        item.end = writer.bytes.size();
    }
    return made;
}

Bytes Prefix(const Bytes& bytes, std::size_t size) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

// Wherever in the template it stands.
bool IsSameControl(const DialogItem& one, const DialogItem& other) {
    const auto parts = [](const DialogItem& item) {
        return std::tie(item.id, item.style, item.extendedStyle, item.windowClass, item.caption);
    };
    return one.place == other.place && parts(one) == parts(other);
}

template <class Equal = std::equal_to<>>
bool Reads(const Bytes& bytes, const DialogLayout& layout, Equal equal = {}) {
    const auto read = ReadDialogLayout(bytes);
    return read && read->style == layout.style && read->place == layout.place && read->font == layout.font &&
           std::ranges::equal(read->items, layout.items, equal);
}

RC_GTEST_PROP(DialogTemplate, IsReadBackWholeAndRefusedAtEveryCut, ()) {
    const auto [layout, writer, styleEnd] = AnyTemplate();
    Bytes bytes = writer.bytes;
    RC_ASSERT(Reads(bytes, layout));
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        Bytes hidden = Prefix(bytes, size), expected = hidden;
        RC_ASSERT(ReadDialogLayout(hidden).has_value() == (size == bytes.size()));
        RC_ASSERT(HideDialogTemplate(hidden) == (size >= styleEnd));
        if (size >= styleEnd) expected[styleEnd - 1] &= std::byte{0xEF};
        RC_ASSERT(hidden == expected);
    }
    Bytes hiddenItems = bytes, expectedItems = bytes;
    HideDialogItems(hiddenItems);
    for (const DialogItem& item : layout.items) expectedItems[item.styleEnd - 1] &= std::byte{0xEF};
    RC_ASSERT(hiddenItems == expectedItems);
    // Without some of its controls it reads as before but for these.
    const auto leaves = [](const DialogItem& item) { return item.id % 2 != 0; };
    Bytes rest = bytes;
    RemoveDialogItems(rest, leaves);
    DialogLayout expectedRest = layout;
    std::erase_if(expectedRest.items, leaves);
    RC_ASSERT(Reads(rest, expectedRest, &IsSameControl));
    // Of hostile bytes too, what is read doesn't depend on what lies behind them.
    for (int change = 0; change < 3; ++change)
        bytes[*rc::gen::inRange<std::size_t>(0, bytes.size())] = static_cast<std::byte>(*rc::gen::element(0, 1, 0xFF));
    const auto read = ReadDialogLayout(bytes);
    bytes.insert(bytes.end(), 3, std::byte{0xFF});
    RC_ASSERT(!read || Reads(bytes, *read));
}

RC_GTEST_PROP(DialogUnits, AreRoundedAwayFromZero, (std::int16_t units)) {
    const int base = *rc::gen::inRange(1, 40), perBase = *rc::gen::element(4, 8);
    RC_ASSERT(ToPixels(units, base, perBase) == std::lround(1.0 * units * base / perBase));
    const bool isSystem = *rc::gen::arbitrary<bool>();
    const int size = *rc::gen::element(8, 10);
    std::optional<BaseUnits> known;
    if (isSystem && size == 10) known = BaseUnits{8, 16};
    if (!isSystem && size == 8) known = BaseUnits{6, 13};
    RC_ASSERT(BaseUnitsOf({size, 0, false, 1, isSystem ? u"System" : u"MS Sans Serif"}) == known);
    RC_ASSERT(!BaseUnitsOf({size, 0, false, 1, u"MS Shell Dlg"}));
}

// Behind the entries comes the end mark, or an entry that claims more than there is.
RC_GTEST_PROP(DialogInit, EveryCutGivesTheEntriesThatAreWhole, ()) {
    struct Entry {
        int id, message;
        std::size_t begin, end; // of its data
    };
    std::vector<Entry> entries;
    CWriter writer;
    for (int count = *rc::gen::inRange(0, 5); count > 0; --count) {
        const std::size_t length = *rc::gen::element<std::size_t>(0, 1, 300), begin = writer.bytes.size() + 8;
        entries.push_back({*rc::gen::inRange(1, 0x10000), *rc::gen::inRange(0, 0x10000), begin, begin + length});
        writer.Word(entries.back().id);
        writer.Word(entries.back().message);
        writer.Number(4, length);
        writer.Noise(length);
    }
    const bool ends = *rc::gen::arbitrary<bool>();
    writer.Number(4, ends ? 0x04030000 : 0x04030007);
    writer.Number(4, ends ? 1 : *rc::gen::element(2U, 0x80000000, 0xFFFFFFF8, 0xFFFFFFFF));
    writer.Noise(1);
    for (std::size_t size = 0; size <= writer.bytes.size(); ++size) {
        const Bytes list = Prefix(writer.bytes, size);
        const auto whole = ParseDialogInit(list);
        const auto last = std::ranges::find_if(entries, [&](const Entry& entry) { return entry.end > size; });
        RC_ASSERT(
            std::equal(whole.begin(), whole.end(), entries.begin(), last, [&](const auto& read, const Entry& entry) {
                return read.controlId == entry.id && read.message == entry.message &&
                       read.data.data() == list.data() + entry.begin && read.data.size() == entry.end - entry.begin;
            }));
    }
}

} // namespace
