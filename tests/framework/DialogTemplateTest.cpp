// Templates and initialisation lists: random ones are read back, cut ones are told, and of hostile ones nothing beyond
// their end is read. Each input lies in a block of just its own size, so that a sanitizer sees a read beyond it.
#include "framework/DialogTemplate.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include <rapidcheck/gtest.h>

namespace {

using Bytes = std::vector<std::byte>;

// Writes a template as resource compilers do.
class CWriter {
public:
    Bytes bytes;

    void Number(std::size_t size, std::uint64_t value) {
        for (; size-- > 0; value >>= 8) bytes.push_back(static_cast<std::byte>(value & 0xFF));
    }
    void Place(const DialogPlace& place) {
        for (const int value : {place.x, place.y, place.width, place.height}) Word(static_cast<std::uint16_t>(value));
    }
    void Text(const std::u16string& text) {
        for (const char16_t character : text) Word(character);
        Word(0);
    }
    // What readers pass over.
    void Noise(std::size_t size) {
        for (; size > 0; --size) Number(1, bytes.size() * 37 + 11);
    }
    // A class, a menu, or a caption: nothing, a number, or a text.
    void Name() {
        const int kind = *rc::gen::inRange(0, 3);
        if (kind == 1) Word(0xFFFF);
        if (kind == 1) Word(*rc::gen::arbitrary<std::uint16_t>());
        if (kind != 1) Text(kind == 0 ? u"" : u"Ab" + std::u16string(*rc::gen::inRange<std::size_t>(0, 3), u'\uFFFE'));
    }
    void Word(std::uint16_t value) { Number(2, value); }
};

int AnyNumber() {
    return *rc::gen::arbitrary<std::int16_t>();
}
DialogPlace AnyPlace() {
    return {AnyNumber(), AnyNumber(), AnyNumber(), AnyNumber()};
}

// A random layout, its bytes, and where its style ends.
struct Template {
    DialogLayout layout;
    Bytes bytes;
    std::size_t styleEnd = 0;
};

Template AnyTemplate() {
    Template made;
    DialogLayout& layout = made.layout;
    const bool extended = *rc::gen::arbitrary<bool>(), hasFont = *rc::gen::arbitrary<bool>();
    // No plain form has the style that marks the extended one.
    layout.style = (*rc::gen::arbitrary<std::uint32_t>() & 0xFFFEFFBF) | (hasFont ? 0x40U : 0U);
    layout.place = AnyPlace();
    const std::size_t count = *rc::gen::inRange<std::size_t>(0, 6);
    CWriter writer;
    if (extended) writer.Number(4, 0xFFFF0001);
    if (extended) writer.Noise(8); // help id and extended style
    writer.Number(4, layout.style);
    made.styleEnd = writer.bytes.size();
    if (!extended) writer.Noise(4);
    writer.Word(static_cast<std::uint16_t>(count));
    writer.Place(layout.place);
    for (int name = 0; name < 3; ++name) writer.Name();
    if (hasFont) {
        DialogFont& font = layout.font;
        font.pointSize = *rc::gen::arbitrary<std::uint16_t>();
        font.face = *rc::gen::element<std::u16string>(u"", u"System", u"\u5B8B\u4F53");
        writer.Word(static_cast<std::uint16_t>(font.pointSize));
        if (extended) {
            font.weight = *rc::gen::arbitrary<std::uint16_t>();
            font.characterSet = *rc::gen::arbitrary<std::uint8_t>();
            const int italic = *rc::gen::element(0, 1, 0x80);
            font.italic = italic != 0;
            writer.Word(static_cast<std::uint16_t>(font.weight));
            writer.Word(static_cast<std::uint16_t>(italic | font.characterSet << 8));
        }
        writer.Text(font.face);
    }
    for (std::size_t item = 0; item < count; ++item) {
        if (writer.bytes.size() % 4 != 0) writer.Word(0xDEAD);
        layout.items.push_back(AnyPlace());
        writer.Noise(extended ? 12 : 8);
        writer.Place(layout.items.back());
        writer.Noise(extended ? 4 : 2);
        writer.Name();
        writer.Name();
        const std::size_t data = 2 * *rc::gen::inRange<std::size_t>(0, 4);
        writer.Word(
            static_cast<std::uint16_t>(extended || data == 0 ? data : data + 2)); // plain: and the length itself
        writer.Noise(data);
    }
    made.bytes = std::move(writer.bytes);
    return made;
}

Bytes Prefix(const Bytes& bytes, std::size_t size) {
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)};
}

