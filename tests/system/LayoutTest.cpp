// Where each control of the panel stands at the start, in whose window, whether it can be seen and pressed: as in
// layout.txt, also where fonts are lacking. What a failing run finds can be put there once it has been judged.
#include <fstream>
#include <sstream>

#include "SystemTest.h"

namespace {

TEST_F(SystemTest, EveryControlStandsInItsPlaceInBothLanguages) {
    std::ostringstream expected;
    expected << std::ifstream(CProgram::Folder() + "..\\tests\\layout.txt").rdbuf();
    for (const DWORD language : {0, 1}) {
        Store("Language", language);
        StartProgram();
        std::ostringstream places;
        FindBelow(program.Frame(), [&](HWND child) {
            const int parent = ::GetDlgCtrlID(::GetParent(child));
            if (parent == IDC_DATE_PICKER) return false; // the picker's own arrows
            places << ::GetDlgCtrlID(child) << " in " << parent << ": " << PlaceText(child)
                   << (::IsWindowVisible(child) ? "" : ", hidden") << (::IsWindowEnabled(child) ? "" : ", disabled")
                   << '\n';
            return false;
        });
        EXPECT_EQ(places.str(), expected.str()) << "language " << language;
        EXPECT_EQ(program.Close(), 0U);
    }
}

} // namespace
