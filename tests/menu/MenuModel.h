// A menu tree as plain values, read from the platform's menus and the records, and what each operation on menus makes
// of them.
#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "menu/OwnerDrawMenu.h"
#include "menu/PlatformMenu.h"

struct CModelItem {
    static constexpr UINT stateBits = MF_CHECKED | MF_GRAYED | MF_DISABLED | MF_HILITE;

    UINT_PTR Key() const { return sub != nullptr ? IdOfSubMenu(sub) : separator ? 0 : id; }

    UINT_PTR id;
    HMENU sub;
    bool drawn, separator;
    UINT state;
    std::string caption;
    ULONG_PTR data;
};

struct CModelRecord {
    ULONG_PTR self;
    std::optional<std::wstring> text;
    UINT flags;
    UINT_PTR id;
};

struct CModelMenu {
    int Count() const { return static_cast<int>(items.size()); }
    template <class Holds>
    int FindRecord(Holds holds) const {
        const auto found = std::ranges::find_if(records, holds);
        return found != records.end() ? static_cast<int>(found - records.begin()) : -1;
    }
    int IndexOfText(const std::wstring& text) const {
        if (std::ranges::all_of(items, [](const auto& item) { return item.sub != nullptr; })) return -1;
        return FindRecord([&](const auto& record) { return record.text == text; });
    }
    // The record of each item: those that still have their own keep it, the others take what is left.
    std::vector<int> Match() const {
        std::vector<int> found(items.size(), -1);
        for (const bool byData : {true, false}) {
            for (int i = 0; i < Count(); ++i) {
                if (found[i] != -1) continue;
                for (int each = 0; each < std::ssize(records) && found[i] == -1; ++each) {
                    const bool fits = records[each].id == items[i].Key();
                    const bool taken = std::ranges::count(found, each) != 0;
                    if (fits && !taken && (!byData || records[each].self == items[i].data)) found[i] = each;
                }
            }
        }
        return found;
    }
    int RecordOf(int position) const {
        if (position < 0 || position >= Count()) return -1;
        const int own = FindRecord([&](const auto& record) { return record.self == items[position].data; });
        return own != -1 ? own : Match()[position];
    }
    // The same, or the record at that index that no item has.
    int RecordAt(int position) const {
        if (const int own = RecordOf(position); own != -1) return own;
        for (int i = 0; i < Count(); ++i) {
            if (RecordOf(i) == position) return -1;
        }
        return position < std::ssize(records) ? position : -1;
    }

    std::vector<CModelItem> items;
    std::vector<CModelRecord> records;
    std::vector<HMENU> subs;
};

class CMenuModel {
public:
    using Place = std::pair<HMENU, int>; // an item's
    using Text = std::optional<std::wstring>;

    explicit CMenuModel(const COwnerDrawMenu& menu) {
        Read(menu);
        for (const auto& [handle, level] : menus) {
            for (const auto& record : level.records) names.emplace(record.self, names.size());
        }
    }
    // Records go by their numbers in the tree that `of` was read from; one that is new there is "new".
    std::string Describe(const CMenuModel& of) const {
        std::string text;
        for (const auto& [handle, level] : menus) {
            const auto name = [&](ULONG_PTR self) {
                const bool here = level.FindRecord([&](const auto& each) { return each.self == self; }) != -1;
                return !here ? "none" : of.names.contains(self) ? std::to_string(of.names.at(self)) : "new";
            };
            text += "menu " + std::to_string(IdOfSubMenu(handle));
            for (const auto& item : level.items) {
                text += "\n  " + std::to_string(item.Key()) + (item.drawn ? " drawn " : " '" + item.caption + "' ") +
                        std::to_string(item.state) + (item.separator ? " line #" : " #") + name(item.data);
            }
            for (const auto& [self, caption, flags, id] : level.records) {
                text += "\n  #" + name(self) + ": " + std::to_string(id) + " flags " + std::to_string(flags) + " '" +
                        (caption ? ToNarrow(*caption) : "null") + "'";
            }
            for (const HMENU sub : level.subs) text += "\n  sub " + std::to_string(IdOfSubMenu(sub));
            text += '\n';
        }
        return text;
    }

