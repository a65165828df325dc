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

constexpr UINT at = MF_BYPOSITION, lineState = MF_GRAYED | MF_DISABLED, stateBits = lineState | MF_CHECKED | MF_HILITE;
using Caption = std::optional<std::wstring>;

MENUITEMINFOA InfoOf(HMENU menu, int position) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE | MIIM_SUBMENU | MIIM_DATA;
    ::GetMenuItemInfoA(menu, position, TRUE, &info);
    return info;
}

struct Item {
    UINT_PTR id; // or the sub-menu
    HMENU sub;
    Caption text;
    UINT flags, state;
    ULONG_PTR self;
};

// A tree as plain values, and what each operation makes of it.
class CModel {
public:
    using Place = std::pair<HMENU, int>; // of an item

    // The records stand in the order of the platform's items, each of which has its own.
    explicit CModel(const COwnerDrawMenu& menu) { Read(menu); }
    void Read(const COwnerDrawMenu& menu) {
        auto& items = menus[menu.GetHandle()];
        ASSERT_EQ(std::ssize(menu.itemRecords), ::GetMenuItemCount(menu.GetHandle()));
        for (const auto& record : menu.itemRecords) {
            known.insert(record->GetItemData());
            const MENUITEMINFOA info = InfoOf(menu.GetHandle(), static_cast<int>(items.size()));
            const auto* const shown = reinterpret_cast<const MSAAMENUINFO*>(info.dwItemData);
            const UINT_PTR id = info.hSubMenu != nullptr ? IdOfSubMenu(info.hSubMenu) : info.wID;
            const Caption text = record->GetText() != nullptr ? Caption(record->GetText()) : std::nullopt;
            ASSERT_TRUE((info.fType & MFT_OWNERDRAW) != 0 && info.dwItemData == record->GetItemData() &&
                        id == record->id);
            ASSERT_EQ(shown->dwMSAASignature, static_cast<DWORD>(MSAA_MENU_SIG));
            ASSERT_EQ(std::wstring(shown->pszWText, shown->cchWText), text.value_or(std::wstring()));
            items.push_back({id, info.hSubMenu, text, record->flags, info.fState & stateBits, info.dwItemData});
            if (const COwnerDrawMenu* sub = OwnerDrawMenuOf(info.hSubMenu)) Read(*sub);
        }
        subs.insert(subs.end(), menu.subMenus.begin(), menu.subMenus.end());
    }

    // With the addresses of the records that were in the tree `of`, and 1 for new ones.
    std::string Describe(const CModel& of) const {
        std::ostringstream text;
        for (const auto& [handle, items] : menus) {
            text << handle << ":\n";
            for (const auto& [id, sub, caption, flags, state, self] : items) {
                text << "  " << id << ' ' << flags << ' ' << state << ' ' << (caption ? ToNarrow(*caption) : "null")
                     << ' ';
                text << (of.known.contains(self) ? self : 1) << '\n';
            }
        }
        return text.str();
    }
    // Every item that is no pop-up, in the order of the tree.
    template <class Visit>
    void Walk(HMENU menu, const Visit& visit) {
        auto& items = menus.at(menu);
        for (int i = 0; i < std::ssize(items); ++i) {
            if (items[i].sub == nullptr) visit(Place{menu, i}, items[i]);
            if (menus.contains(items[i].sub)) Walk(items[i].sub, visit);
        }
    }
    std::vector<Place> Find(HMENU menu, UINT id) {
        std::vector<Place> places;
        Walk(menu, [&](const Place& place, const Item& item) {
            if (item.id == id) places.push_back(place);
        });
        return places;
    }
    Item* At(const Place& place) {
        const bool outside =
            place.first == nullptr || place.second < 0 || place.second >= std::ssize(menus.at(place.first));
        return outside ? nullptr : &menus.at(place.first)[place.second];
    }

