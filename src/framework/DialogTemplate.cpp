#include "framework/DialogTemplate.h"

#include <array>
#include <string_view>

#include "framework/LittleEndian.h"

namespace {

constexpr std::uint32_t extendedMark = 0xFFFF0001; // version and signature, which no style of the plain form is
constexpr std::uint32_t visibleStyle = 0x10000000; // WS_VISIBLE
constexpr std::size_t extendedStyleOffset = 12; // DLGTEMPLATEEX: version, signature, help id, extended style come first

// Little-endian, as all resources are.
template <class Value>
Value ReadAt(std::span<const std::byte> bytes, std::size_t offset) {
    Value value = 0;
    for (std::size_t i = 0; i < sizeof(Value); ++i) {
        value = static_cast<Value>(value | (std::to_integer<std::uint32_t>(bytes[offset + i]) << (8 * i)));
    }
    return value;
}

// Reads a template from its beginning to its end. What is read beyond the end is zero, and spoils the reading.
class CTemplateReader {
public:
    explicit CTemplateReader(std::span<const std::byte> bytes) : reader(bytes), size(bytes.size()) {}

    bool IsWhole() const { return whole; }
    std::uint16_t Word() {
        const auto word = reader.ReadWord();
        whole = whole && word.has_value();
        return word.value_or(0);
    }
    int Number() { return static_cast<std::int16_t>(Word()); }
    std::uint32_t Long() {
        const std::uint32_t low = Word();
        return low | static_cast<std::uint32_t>(Word()) << 16;
    }
    DialogPlace Place() {
        DialogPlace place;
        for (int* number : {&place.x, &place.y, &place.width, &place.height}) *number = Number();
        return place;
    }
    std::u16string Text() {
        std::u16string text;
        while (const std::uint16_t character = Word()) text += static_cast<char16_t>(character);
        return text;
    }
    // A class, menu or caption: nothing, a number, or a text.
    void SkipName() {
        constexpr std::uint16_t numberFollows = 0xFFFF;
        const std::uint16_t first = Word();
        if (first == numberFollows) {
            Word();
        } else if (first != 0) {
            Text();
        }
    }
    void Skip(std::size_t count) { whole = reader.Skip(count) && whole; }
    // The next item begins at a multiple of four bytes.
    void Align() { Skip((size - reader.Rest().size()) % 4 == 0 ? 0 : 2); }

private:
    CLittleEndianReader reader;
    std::size_t size;
    bool whole = true;
};

constexpr std::uint32_t fontStyle = 0x40; // DS_SETFONT

DialogFont ReadFont(CTemplateReader& reader, bool extended) {
    DialogFont font;
    font.pointSize = reader.Word();
    if (extended) {
        font.weight = reader.Word();
        const std::uint16_t italicAndSet = reader.Word();
        font.italic = (italicAndSet & 0xFF) != 0;
        font.characterSet = static_cast<std::uint8_t>(italicAndSet >> 8);
    }
    font.face = reader.Text();
    return font;
}

DialogPlace ReadItem(CTemplateReader& reader, bool extended) {
    reader.Align();
    reader.Skip(extended ? 12 : 8); // styles, before them the help id
    const DialogPlace place = reader.Place();
    reader.Skip(extended ? 4 : 2); // id
    reader.SkipName();
    reader.SkipName();
    // Data for the control. The plain form counts the length itself as well.
    const std::uint16_t length = reader.Word();
    reader.Skip(extended || length < 2 ? length : length - 2U);
    return place;
}

} // namespace

std::optional<DialogLayout> ReadDialogLayout(std::span<const std::byte> dialogTemplate) {
    const bool extended = dialogTemplate.size() >= 4 && ReadAt<std::uint32_t>(dialogTemplate, 0) == extendedMark;
    CTemplateReader reader(dialogTemplate);
    DialogLayout layout;
    if (extended) reader.Skip(extendedStyleOffset);
    layout.style = reader.Long();
    if (!extended) reader.Skip(4);
    const std::uint16_t count = reader.Word();
    layout.place = reader.Place();
    for (int name = 0; name < 3; ++name) reader.SkipName(); // menu, class, caption
    if ((layout.style & fontStyle) != 0) layout.font = ReadFont(reader, extended);
    while (layout.items.size() < count && reader.IsWhole()) layout.items.push_back(ReadItem(reader, extended));
    if (!reader.IsWhole()) return std::nullopt;
    return layout;
}

std::optional<BaseUnits> BaseUnitsOf(const DialogFont& font) {
    struct Row {
        std::u16string_view face;
        int pointSize;
        BaseUnits units;
    };
    constexpr std::array<Row, 2> rows{{{u"System", 10, {8, 16}}, {u"MS Sans Serif", 8, {6, 13}}}};
    for (const Row& row : rows) {
        if (row.face == font.face && row.pointSize == font.pointSize) return row.units;
    }
    return std::nullopt;
}

int ToPixels(int units, int base, int unitsPerBase) {
    const int product = units * base, half = unitsPerBase / 2;
    return (product < 0 ? product - half : product + half) / unitsPerBase;
}

bool HideDialogTemplate(std::span<std::byte> dialogTemplate) {
    if (dialogTemplate.size() < 4) return false;
    const bool extended = ReadAt<std::uint32_t>(dialogTemplate, 0) == extendedMark;
    const std::size_t offset = extended ? extendedStyleOffset : 0;
    if (dialogTemplate.size() < offset + 4) return false;
    const std::size_t highByte = offset + 3;
    dialogTemplate[highByte] &= ~std::byte{visibleStyle >> 24};
    return true;
}

std::vector<DialogInitEntry> ParseDialogInit(std::span<const std::byte> list) {
    constexpr std::size_t headerSize = 8; // control id, message, 32-bit length of the data
    std::vector<DialogInitEntry> entries;
    while (list.size() >= headerSize) {
        const auto controlId = ReadAt<std::uint16_t>(list, 0);
        const auto message = ReadAt<std::uint16_t>(list, 2);
        const auto length = ReadAt<std::uint32_t>(list, 4);
        if (controlId == 0 || length > list.size() - headerSize) break;
        entries.push_back({controlId, message, list.subspan(headerSize, length)});
        list = list.subspan(headerSize + length);
    }
    return entries;
}
