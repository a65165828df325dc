// Random operations on a menu tree, and changes of the platform's menus between them, against a model.
#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "menu/OwnerDrawMenu.h"
#include "menu/PlatformMenu.h"
#include "support/Seed.h"

namespace {

constexpr UINT at = MF_BYPOSITION, stateBits = MF_CHECKED | MF_GRAYED | MF_DISABLED | MF_HILITE;
using Caption = std::optional<std::wstring>;

struct Item {
    UINT_PTR Key() const { return sub != nullptr ? IdOfSubMenu(sub) : separator ? 0 : id; }

    UINT_PTR id;
    HMENU sub;
    bool drawn, separator;
    UINT state;
    std::wstring caption; // the platform's own
    ULONG_PTR data;
};

struct Record {
    ULONG_PTR self;
    Caption text;
    UINT flags;
    UINT_PTR id;
};

struct Menu {
    int Count() const { return static_cast<int>(items.size()); }
    template <class Holds>
    int FindRecord(Holds holds) const {
        const auto found = std::ranges::find_if(records, holds);
        return found != records.end() ? static_cast<int>(found - records.begin()) : -1;
    }
    int FindText(const std::wstring& text) const {
        const bool popupsAlone = std::ranges::all_of(items, [](const Item& item) { return item.sub != nullptr; });
        return popupsAlone ? -1 : FindRecord([&](const Record& record) { return record.text == text; });
    }
    // The record of each item: those that still have their own keep it, the others take what is left.
    std::vector<int> Match() const {
        std::vector<int> found(items.size(), -1);
        for (const bool byData : {true, false}) {
            for (int i = 0; i < Count(); ++i) {
                const auto fits = [&](const Record& record) {
                    const bool taken = std::ranges::count(found, static_cast<int>(&record - records.data())) != 0;
                    return !taken && record.id == items[i].Key() && (!byData || record.self == items[i].data);
                };
                if (found[i] == -1) found[i] = FindRecord(fits);
            }
        }
        return found;
    }
    int RecordOf(int position) const {
        if (position < 0 || position >= Count()) return -1;
        const int own = FindRecord([&](const Record& record) { return record.self == items[position].data; });
        return own != -1 ? own : Match()[position];
    }
    // The same, or the record at that index that no item has.
    int RecordAt(int position) const {
        bool free = position < std::ssize(records);
        for (int i = 0; i < Count(); ++i) free = free && RecordOf(i) != position;
        const int own = RecordOf(position);
        return own != -1 ? own : free ? position : -1;
    }

    std::vector<Item> items;
    std::vector<Record> records;
    std::vector<HMENU> subs;
};

// A tree as plain values, and what each operation makes of it.
class CModel {
public:
    using Place = std::pair<HMENU, int>; // of an item

    explicit CModel(const COwnerDrawMenu& menu) { Read(menu); }

    // With the addresses of the records that were in the tree `of`, and 1 for new ones.
    std::string Describe(const CModel& of) const {
        std::ostringstream text;
        const auto name = [&](ULONG_PTR self) { return self == 0 || of.known.contains(self) ? self : 1; };
        for (const auto& [handle, menu] : menus) {
            text << handle << ":\n";
            for (const Item& item : menu.items) {
                text << "  " << item.Key() << (item.drawn ? " drawn" : "") << (item.separator ? " line " : " ")
                     << item.state << " '" << ToNarrow(item.caption) << "' has " << name(item.data) << '\n';
            }
            for (const auto& [self, caption, flags, id] : menu.records)
                text << "  " << name(self) << ": " << id << ' ' << flags << ' '
                     << (caption ? ToNarrow(*caption) : "null") << '\n';
            for (const HMENU sub : menu.subs) text << "  sub " << sub << '\n';
        }
        return text.str();
    }

    // Every item of a command, in the order in which they are found.
    std::vector<Place> Find(HMENU menu, UINT id) const {
        std::vector<Place> places;
        Walk(menu, [&](HMENU in, int i) {
            if (menus.at(in).items[i].id == id) places.emplace_back(in, i);
        });
        return places;
    }
    Record* FindText(HMENU menu, const std::wstring& text) {
        Record* found = nullptr;
        Walk(menu, [&](HMENU in, int) {
            const int index = menus.at(in).FindText(text);
            if (found == nullptr && index != -1) found = &menus.at(in).records[index];
        });
        return found;
    }
    Record* RecordAt(const Place& place) {
        const int index = place.first != nullptr ? menus.at(place.first).RecordAt(place.second) : -1;
        return index != -1 ? &menus.at(place.first).records[index] : nullptr;
    }

