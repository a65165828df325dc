// The message box in its skin, and where the links of About lead.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "dialogs/AboutDlg.h"
#include "dialogs/MessageDlg.h"
#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "support/Handles.h"
#include "support/Meanwhile.h"

namespace {

// Shows a dialog, looks at it, and leaves it by a command.
void Visit(const std::function<void()>& show, int leave, const std::function<void(HWND)>& look) {
    const CMeanwhile meanwhile([&] {
        const HWND dialog = ShownDialog();
        if (dialog == nullptr) return false;
        look(dialog);
        ::SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(leave), 0);
        return true;
    });
    show();
}

TEST(MessageDlg, GrowsWithItsTextAndTellsHowItWasLeft) {
    const std::tuple<int, std::size_t, int, const char*, int, const char*> rows[] = {
        {0, 0, 150, "45,40,74,22", IDC_MESSAGE_OK, ""},
        {0, 55, 480, "210,40,74,22", IDOK, "Title"},
        {1, 55, 480, "160,40,74,22", IDC_MESSAGE_OK, ""},
        {1, 55, 480, "160,40,74,22", IDC_MESSAGE_CANCEL, ""},
        {2, 55, 480, "40,40,74,22", IDCANCEL, ""}};
    for (const auto& row : rows) {
        const auto& [style, bytes, width, okPlace, leave, caption] = row;
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        CMessageDlg message;
        message.style = style;
        message.text = std::string(bytes, 'm');
        message.caption = caption;
        const auto look = [&](HWND dialog) {
            const CRect window = CWnd::FromHandle(dialog)->GetWindowRect();
            EXPECT_TRUE(window.Width() == width && window.Height() == 120);
            const std::string panel = std::to_string(width - 5), text = std::to_string(width - 40);
            EXPECT_EQ(PlaceText(FindControl(dialog, IDC_MESSAGE_PANEL)), "0,0," + panel + ",88");
            EXPECT_EQ(PlaceText(FindControl(dialog, IDC_MESSAGE_TEXT)), "20,10," + text + ",24");
            EXPECT_EQ(PlaceText(FindControl(dialog, IDC_MESSAGE_OK)), okPlace);
            EXPECT_EQ(PlaceText(FindControl(dialog, IDC_MESSAGE_CANCEL)), "192,40,74,22");
            EXPECT_EQ(::IsWindowVisible(FindControl(dialog, IDC_MESSAGE_CANCEL)) != FALSE, style != 0);
            EXPECT_EQ(TextOf(FindControl(dialog, IDC_MESSAGE_TEXT)), message.text);
            EXPECT_EQ(TextOf(FindControl(dialog, IDC_MESSAGE_OK)), "OK");
            EXPECT_EQ(TextOf(FindControl(dialog, IDC_MESSAGE_CANCEL)), "Cancel");
            EXPECT_EQ(TextOf(dialog), *caption != '\0' ? caption : PRODUCT_TITLE);
            const auto* ok = dynamic_cast<CSkinButton*>(CWnd::FromHandlePermanent(FindControl(dialog, IDC_MESSAGE_OK)));
            EXPECT_TRUE(ok->Shows("OK", 0xFF0000));
        };
        message.cancelled = style == 0;
        Visit([&] { message.DoModal(); }, leave, look);
        EXPECT_EQ(message.cancelled, leave == IDCANCEL || leave == IDC_MESSAGE_CANCEL);
        Visit([&] { EXPECT_EQ(ShowMessage(message.text, caption, style), 0); }, leave, look);
    }
    ExpectNoGdiObjectLost(20, [] { Visit([] { ShowMessage("A message.", {}, 0); }, IDOK, [](HWND) {}); });
}

TEST(AboutDlg, ItsLinksLeadToTheMaker) {
    CAboutDlg about;
    Visit([&] { about.DoModal(); }, IDOK,
          [](HWND dialog) {
              const auto target = [&](int id) {
                  auto* const link = dynamic_cast<CLinkStatic*>(CWnd::FromHandlePermanent(FindControl(dialog, id)));
                  return link != nullptr ? link->GetTarget() : "no link";
              };
              EXPECT_EQ(target(IDC_ABOUT_WEB_LINK), PRODUCT_WEB);
              EXPECT_EQ(target(IDC_ABOUT_MAIL_LINK), "mailto:" PRODUCT_MAIL);
          });
}

} // namespace
