// Random operations on a menu tree, and changes of the platform's menus between them, against a model.
#include <functional>

#include <gtest/gtest.h>

#include "MenuModel.h"
#include "support/Seed.h"

namespace {

constexpr UINT at = MF_BYPOSITION;

class CRun {
public:
    explicit CRun(unsigned seed) : random(seed) {
        root.CreatePopupMenu();
        menus.push_back(root.GetHandle());
    }

    void Run(int steps) {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            if (Below(3) == 0) ChangePlatformsMenu();
            Step();
        }
        root.DestroyMenu();
        EXPECT_TRUE(COwnerDrawMenu::allSubMenus.empty() && root.subMenus.empty() && root.itemRecords.empty());
        for (const HMENU menu : menus) EXPECT_TRUE(::IsMenu(menu) == FALSE && OwnerDrawMenuOf(menu) == nullptr);
    }

private:
    int Below(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
    // One that still is in the tree, the root more often than others.
    COwnerDrawMenu& AnyMenu() {
        COwnerDrawMenu* menu = OwnerDrawMenuOf(menus[random() % menus.size()]);
        return menu != nullptr && Below(3) != 0 ? *menu : root;
    }

    void ChangePlatformsMenu() {
        const HMENU menu = AnyMenu().GetHandle();
        const int position = Below(::GetMenuItemCount(menu) + 1), id = 1 + Below(5);
        const bool isPopup = ::GetSubMenu(menu, position) != nullptr;
        const UINT state = (Below(2) != 0 ? MF_CHECKED : 0U) | (Below(3) == 0 ? MF_GRAYED : 0U);
        constexpr const char* captions[] = {"a", "c", "p", ""};
        const int choice = Below(8);
        log += "platform " + std::to_string(choice) + "\n";
        if (choice == 0) ::InsertMenuA(menu, position, at | state, id, captions[Below(4)]);
        if (choice == 1) ::InsertMenuA(menu, position, at | MF_SEPARATOR, 0, nullptr);
        if (choice == 2 && !isPopup) ::DeleteMenu(menu, position, at);
        if (choice == 3 && !isPopup) ::ModifyMenuA(menu, position, at | state | MF_HILITE, id, captions[Below(4)]);
        if (choice == 4) ::CheckMenuItem(menu, position, at | (state & MF_CHECKED));
        if (choice == 5) ::EnableMenuItem(menu, position, at | (state & MF_GRAYED));
        if (choice == 6) ::RemoveMenu(menu, position, at);
        if (choice == 7) {
            const HMENU plain = ::CreatePopupMenu();
            ::AppendMenuA(plain, MF_STRING, 99, "plain");
            ::InsertMenuA(menu, position, at | MF_POPUP, IdOfSubMenu(plain), "p");
        }
    }

    // One operation on the menu and on the model, which have to have the same result, and end up the same.
    void Step() {
        COwnerDrawMenu& menu = AnyMenu();
        const HMENU h = menu.GetHandle();
        const CMenuModel before(root);
        CMenuModel model = before;
        constexpr const char* texts[] = {"a", "b", "c\t1", "", nullptr};
        const char *const text = texts[Below(5)], *const other = texts[Below(4)];
        const auto wide = text != nullptr ? std::optional(ToWide(text)) : std::nullopt;
        const std::wstring wideOther = ToWide(other);
        const int position = Below(::GetMenuItemCount(h) + 2) - 1, id = Below(6), beside = Below(5);
        const int end = position < 0 ? ::GetMenuItemCount(h) : position;
        const UINT state = Below(4) == 0 ? MF_CHECKED : Below(4) == 0 ? MF_GRAYED : 0;
        const auto [in, index] = model.First(h, id);
        const auto set = [&](CModelRecord* record, bool keepsNone = false) {
            if (record != nullptr && (wide || !keepsNone)) record->text = wide;
            return record != nullptr;
        };
        const auto noted = [&](COwnerDrawMenu* made) {
            if (made->GetHandle() == nullptr) made->CreatePopupMenu();
            menus.push_back(made->GetHandle());
            return IdOfSubMenu(made->GetHandle());
        };
        using Both = std::pair<int, int>;
        const std::function<Both()> operations[] = {
            // clang-format off
            [&] { return Both(menu.AppendItem(text, state, id, -1), model.Insert(h, -1, -1, wide, state, id)); },
            [&] { return Both(true, model.Insert(h, -1, -1, wide, MF_POPUP, noted(menu.AppendSubMenu(text)))); },
            [&] { return Both(menu.InsertItem(position, text, at | state, id, -1),
                              model.Insert(h, end, end, wide, at | state, id)); },
            [&] { return Both(menu.InsertItem(id, text, state, 7, -1),
                              model.Insert(in, index, index, wide, at | state, 7)); },
            [&] { return Both(menu.InsertMenuItem(id, state, 7, text, nullptr, 0),
                              model.Insert(in, index, index, wide, at | state, 7)); },
            [&] { const UINT_PTR sub = noted(new COwnerDrawMenu);
                  return Both(menu.InsertMenuItem(position, at | MF_POPUP, sub, text, -1),
                              model.Insert(h, end, end, wide, at | MF_POPUP, sub)); },
            [&] { return Both(menu.DeleteItem(position, at), model.TakeOut(h, position, true)); },
            [&] { return Both(menu.RemoveItem(position, at), model.TakeOut(h, position, false)); },
            [&] { return Both(menu.DeleteItem(id, 0), model.TakeOut(in, index, true)); },
            [&] { return Both(menu.RemoveItem(id, 0), model.TakeOut(in, index, false)); },
            [&] { return Both(menu.DeleteItemByText(other, beside), model.TakeOutByText(h, wideOther, beside, true)); },
            [&] { return Both(menu.RemoveItemByText(other, beside), model.TakeOutByText(h, wideOther, beside, false)); },
            [&] { return Both(menu.ModifyItem(text, id + 1, -1), model.Modify(h, id + 1, wide)); },
            [&] { return Both(menu.ModifyItem(text, id + 1, nullptr, 0), model.Modify(h, id + 1, wide)); },
            [&] { return Both(menu.ModifyItemByText(text, other, -1), set(model.FindText(h, wideOther), true)); },
            [&] { return Both(menu.WriteItemText(id, text, 0), set(model.RecordAt({in, index}))); },
            [&] { return Both(menu.WriteItemText(position, text, at), set(model.RecordAt({h, position}))); },
            [&] { COwnerDrawMenu::SynchronizeMenu(&menu); return Both(0, model.Synchronize(h)); },
            // clang-format on
        };
        const std::size_t choice = random() % (std::size(operations) + 2);
        const auto [result, wanted] = operations[std::min(choice, std::size(operations) - 1)]();
        log += std::to_string(choice) + "\n";
        const CMenuModel after(root);
        ASSERT_EQ(after.Describe(before), model.Describe(before)) << log << before.Describe(before);
        ASSERT_EQ(result, wanted) << log << before.Describe(before);
        Search(OwnerDrawMenuOf(h) != nullptr ? menu : root, CMenuModel(root));
    }

    // What searches find, against the model.
    void Search(COwnerDrawMenu& menu, CMenuModel model) {
        const HMENU h = menu.GetHandle();
        for (UINT id = 0; id < 8; ++id) {
            std::vector<COwnerDrawMenu*> owners;
            std::vector<int> positions;
            int position = 77;
            COwnerDrawMenu* found = menu.LocateItem(id, position);
            for (const auto& [in, where] : model.Find(h, id)) {
                ASSERT_TRUE(found == OwnerDrawMenuOf(in) && position == where) << log << id;
                owners.push_back(found);
                positions.push_back(position);
                found = menu.LocateNextItem(id, position, owners, positions);
            }
            ASSERT_TRUE(found == nullptr && position == -1) << log << id;
            std::string text = "untouched";
            const CModelRecord* record = model.RecordAt(model.First(h, id));
            ASSERT_EQ(menu.ReadItemText(id, text, MF_BYCOMMAND), record != nullptr) << log << id;
            ASSERT_EQ(text, record != nullptr ? ToNarrow(record->text.value_or(std::wstring())) : "untouched") << log;
        }
        for (const char* const text : {"a", "c\t1", "", "p", "A"}) {
            const std::wstring wide = ToWide(text);
            const CModelRecord* wanted = model.FindText(h, wide);
            const CMenuItemRecord* record = menu.LocateRecordByText(wide.c_str());
            ASSERT_EQ(record != nullptr ? record->GetItemData() : 0, wanted != nullptr ? wanted->self : 0) << log;
            ASSERT_EQ(menu.GetItemPosition(wide.c_str()), model.menus.at(h).IndexOfText(wide)) << log;
            COwnerDrawMenu* sub = record != nullptr ? OwnerDrawMenuOf(SubMenuOfId(record->id)) : nullptr;
            ASSERT_EQ(menu.FindSubMenuOfRecord(text), sub) << log;
            ASSERT_TRUE(record == nullptr || menu.FindRecord(record->GetItemData()) == record) << log;
        }
        std::vector<HMENU> subs;
        for (const auto& [handle, level] : model.menus) {
            subs.insert(subs.end(), level.subs.begin(), level.subs.end());
            for (int i = 0; i < level.Count(); ++i) {
                const CMenu* const sub = OwnerDrawMenuOf(handle)->GetSubMenuAt(i);
                ASSERT_EQ(sub != nullptr ? sub->GetHandle() : nullptr, level.items[i].sub);
                ASSERT_EQ(COwnerDrawMenu::IsRegisteredSubMenu(sub), OwnerDrawMenuOf(level.items[i].sub) != nullptr);
            }
        }
        auto registered = COwnerDrawMenu::allSubMenus;
        std::ranges::sort(subs);
        std::ranges::sort(registered);
        ASSERT_EQ(registered, subs) << log;
        ASSERT_EQ(menu.FindRecord(0), nullptr);
    }

    std::mt19937 random;
    std::string log;
    COwnerDrawMenu root;
    std::vector<HMENU> menus; // every menu of the product's class that there ever was
};

TEST(MenuEditing, EveryOperationDoesWhatTheModelDoes) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    for (unsigned run = 0; run < 60 && !testing::Test::HasFailure(); ++run) CRun(seed + run).Run(60);
}

} // namespace