    // At the end with a position of -1, which stands for appending.
    bool Insert(const Place& before, const Caption& text, UINT flags, UINT_PTR id) {
        if (before.first == nullptr) return false;
        auto& [items, records, subs] = menus.at(before.first);
        const auto place = [index = before.second](const auto& list) {
            return index < 0 ? list.end() : list.begin() + std::min<std::ptrdiff_t>(index, std::ssize(list));
        };
        flags = MF_OWNERDRAW | (id == 0 ? MF_SEPARATOR | (flags & MF_BYPOSITION) : flags);
        const HMENU sub = (flags & MF_POPUP) != 0 ? SubMenuOfId(id) : nullptr;
        if (sub != nullptr) subs.insert(place(subs), sub);
        if (sub != nullptr) menus[sub];
        records.insert(place(records), {++fresh, text, flags, id});
        const UINT state = id == 0 ? MF_GRAYED | MF_DISABLED : flags & stateBits;
        items.insert(place(items), {id, sub, true, id == 0, state, {}, fresh});
        return true;
    }
    bool TakeOut(const Place& place, bool deletes) {
        const auto [menu, position] = place;
        if (menu == nullptr || position < 0 || position >= menus.at(menu).Count()) return false;
        const int own = menus.at(menu).RecordOf(position);
        auto& [items, records, subs] = menus.at(menu);
        const Item item = items[position];
        if (item.sub != nullptr) {
            const auto last = std::ranges::find(records.rbegin(), records.rend(), item.Key(), &Record::id);
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
        const int index = menus.at(menu).FindText(text);
        int position = menus.at(menu).Count() - 1;
        while (position >= 0 && menus.at(menu).RecordOf(position) != index) --position;
        if (index == -1 || position < 0) return index;
        TakeOut({menu, position}, deletes);
        constexpr int others[] = {0, 1, 1, 2, 0};
        for (int more = others[neighbours]; more > 0; --more) TakeOut({menu, position - 1}, deletes);
        return index;
    }
    bool Modify(HMENU menu, UINT id, const Caption& text) {
        const auto places = Find(menu, id);
        if (places.empty()) menus.at(menu).records.push_back({++fresh, text, MF_OWNERDRAW, id});
        for (const auto& [in, i] : places) {
            Menu& level = menus.at(in);
            auto& item = level.items[i];
            int index = level.RecordAt(i);
            if (index == -1) { // a new one behind that of the nearest item before
                const auto matches = level.Match();
                for (int before = i; before > 0 && index == -1;) index = matches[--before];
                level.records.insert(level.records.begin() + ++index, {++fresh, item.caption, 0, id});
            }
            Record& record = level.records[index];
            if (text) record.text = text;
            record.flags = (record.flags & ~UINT{MF_BYPOSITION | MF_SEPARATOR | MF_POPUP}) | MF_OWNERDRAW;
            record.id = id;
            item.data = record.self;
            if (places[0] == Place{in, i}) SetDrawn(item);
        }
        return !places.empty();
    }
    int Synchronize(HMENU menu) {
        const auto matches = menus.at(menu).Match();
        auto& [items, records, subs] = menus.at(menu);
        std::vector<Record> kept;
        for (std::size_t i = 0; i < items.size(); ++i) {
            Item& item = items[i];
            const UINT kind = item.sub != nullptr ? MF_POPUP : item.separator ? MF_SEPARATOR : 0;
            const UINT flags = (item.state & ~UINT{MF_HILITE}) | kind | MF_OWNERDRAW | MF_BYPOSITION;
            const bool matched = matches[i] != -1;
            kept.push_back(matched ? records[matches[i]] : Record{++fresh, item.caption, flags, item.Key()});
            if (matched && !item.caption.empty()) kept.back().text = item.caption;
            if (matched && kind == 0) kept.back().flags = flags;
            if (matched && item.sub != nullptr) continue;
            SetDrawn(item);
            item.data = kept.back().self;
        }
        records = kept;
        return 0;
    }

    std::map<HMENU, Menu> menus; // those of the product's class

private:
    static void SetDrawn(Item& item) {
        item.drawn = true;
        item.caption.clear();
    }
    void Read(const COwnerDrawMenu& menu) {
        Menu& level = menus[menu.GetHandle()];
        for (const auto& each : menu.itemRecords) {
            const Caption text = each->GetText() != nullptr ? Caption(each->GetText()) : std::nullopt;
            known.insert(each->GetItemData());
            level.records.push_back({each->GetItemData(), text, each->flags, each->id});
        }
        for (int i = 0; i < ::GetMenuItemCount(menu.GetHandle()); ++i) {
            MENUITEMINFOA info{};
            info.cbSize = sizeof info;
            info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU | MIIM_DATA;
            ::GetMenuItemInfoA(menu.GetHandle(), i, TRUE, &info);
            const bool drawn = (info.fType & MFT_OWNERDRAW) != 0, separator = (info.fType & MFT_SEPARATOR) != 0;
            char caption[32]{};
            if (!drawn) ::GetMenuStringA(menu.GetHandle(), i, caption, sizeof caption, MF_BYPOSITION);
            const bool own = level.FindRecord([&](const Record& each) { return each.self == info.dwItemData; }) != -1;
            level.items.push_back({info.wID, info.hSubMenu, drawn, separator, info.fState & stateBits, ToWide(caption),
                                   own ? info.dwItemData : 0});
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

    std::set<ULONG_PTR> known;
    ULONG_PTR fresh = 0; // of records that the model makes
};

class CRun {
public:
    explicit CRun(unsigned seed) : random(seed) { Noted(&root); }

    void Run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            if (Below(3) == 0) ChangePlatformsMenu();
            Step();
        }
        root.DestroyMenu();
        EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty() && root.subMenus.empty() && root.itemRecords.empty());
        for (const HMENU menu : made) EXPECT_TRUE(::IsMenu(menu) == FALSE && OwnerDrawMenuOf(menu) == nullptr);
    }

private:
    int Below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
    UINT_PTR Noted(COwnerDrawMenu* menu) {
        if (menu->GetHandle() == nullptr) menu->CreatePopupMenu();
        made.push_back(menu->GetHandle());
        return IdOfSubMenu(menu->GetHandle());
    }
    // One that still is in the tree, the root more often than others.
    COwnerDrawMenu& AnyMenu() {
        COwnerDrawMenu* menu = OwnerDrawMenuOf(made[random() % made.size()]);
        return menu != nullptr && Below(3) != 0 ? *menu : root;
    }