void ExpectRead(const std::optional<DialogLayout>& read, const DialogLayout& layout) {
    RC_ASSERT(read.has_value());
    RC_ASSERT(read->style == layout.style);
    RC_ASSERT(read->place == layout.place);
    RC_ASSERT(read->font == layout.font);
    RC_ASSERT(read->items == layout.items);
}

RC_GTEST_PROP(DialogTemplate, IsReadBackWholeAndRefusedAtEveryCut, ()) {
    auto [layout, bytes, styleEnd] = AnyTemplate();
    ExpectRead(ReadDialogLayout(bytes), layout);
    for (std::size_t size = 0; size < bytes.size(); ++size) RC_ASSERT(!ReadDialogLayout(Prefix(bytes, size)));
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        Bytes hidden = Prefix(bytes, size);
        RC_ASSERT(HideDialogTemplate(hidden) == (size >= styleEnd));
        Bytes expected = Prefix(bytes, size);
        if (size >= styleEnd) expected[styleEnd - 1] &= std::byte{0xEF};
        RC_ASSERT(hidden == expected);
    }
}

// What was read doesn't depend on what lies behind it.
RC_GTEST_PROP(DialogTemplate, HostileBytesAreReadWithinTheirEnd, ()) {
    Bytes bytes = AnyTemplate().bytes;
    for (int change = *rc::gen::inRange(0, 5); change > 0; --change)
        bytes[*rc::gen::inRange<std::size_t>(0, bytes.size())] =
            *rc::gen::element(std::byte{0}, std::byte{1}, std::byte{0xFF});
    const auto read = ReadDialogLayout(Prefix(bytes, *rc::gen::inRange<std::size_t>(0, bytes.size() + 1)));
    bytes.insert(bytes.end(), 3, std::byte{0xFF});
    if (read) ExpectRead(ReadDialogLayout(bytes), *read);
}

RC_GTEST_PROP(DialogInit, EveryCutGivesTheEntriesThatAreWhole, ()) {
    struct Entry {
        std::uint16_t id, message;
        Bytes data;
        std::size_t end;
    };
    std::vector<Entry> entries(*rc::gen::inRange<std::size_t>(0, 5));
    CWriter writer;
    for (Entry& entry : entries) {
        entry.id = *rc::gen::nonZero<std::uint16_t>();
        entry.message = *rc::gen::arbitrary<std::uint16_t>();
        const std::size_t length = *rc::gen::inRange<std::size_t>(0, 300);
        writer.Word(entry.id);
        writer.Word(entry.message);
        writer.Number(4, length);
        writer.Noise(length);
        entry.data = {writer.bytes.end() - static_cast<std::ptrdiff_t>(length), writer.bytes.end()};
        entry.end = writer.bytes.size();
    }
    const std::size_t end = writer.bytes.size();
    writer.Word(*rc::gen::element<std::uint16_t>(0, 7)); // the end mark, or an entry that claims more than there is
    writer.Word(0x403);
    writer.Number(4, writer.bytes[end] == std::byte{0} ? 1 : *rc::gen::element(2U, 0x80000000, 0xFFFFFFF8, 0xFFFFFFFF));
    writer.Noise(1);
    for (std::size_t size = 0; size <= writer.bytes.size(); ++size) {
        const Bytes list = Prefix(writer.bytes, size);
        const auto whole = ParseDialogInit(list);
        const auto last = std::ranges::find_if(entries, [&](const Entry& entry) { return entry.end > size; });
        RC_ASSERT(
            std::equal(whole.begin(), whole.end(), entries.begin(), last, [](const auto& read, const Entry& entry) {
                return read.controlId == entry.id && read.message == entry.message &&
                       std::ranges::equal(read.data, entry.data);
            }));
    }
}

TEST(DialogUnits, AreThoseOfTheClassicFontsAlone) {
    EXPECT_EQ(BaseUnitsOf({10, 700, false, 134, u"System"}), (BaseUnits{8, 16}));
    EXPECT_EQ(BaseUnitsOf({8, 0, false, 1, u"MS Sans Serif"}), (BaseUnits{6, 13}));
    for (const DialogFont& other : {DialogFont{8, 0, false, 1, u"System"}, {9, 0, false, 134, u"SimSun"}, {}})
        EXPECT_EQ(BaseUnitsOf(other), std::nullopt);
}

RC_GTEST_PROP(DialogUnits, RoundToTheNearestPixel, ()) {
    const int units = AnyNumber(), base = *rc::gen::inRange(1, 40), perBase = *rc::gen::element(4, 8);
    RC_ASSERT(ToPixels(units, base, perBase) == std::lround(double{1} * units * base / perBase));
}

} // namespace