    // Every item of a command, in the order in which they are found.
    std::vector<Place> Find(HMENU menu, UINT id) const {
        std::vector<Place> places;
        Walk(menu, [&](HMENU in, int at) {
            if (menus.at(in).items[at].id == id) places.emplace_back(in, at);
        });
        return places;
    }
    Place First(HMENU menu, UINT id) const {
        const auto places = Find(menu, id);
        return places.empty() ? Place{nullptr, -1} : places[0];
    }
    CModelRecord* FindText(HMENU menu, const std::wstring& text) {
        CModelRecord* found = nullptr;
        Walk(menu, [&](HMENU in, int) {
            const int index = menus.at(in).IndexOfText(text);
            if (found == nullptr && index != -1) found = &menus.at(in).records[index];
        });
        return found;
    }
    CModelRecord* RecordAt(const Place& place) {
        const int index = place.first != nullptr ? menus.at(place.first).RecordAt(place.second) : -1;
        return index != -1 ? &menus.at(place.first).records[index] : nullptr;
    }

    // At the end with an index of -1, which stands for appending.
    bool Insert(HMENU menu, int position, int index, const Text& text, UINT flags, UINT_PTR id) {
        if (menu == nullptr) return false;
        auto& [items, records, subs] = menus.at(menu);
        const auto place = [](const auto& list, int at) {
            return list.begin() + (at < 0 ? std::ssize(list) : std::min<std::ptrdiff_t>(at, std::ssize(list)));
        };
        flags = MF_OWNERDRAW | (id == 0 ? MF_SEPARATOR | (flags & MF_BYPOSITION) : flags);
        const HMENU sub = (flags & MF_POPUP) != 0 ? SubMenuOfId(id) : nullptr;
        if (sub != nullptr) {
            subs.insert(place(subs, position), sub);
            menus[sub];
        }
        records.insert(place(records, index), {++fresh, text, flags, id});
        const UINT state = id == 0 ? MF_GRAYED | MF_DISABLED : flags & CModelItem::stateBits;
        items.insert(place(items, position), {id, sub, true, id == 0, state, "", fresh});
        return true;
    }
    bool TakeOut(HMENU menu, int position, bool deletes) {
        if (menu == nullptr || position < 0 || position >= menus.at(menu).Count()) return false;
        const int own = menus.at(menu).RecordOf(position);
        auto& [items, records, subs] = menus.at(menu);
        const CModelItem item = items[position];
        if (item.sub != nullptr) {
            const auto last = std::ranges::find(records.rbegin(), records.rend(), item.Key(), &CModelRecord::id);
            if (last != records.rend()) records.erase(std::next(last).base());
            std::erase(subs, item.sub);
        } else if (own != -1 && !(deletes && item.separator && !records[own].text.value_or(std::wstring()).empty())) {
            records.erase(records.begin() + own);
        }
        items.erase(items.begin() + position);
        Forget(item.sub);
        return true;
    }
    int TakeOutByText(HMENU menu, const std::wstring& text, int neighbours, bool deletes) {
        const int index = menus.at(menu).IndexOfText(text);
        int position = menus.at(menu).Count() - 1;
        while (position >= 0 && menus.at(menu).RecordOf(position) != index) --position;
        if (index == -1 || position < 0) return index;
        TakeOut(menu, position, deletes);
        constexpr int others[] = {0, 1, 1, 2, 0};
        for (int more = others[neighbours]; more > 0; --more) TakeOut(menu, position - 1, deletes);
        return index;
    }
    bool Modify(HMENU menu, UINT id, const Text& text) {
        const auto places = Find(menu, id);
        if (places.empty()) menus.at(menu).records.push_back({++fresh, text, MF_OWNERDRAW, id});
        for (const auto& [in, at] : places) {
            CModelMenu& level = menus.at(in);
            auto& item = level.items[at];
            int index = level.RecordAt(at);
            if (index == -1) { // a new one behind that of the nearest item before
                const auto matches = level.Match();
                for (int i = at; i > 0 && index == -1;) index = matches[--i];
                level.records.insert(level.records.begin() + ++index, {++fresh, CaptionOf(item), 0, id});
            }
            CModelRecord& record = level.records[index];
            if (text) record.text = text;
            record.flags = (record.flags & ~UINT{MF_BYPOSITION | MF_SEPARATOR | MF_POPUP}) | MF_OWNERDRAW;
            record.id = id;
            item.data = record.self;
            item.drawn = item.drawn || places[0] == Place{in, at};
        }
        return !places.empty();
    }
    int Synchronize(HMENU menu) {
        const auto matches = menus.at(menu).Match();
        auto& [items, records, subs] = menus.at(menu);
        std::vector<CModelRecord> kept;
        for (std::size_t i = 0; i < items.size(); ++i) {
            CModelItem& item = items[i];
            const UINT kind = item.sub != nullptr ? MF_POPUP : item.separator ? MF_SEPARATOR : 0;
            const UINT flags = (item.state & ~UINT{MF_HILITE}) | kind | MF_OWNERDRAW | MF_BYPOSITION;
            const bool known = matches[i] != -1;
            kept.push_back(known ? records[matches[i]] : CModelRecord{++fresh, CaptionOf(item), flags, item.Key()});
            if (known && !CaptionOf(item).empty()) kept.back().text = CaptionOf(item);
            if (known && kind == 0) kept.back().flags = flags;
            item.drawn = item.drawn || !known || item.sub == nullptr;
            if (!known || item.sub == nullptr) item.data = kept.back().self;
        }
        records = kept;
        return 0;
    }