    void ChangePlatformsMenu() {
        const HMENU menu = AnyMenu().GetHandle(), plain = ::CreatePopupMenu();
        const int position = Below(::GetMenuItemCount(menu) + 1), id = 1 + Below(5), choice = Below(8);
        const bool popup = ::GetSubMenu(menu, position) != nullptr;
        const UINT state = (Below(2) != 0 ? MF_CHECKED : 0U) | (Below(3) == 0 ? MF_GRAYED : 0U);
        constexpr const char* captions[] = {"a", "c", "p", ""};
        log += "platform " + std::to_string(choice) + "\n";
        ::AppendMenuA(plain, MF_STRING, 99, "plain");
        if (choice == 0) ::InsertMenuA(menu, position, at | state, id, captions[Below(4)]);
        if (choice == 1) ::InsertMenuA(menu, position, at | MF_SEPARATOR, 0, nullptr);
        if (choice == 2) ::InsertMenuA(menu, position, at | MF_POPUP, IdOfSubMenu(plain), "p");
        if (choice == 3 && !popup) ::ModifyMenuA(menu, position, at | state | MF_HILITE, id, captions[Below(4)]);
        if (choice == 4 && !popup) ::DeleteMenu(menu, position, at);
        if (choice == 5) ::RemoveMenu(menu, position, at);
        if (choice == 6) ::CheckMenuItem(menu, position, at | (state & MF_CHECKED));
        if (choice == 7) ::EnableMenuItem(menu, position, at | (state & MF_GRAYED));
    }