    bool Insert(const Place& before, const Caption& text, UINT flags, UINT_PTR id) {
        if (before.first == nullptr) return false;
        auto& items = menus.at(before.first);
        flags = MF_OWNERDRAW | (id == 0 ? MF_SEPARATOR | (flags & MF_BYPOSITION) : flags);
        const HMENU sub = (flags & MF_POPUP) != 0 ? SubMenuOfId(id) : nullptr;
        const auto place = std::min<std::ptrdiff_t>(before.second, std::ssize(items));
        items.insert(items.begin() + place, {id, sub, text, flags, id == 0 ? lineState : flags & stateBits, 1});
        if (sub != nullptr) menus[sub];
        return true;
    }
    bool TakeOut(const Place& place) {
        if (At(place) == nullptr) return false;
        const auto below = menus.find(At(place)->sub);
        if (below != menus.end()) {
            while (!below->second.empty()) TakeOut({below->first, 0});
            menus.erase(below);
        }
        menus.at(place.first).erase(menus.at(place.first).begin() + place.second);
        return true;
    }
    bool Modify(HMENU menu, UINT id, const Caption& text) {
        const auto places = Find(menu, id);
        for (const Place& place : places) {
            Item& item = *At(place);
            item.flags &= ~UINT{MF_BYPOSITION};
            if (text) item.text = text;
        }
        return !places.empty();
    }
    // Items that still have their own records keep them; the others take what is left, in the order of the records.
    void Synchronize(HMENU menu) {
        const auto old = std::exchange(menus.at(menu), {});
        std::vector<const Item*> found(::GetMenuItemCount(menu));
        for (const bool byData : {true, false}) {
            for (int i = 0; i < std::ssize(found); ++i) {
                for (const Item& each : old) {
                    const bool fits =
                        each.id == PlatformItemKey(menu, i) && (!byData || each.self == InfoOf(menu, i).dwItemData);
                    if (found[i] == nullptr && fits && std::ranges::count(found, &each) == 0) found[i] = &each;
                }
            }
        }
        for (int i = 0; i < std::ssize(found); ++i) {
            const MENUITEMINFOA info = InfoOf(menu, i);
            char caption[32]{};
            if ((info.fType & MFT_OWNERDRAW) == 0) ::GetMenuStringA(menu, i, caption, sizeof caption, at);
            Item item{PlatformItemKey(menu, i), info.hSubMenu, std::wstring(), 0, 0, 1};
            if (found[i] != nullptr) item = *found[i];
            if (caption[0] != '\0') item.text = ToWide(caption);
            item.state = info.fState & stateBits;
            const UINT kind = item.sub != nullptr ? MF_POPUP : item.id == 0 ? MF_SEPARATOR : 0;
            if (found[i] == nullptr || kind == 0)
                item.flags = (item.state & ~UINT{MF_HILITE}) | kind | MF_OWNERDRAW | at;
            menus.at(menu).push_back(item);
        }
    }

    std::map<HMENU, std::vector<Item>> menus; // those of the product's class
    std::vector<HMENU> subs;
    std::set<ULONG_PTR> known; // records
};

class CRun {
public:
    explicit CRun(unsigned seed) : random(seed) { Noted(&root); }

    void Run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
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

    void ChangePlatformsMenu(HMENU menu) {
        const int position = Below(::GetMenuItemCount(menu) + 1), id = 1 + Below(5), choice = Below(6);
        const bool popup = ::GetSubMenu(menu, position) != nullptr;
        const UINT state = (Below(2) != 0 ? MF_CHECKED : 0U) | (Below(3) == 0 ? MF_GRAYED : 0U);
        constexpr const char* captions[] = {"a", "c", "p", ""};
        if (choice == 0) ::InsertMenuA(menu, position, at | state, id, captions[Below(4)]);
        if (choice == 1) ::InsertMenuA(menu, position, at | MF_SEPARATOR, 0, nullptr);
        if (choice == 2 && !popup) ::ModifyMenuA(menu, position, at | state | MF_HILITE, id, captions[Below(4)]);
        if (choice == 3 && !popup) ::DeleteMenu(menu, position, at);
        if (choice == 4) ::CheckMenuItem(menu, position, at | (state & MF_CHECKED));
        if (choice == 5) ::EnableMenuItem(menu, position, at | (state & MF_GRAYED));
    }

