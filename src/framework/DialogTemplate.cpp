#include "framework/DialogTemplate.h"

#include <array>
#include <string_view>
#include <utility>
#include <variant>

#include "framework/LittleEndian.h"

namespace {

constexpr std::uint32_t extendedMark = 0xFFFF0001; // version and signature, which no style of the plain form is
constexpr std::size_t extendedStyleOffset = 12; // DLGTEMPLATEEX: version, signature, help id, extended style come first

// Reads a template from its beginning to its end. What is read beyond the end is zero, and spoils the reading.
class CTemplateReader {
public:
    explicit CTemplateReader(std::span<const std::byte> bytes) : reader(bytes), size(bytes.size()) {}

    bool IsWhole() const { return whole; }
    std::uint16_t Word() { return Checked(reader.ReadWord()); }
    int Number() { return static_cast<std::int16_t>(Word()); }
    std::uint32_t Long() { return Checked(reader.ReadDword()); }
    DialogPlace Place() {
        DialogPlace place;
        for (int* number : {&place.x, &place.y, &place.width, &place.height}) *number = Number();
        return place;
    }
    std::u16string Text() { return Checked(reader.ReadText()); }
    // A class, menu or caption: nothing, a number, or a text.
    std::variant<std::u16string, std::uint16_t> Name() {
        constexpr std::uint16_t numberFollows = 0xFFFF;
        const std::uint16_t first = Word();
        if (first == numberFollows) return Word();
        std::u16string text(first != 0 ? 1 : 0, static_cast<char16_t>(first));
        return first != 0 ? text + Text() : text;
    }
    void Skip(std::size_t count) { whole = reader.Skip(count) && whole; }
    // The next item begins at a multiple of four bytes.
    void Align() { Skip((4 - Position() % 4) % 4); }
    std::size_t Position() const { return size - reader.Rest().size(); }

private:
    template <class Value>
    Value Checked(std::optional<Value> value) {
        whole = whole && value.has_value();
        return std::move(value).value_or(Value());
    }

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

// Empty for a number that no class has.
std::u16string NameOfClass(const std::variant<std::u16string, std::uint16_t>& name) {
    constexpr std::array<const char16_t*, 6> classes{u"Button",  u"Edit",      u"Static",
                                                     u"ListBox", u"ScrollBar", u"ComboBox"};
    constexpr std::uint16_t firstNumber = 0x80;
    if (const auto* text = std::get_if<std::u16string>(&name)) return *text;
    const auto index = static_cast<std::size_t>(std::get<std::uint16_t>(name)) - firstNumber;
    return index < classes.size() ? classes.at(index) : u"";
}

DialogItem ReadItem(CTemplateReader& reader, bool extended) {
    DialogItem item;
    reader.Align();
    item.begin = reader.Position();
    if (extended) reader.Skip(4); // help id
    if (extended) item.extendedStyle = reader.Long();
    item.style = reader.Long();
    item.styleEnd = reader.Position();
    if (!extended) item.extendedStyle = reader.Long();
    item.place = reader.Place();
    item.id = reader.Word();
    if (extended) reader.Skip(2);
    item.windowClass = NameOfClass(reader.Name());
    const auto caption = reader.Name();
    if (const auto* text = std::get_if<std::u16string>(&caption)) item.caption = *text;
    // Data for the control. The plain form counts the length itself as well.
    const std::uint16_t length = reader.Word();
    reader.Skip(extended || length < 2 ? length : length - 2U);
    item.end = reader.Position();
    return item;
}

void HideStyle(std::span<std::byte> dialogTemplate, std::size_t styleEnd) {
    dialogTemplate[styleEnd - 1] &= ~std::byte{DialogItem::visibleStyle >> 24};
}

} // namespace

std::optional<DialogLayout> ReadDialogLayout(std::span<const std::byte> dialogTemplate) {
    const bool extended = dialogTemplate.size() >= 4 && DwordAt(dialogTemplate, 0) == extendedMark;
    CTemplateReader reader(dialogTemplate);
    DialogLayout layout;
    if (extended) reader.Skip(extendedStyleOffset);
    layout.style = reader.Long();
    if (!extended) reader.Skip(4);
    const std::uint16_t count = reader.Word();
    layout.place = reader.Place();
    for (int name = 0; name < 3; ++name) reader.Name(); // menu, class, caption
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
    const bool extended = DwordAt(dialogTemplate, 0) == extendedMark;
    const std::size_t offset = extended ? extendedStyleOffset : 0;
    if (dialogTemplate.size() < offset + 4) return false;
    HideStyle(dialogTemplate, offset + 4);
    return true;
}

void HideDialogItems(std::span<std::byte> dialogTemplate) {
    const auto layout = ReadDialogLayout(dialogTemplate);
    if (!layout) return;
    for (const DialogItem& item : layout->items) HideStyle(dialogTemplate, item.styleEnd);
}

void RemoveDialogItems(std::vector<std::byte>& dialogTemplate, const std::function<bool(const DialogItem&)>& leaves) {
    const auto layout = ReadDialogLayout(dialogTemplate);
    if (!layout || layout->items.empty()) return;
    const std::vector<DialogItem>& items = layout->items;
    const auto at = [&](std::size_t place) { return dialogTemplate.begin() + static_cast<std::ptrdiff_t>(place); };
    std::vector<std::byte> rest(at(0), at(items.front().begin));
    std::size_t count = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (leaves(items[i])) continue;
        // With what stands between it and the next one, which has to begin at a multiple of four bytes.
        rest.insert(rest.end(), at(items[i].begin), at(i + 1 < items.size() ? items[i + 1].begin : items[i].end));
        ++count;
    }
    const bool extended = DwordAt(std::span<const std::byte>(rest), 0) == extendedMark;
    const std::size_t countOffset = extended ? extendedStyleOffset + 4 : 8;
    rest[countOffset] = static_cast<std::byte>(count & 0xFF);
    rest[countOffset + 1] = static_cast<std::byte>(count >> 8);
    dialogTemplate = std::move(rest);
}

std::vector<DialogInitEntry> ParseDialogInit(std::span<const std::byte> list) {
    std::vector<DialogInitEntry> entries;
    for (CLittleEndianReader reader(list);;) {
        const auto controlId = reader.ReadWord(), message = reader.ReadWord();
        const auto length = reader.ReadDword(); // of the data
        const std::span<const std::byte> data = reader.Rest();
        if (!controlId || !message || !length || *controlId == 0 || !reader.Skip(*length)) return entries;
        entries.push_back({*controlId, *message, data.first(*length)});
    }
}