    // One operation on a menu and on the model, which have to have the same result, and end up the same.
    void Step() {
        COwnerDrawMenu& menu = AnyMenu();
        const HMENU h = menu.GetHandle();
        const CModel before(root);
        CModel model = before;
        constexpr const char* texts[] = {"a", "b", "c\t1", "", nullptr};
        const char *const text = texts[Below(5)], *const other = texts[Below(4)];
        const Caption wide = text != nullptr ? Caption(ToWide(text)) : std::nullopt;
        const std::wstring old = ToWide(other);
        const int position = Below(::GetMenuItemCount(h) + 2) - 1, id = Below(6), beside = Below(5);
        const UINT state = Below(4) == 0 ? MF_CHECKED : Below(4) == 0 ? MF_GRAYED : 0;
        const auto places = model.Find(h, id);
        const CModel::Place here{h, position}, end{h, position < 0 ? ::GetMenuItemCount(h) : position}, last{h, -1},
            first = places.empty() ? CModel::Place{} : places[0];
        const auto set = [&](Record* record, bool keepsNone = false) {
            if (record != nullptr && (wide || !keepsNone)) record->text = wide;
            return record != nullptr;
        };
        using Both = std::pair<int, int>;
        const std::function<Both()> operations[] = {
            // clang-format off
            [&] { return Both(menu.AppendItem(text, state, id, -1), model.Insert(last, wide, state, id)); },
            [&] { return Both(true, model.Insert(last, wide, MF_POPUP, Noted(menu.AppendSubMenu(text)))); },
            [&] { return Both(menu.InsertItem(position, text, at | state, id, -1), model.Insert(end, wide, at | state, id)); },
            [&] { return Both(menu.InsertItem(id, text, state, 7, -1), model.Insert(first, wide, at | state, 7)); },
            [&] { return Both(menu.InsertMenuItem(id, state, 7, text, nullptr, 0), model.Insert(first, wide, at | state, 7)); },
            [&] { const UINT_PTR sub = Noted(new COwnerDrawMenu); return Both(
                      menu.InsertMenuItem(position, at | MF_POPUP, sub, text, -1), model.Insert(end, wide, at | MF_POPUP, sub)); },
            [&] { return Both(menu.DeleteItem(position, at), model.TakeOut(here, true)); },
            [&] { return Both(menu.RemoveItem(position, at), model.TakeOut(here, false)); },
            [&] { return Both(menu.DeleteItem(id, 0), model.TakeOut(first, true)); },
            [&] { return Both(menu.RemoveItem(id, 0), model.TakeOut(first, false)); },
            [&] { return Both(menu.DeleteItemByText(other, beside), model.TakeOutByText(h, old, beside, true)); },
            [&] { return Both(menu.RemoveItemByText(other, beside), model.TakeOutByText(h, old, beside, false)); },
            [&] { return Both(menu.ModifyItem(text, id + 1, -1), model.Modify(h, id + 1, wide)); },
            [&] { return Both(menu.ModifyItem(text, id + 1, nullptr, 0), model.Modify(h, id + 1, wide)); },
            [&] { return Both(menu.ModifyItemByText(text, other, -1), set(model.FindText(h, old), true)); },
            [&] { return Both(menu.WriteItemText(id, text, 0), set(model.RecordAt(first))); },
            [&] { return Both(menu.WriteItemText(position, text, at), set(model.RecordAt(here))); },
            [&] { COwnerDrawMenu::SynchronizeMenu(&menu); return Both(0, model.Synchronize(h)); },
            // clang-format on
        };
        const std::size_t choice = std::min<std::size_t>(random() % 20, std::size(operations) - 1);
        const auto [result, wanted] = operations[choice]();
        log += std::to_string(choice) + "\n";
        const CModel after(root);
        ASSERT_EQ(after.Describe(before), model.Describe(before)) << log << before.Describe(before);
        ASSERT_EQ(result, wanted) << log << before.Describe(before);
        Search(OwnerDrawMenuOf(h) != nullptr ? menu : root, after);
    }

    // What searches find, against the model.
    void Search(COwnerDrawMenu& menu, CModel model) {
        const HMENU h = menu.GetHandle();
        for (UINT id = 0; id < 8; ++id) {
            std::vector<COwnerDrawMenu*> owners;
            std::vector<int> positions;
            auto places = model.Find(h, id);
            Record* const record = places.empty() ? nullptr : model.RecordAt(places[0]);
            places.emplace_back(nullptr, -1);
            for (const auto& [in, where] : places) {
                int position = 77;
                ASSERT_EQ(menu.LocateNextItem(id, position, owners, positions), OwnerDrawMenuOf(in)) << log << id;
                ASSERT_EQ(position, where) << log << id;
                owners.push_back(OwnerDrawMenuOf(in));
                positions.push_back(position);
            }
            std::string text = "untouched";
            ASSERT_EQ(menu.ReadItemText(id, text, MF_BYCOMMAND), record != nullptr) << log << id;
            ASSERT_EQ(text, record != nullptr ? ToNarrow(record->text.value_or(std::wstring())) : "untouched") << log;
        }
        for (const char* const text : {"a", "c\t1", "", "p", "A"}) {
            const Record* const wanted = model.FindText(h, ToWide(text));
            const CMenuItemRecord* const record = menu.LocateRecordByText(ToWide(text).c_str());
            ASSERT_EQ(record, wanted != nullptr ? menu.FindRecord(wanted->self) : nullptr) << log << text;
            COwnerDrawMenu* const sub = wanted != nullptr ? OwnerDrawMenuOf(SubMenuOfId(wanted->id)) : nullptr;
            ASSERT_EQ(menu.FindSubMenuOfRecord(text), sub) << log << text;
        }
        std::vector<HMENU> subs, registered = COwnerDrawMenu::allSubMenus;
        for (const auto& [handle, level] : model.menus) subs.insert(subs.end(), level.subs.begin(), level.subs.end());
        std::ranges::sort(subs);
        std::ranges::sort(registered);
        ASSERT_EQ(registered, subs) << log;
    }

    std::mt19937 random;
    std::string log;
    COwnerDrawMenu root;
    std::vector<HMENU> made; // every menu of the product's class that there ever was
};

TEST(MenuEditing, EveryOperationDoesWhatTheModelDoes) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    for (unsigned run = 0; run < 60 && !testing::Test::HasFailure(); ++run) CRun(seed + run).Run(60);
}

} // namespace