    std::map<HMENU, CModelMenu> menus; // those of the product's class

private:
    static std::wstring CaptionOf(const CModelItem& item) { return ToWide(item.drawn ? std::string() : item.caption); }

    void Read(const COwnerDrawMenu& menu) {
        CModelMenu& level = menus[menu.GetHandle()];
        for (int i = 0; i < ::GetMenuItemCount(menu.GetHandle()); ++i) {
            MENUITEMINFOA info{};
            info.cbSize = sizeof info;
            info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU | MIIM_DATA;
            ::GetMenuItemInfoA(menu.GetHandle(), i, TRUE, &info);
            char caption[32]{};
            ::GetMenuStringA(menu.GetHandle(), i, caption, sizeof caption, MF_BYPOSITION);
            level.items.push_back({info.wID, info.hSubMenu, (info.fType & MFT_OWNERDRAW) != 0,
                                   (info.fType & MFT_SEPARATOR) != 0, info.fState & CModelItem::stateBits, caption,
                                   info.dwItemData});
        }
        for (const auto& each : menu.itemRecords) {
            const Text text = each->GetText() != nullptr ? Text(each->GetText()) : std::nullopt;
            level.records.push_back({each->GetItemData(), text, each->flags, each->id});
        }
        level.subs = menu.subMenus;
        for (const HMENU sub : menu.subMenus) Read(*OwnerDrawMenuOf(sub));
    }
    void Forget(HMENU menu) {
        const auto gone = menus.extract(menu);
        if (gone.empty()) return;
        for (const HMENU sub : gone.mapped().subs) Forget(sub);
    }
    // Every item that is no pop-up.
    template <class Visit>
    void Walk(HMENU menu, const Visit& visit) const {
        const auto& items = menus.at(menu).items;
        for (int i = 0; i < menus.at(menu).Count(); ++i) {
            if (items[i].sub == nullptr) visit(menu, i);
            if (menus.contains(items[i].sub)) Walk(items[i].sub, visit);
        }
    }

    std::map<ULONG_PTR, std::size_t> names;
    ULONG_PTR fresh = 0; // of records that the model makes
};