    // One operation on a menu and on the model, which have to have the same result, and end up the same.
    void Step() {
        COwnerDrawMenu& menu = AnyMenu();
        const HMENU h = menu.GetHandle();
        const CModel before(root);
        CModel model = before;
        constexpr const char* texts[] = {"a", "\xE4\xBA\x8C", "c\t1", "", nullptr};
        const char* const text = texts[Below(5)];
        const Caption wide = text != nullptr ? Caption(ToWide(text)) : std::nullopt;
        const int count = ::GetMenuItemCount(h), position = Below(count + 2) - 1, id = Below(6);
        const UINT state = Below(4) == 0 ? MF_CHECKED : Below(4) == 0 ? MF_GRAYED : 0;
        const auto places = model.Find(h, id), found = model.Find(h, id + 1);
        const CModel::Place here{h, position}, end{h, position < 0 ? count : position}, last{h, count},
            first = places.empty() ? CModel::Place{} : places[0];
        const auto set = [&](Item* item) {
            if (item != nullptr) item->text = wide;
            return item != nullptr;
        };
        // Such a line is deleted without its record.
        const bool worded =
            model.At(here) != nullptr && model.At(here)->text.value_or(std::wstring()) != std::wstring();
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
            [&] { return Both(worded || menu.DeleteItem(position, at), worded || model.TakeOut(here)); },
            [&] { return Both(menu.RemoveItem(position, at), model.TakeOut(here)); },
            [&] { return Both(menu.RemoveItem(id, 0), model.TakeOut(first)); },
            [&] { return Both(!found.empty() && menu.ModifyItem(text, id + 1, -1), model.Modify(h, id + 1, wide)); },
            [&] { return Both(!found.empty() && menu.ModifyItem(text, id + 1, nullptr, 0), model.Modify(h, id + 1, wide)); },
            [&] { return Both(menu.WriteItemText(id, text, 0), set(model.At(first))); },
            [&] { return Both(menu.WriteItemText(position, text, at), set(model.At(here))); },
            [&] { ChangePlatformsMenu(h); model.Synchronize(h); COwnerDrawMenu::SynchronizeMenu(&menu); return Both(); },
            // clang-format on
        };
        const std::size_t choice = std::min<std::size_t>(random() % 19, std::size(operations) - 1);
        const auto [result, wanted] = operations[choice]();
        log += std::to_string(choice) + "\n";
        const CModel after(root);
        ASSERT_EQ(after.Describe(before), model.Describe(before)) << log << before.Describe(before);
        ASSERT_EQ(result, wanted) << log << before.Describe(before);
        std::vector<HMENU> registered = COwnerDrawMenu::allSubMenus, subs = after.subs;
        for (auto* const list : {&registered, &subs}) std::ranges::sort(*list);
        ASSERT_TRUE(registered == subs && subs.size() + 1 == after.menus.size()) << log;
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

// Puts a pop-up item without a record at the end, whose sub-menu has ended; the flags of the record that it gets.
int FlagsOfEndedPopup(COwnerDrawMenu& menu) {
    const HMENU ended = ::CreatePopupMenu();
    ::AppendMenuA(menu.GetHandle(), MF_POPUP, IdOfSubMenu(ended), "p");
    ::DestroyMenu(ended);
    menu.SynchronizeRecords();
    return static_cast<int>(menu.itemRecords.back()->flags);
}

// Takes the second of two pop-up items out of the platform's menu and gives its sub-menu to the first; whether that one
// still has a record. Takes it out too.
bool DrawnAfterExchange(COwnerDrawMenu& menu) {
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_SUBMENU;
    menu.AppendSubMenu("p");
    info.hSubMenu = menu.AppendSubMenu("q")->GetHandle();
    ::RemoveMenu(menu.GetHandle(), 5, at);
    ::SetMenuItemInfoA(menu.GetHandle(), 4, TRUE, &info);
    menu.SynchronizeRecords();
    const bool drawn = menu.FindRecord(PlatformItemData(menu.GetHandle(), 4)) != nullptr;
    menu.RemoveItem(4, at);
    return drawn;
}

// Where records and items aren't in step, because the platform's menu was changed or an item went without its record.
TEST(MenuEditing, ItemsWithoutRecordsAndRecordsWithoutItems) {
    using Edit = int (*)(COwnerDrawMenu&);
    const struct {
        Edit edit;
        int result;
        const char *records, *drawn; // what each item draws, `?` for one that has no record
    } cases[] = {
        // clang-format off
        {[](COwnerDrawMenu& m) { return int{m.ModifyItem("x", 9, -1)}; }, 1, "x9 a1 l0 b2 ", "xalb"},
        {[](COwnerDrawMenu& m) { return int{m.ModifyItem("x", 8, -1)}; }, 0, "a1 l0 b2 x8 ", "?alb"},
        {[](COwnerDrawMenu& m) { return m.DeleteItemByText("a", 0); }, 0, "l0 b2 ", "?lb"},
        {[](COwnerDrawMenu& m) { return m.DeleteItemByText("b", 1); }, 2, "a1 l0 ", "?a"},
        {[](COwnerDrawMenu& m) { return m.RemoveItemByText("l", 3); }, 1, "", "?"},
        {[](COwnerDrawMenu& m) { return int{m.ModifyItemByText("x", "b", -1)}; }, 1, "a1 l0 x2 ", "?alx"},
        {[](COwnerDrawMenu& m) { return int{m.WriteItemText(3, "x", at)}; }, 1, "a1 l0 x2 ", "?alx"},
        {[](COwnerDrawMenu& m) { return int{m.WriteItemText(0, "x", at)}; }, 0, "a1 l0 b2 ", "?alb"},
        {[](COwnerDrawMenu& m) { ::RemoveMenu(m.GetHandle(), 2, at); return int{m.ModifyItem("x", 9, -1)}; }, 1, "x9 a1 l0 b2 ", "xab"},
        {[](COwnerDrawMenu& m) { ::RemoveMenu(m.GetHandle(), 2, at); return int{m.WriteItemText(1, "x", at)}; }, 1, "x1 l0 b2 ", "?xb"},
        {[](COwnerDrawMenu& m) { ::InsertMenuA(m.GetHandle(), 0, at, 2, "b"); return int{m.RemoveItem(0, at)}; }, 1, "a1 l0 b2 ", "?alb"},
        {[](COwnerDrawMenu& m) { ::ModifyMenuA(m.GetHandle(), 0, at | MF_BITMAP, 9, reinterpret_cast<const char*>(HBMMENU_POPUP_CLOSE));
              m.SynchronizeRecords(); return static_cast<int>(m.itemRecords[0]->flags); }, at | MF_OWNERDRAW, "9 a1 l0 b2 ", "alb"},
        {[](COwnerDrawMenu& m) { m.AppendItem("again", MF_POPUP, IdOfSubMenu(m.AppendSubMenu("p")->GetHandle()), -1); m.RemoveItem(4, at);
              const bool ownsRecord = m.FindRecord(PlatformItemData(m.GetHandle(), 4)) != nullptr; m.RemoveItem(4, at); return int{ownsRecord}; }, 1, "a1 l0 b2 ", "?alb"},
        {[](COwnerDrawMenu& m) { ::InsertMenuA(m.GetHandle(), 1, at, 9, "G"); const bool done = m.ModifyItem("x", 9, -1); m.SynchronizeRecords(); return int{done}; }, 1, "x9 x9 a1 l0 b2 ", "xxalb"},
        {[](COwnerDrawMenu& m) { return int{DrawnAfterExchange(m)}; }, 1, "F9 a1 l0 b2 ", "Falb"},
        {[](COwnerDrawMenu& m) { const int flags = FlagsOfEndedPopup(m); m.RemoveItem(4, at); return flags; }, 0x510, "F9 a1 l0 b2 ", "Falb"},
        // clang-format on
    };
    for (const auto& [edit, result, records, drawn] : cases) {
        COwnerDrawMenu menu;
        menu.CreatePopupMenu();
        menu.AppendItem("a", MF_STRING, 1, -1);
        menu.AppendItem("l", MF_SEPARATOR, 0, -1);
        menu.AppendItem("b", MF_STRING, 2, -1);
        ::InsertMenuA(menu.GetHandle(), 0, at, 9, "F");
        EXPECT_EQ(edit(menu), result);
        std::string kept, items;
        for (const auto& record : menu.itemRecords) kept += record->GetNarrowText() + std::to_string(record->id) + ' ';
        for (int i = 0; i < ::GetMenuItemCount(menu.GetHandle()); ++i) {
            const CMenuItemRecord* record = menu.FindRecord(PlatformItemData(menu.GetHandle(), i));
            items += record != nullptr ? record->GetNarrowText() : "?";
        }
        EXPECT_EQ(kept, records);
        EXPECT_EQ(items, drawn) << records;
    }
}

} // namespace
