// Window objects and their windows: who outlives whom, and temporary wrappers.
#include "framework/Wnd.h"

#include <gtest/gtest.h>

#include "framework/HandleMap.h"
#include "framework/Text.h"
#include "support/Seed.h"
#include "TestIds.h"

namespace {

constexpr UINT deleteObject = WM_APP + 1, destroyWindow = WM_APP + 2;

// Ends itself or its window while it handles a message.
class CMortal : public CWnd {
public:
    static inline int windowsLost = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == destroyWindow) return DestroyWindow() ? 12 : 0;
        if (message != deleteObject) return CWnd::WindowProc(message, wParam, lParam);
        delete this;
        return 11;
    }
    void PostNcDestroy() override { ++windowsLost; }
};

HWND MakeEdit(const CWnd& parent) {
    return ::CreateWindowExA(0, "EDIT", "text", WS_CHILD, 0, 0, 50, 20, parent.GetHandle(),
                             reinterpret_cast<HMENU>(UINT_PTR{IDC_FIRST}), nullptr, nullptr);
}

class Window : public testing::Test {
protected:
    struct CParent : CWnd {
        CParent() { Create("STATIC", "Parent", WS_OVERLAPPEDWINDOW, {0, 0, 200, 100}, nullptr, 0); }
    } parent;
    const LONG_PTR editProcedure = ::GetWindowLongPtrA(MakeEdit(parent), GWLP_WNDPROC);
};

// Objects and windows come together, part and end in any order, from outside and from within their handlers.
TEST_F(Window, FollowsTheModelThroughRandomOperations) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    struct Model {
        std::unique_ptr<CMortal> object;
        int window = -1; // none
        bool owned = false;
    };
    Model models[4];
    HWND windows[4]{};
    int lost = CMortal::windowsLost = 0;
    for (Model& model : models) model.object = std::make_unique<CMortal>();
    const auto partner = [&](int window) -> Model* {
        Model* const found = std::ranges::find(models, window, &Model::window);
        return found != std::end(models) ? found : nullptr;
    };
    for (int round = 0; round < 3000; ++round) {
        const auto operation = random() % 8;
        SCOPED_TRACE(FormatText("round %d, operation %u", round, static_cast<unsigned>(operation)));
        const int at = static_cast<int>(random() % 4);
        const bool inHandler = random() % 2 == 0;
        HWND& window = windows[at];
        Model &model = models[random() % 4], *const holder = partner(at);
        auto& [object, own, owned] = model;
        if (operation == 0 && window == nullptr) {
            window = MakeEdit(parent);
        } else if (operation == 1) {
            const bool fits = own < 0 && window != nullptr && holder == nullptr;
            ASSERT_EQ(object->SubclassWindow(window), fits);
            if (fits) own = at;
        } else if (operation == 2) {
            ASSERT_EQ(object->UnsubclassWindow(), own < 0 ? nullptr : windows[own]);
            own = -1, owned = false;
        } else if (operation == 3 && window == nullptr) {
            const bool made = object->Create("EDIT", "", WS_CHILD, {0, 0, 9, 9}, parent.GetHandle(), IDC_FIRST);
            ASSERT_EQ(made, own < 0);
            if (made) window = object->GetHandle(), own = at, owned = true;
        } else if (operation == 4 && window != nullptr) {
            ASSERT_NE(inHandler ? ::SendMessageA(window, destroyWindow, 0, 0) : ::DestroyWindow(window), -1);
            if (inHandler && holder == nullptr) continue; // its own procedure doesn't know that message
            if (holder != nullptr) ++lost, holder->window = -1, holder->owned = false;
            ASSERT_FALSE(::IsWindow(std::exchange(window, nullptr)));
        } else if (operation == 5) {
            if (inHandler && own >= 0) object.release()->SendMessage(deleteObject);
            object = std::make_unique<CMortal>();
            ASSERT_FALSE(owned && ::IsWindow(std::exchange(windows[own], nullptr)));
            own = -1, owned = false;
        } else if (operation == 6 && window != nullptr) {
            CWnd* const found = CWnd::FromHandle(window);
            ASSERT_TRUE(holder != nullptr ? found == holder->object.get() : found->GetHandle() == window);
            ASSERT_EQ(CWnd::FromHandle(window), found);
        } else if (operation == 7) {
            DropTemporaryWrappers();
        }
        ASSERT_EQ(CMortal::windowsLost, lost);
        for (const Model& each : models)
            ASSERT_EQ(each.object->GetHandle(), each.window < 0 ? nullptr : windows[each.window]);
        for (int i = 0; i < 4; ++i) {
            if (windows[i] == nullptr) continue;
            ASSERT_EQ(CWnd::FromHandlePermanent(windows[i]),
                      partner(i) != nullptr ? partner(i)->object.get() : nullptr);
            ASSERT_EQ(::GetWindowLongPtrA(windows[i], GWLP_WNDPROC) == editProcedure, partner(i) == nullptr);
            ::SetWindowTextA(windows[i], "other");
            ASSERT_EQ(::SendMessageA(windows[i], EM_LINELENGTH, 0, 0), 5); // as its own procedure alone answers
        }
    }
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

TEST_F(Window, AStyleIsTakenAtOnceAndAnUnknownClassMakesNone) {
    const LONG height = parent.GetClientRect().Height();
    parent.ModifyStyle(WS_CAPTION, 0, SWP_FRAMECHANGED);
    EXPECT_GT(parent.GetClientRect().Height(), height);
    CWnd none;
    EXPECT_FALSE(none.Create("no such class", "", WS_POPUP, {0, 0, 9, 9}, nullptr, 0));
}

} // namespace
