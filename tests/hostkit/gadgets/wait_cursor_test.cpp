#include "tests/hostkit/gadgets/widget_fixture.h"

namespace {

// The cursor that is shown; asking puts it back.
HCURSOR shown()
{
    const HCURSOR present = SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    SetCursor(present);
    return present;
}

HCURSOR system_cursor(LPCSTR name)
{
    return LoadCursorA(nullptr, name);
}

class WaitCursor : public test::Widgets {
protected:
    WaitCursor() { SetCursor(system_cursor(IDC_CROSS)); }
};

}

TEST_F(WaitCursor, IsShownUntilItIsReset)
{
    Set_Curs_Wait(nullptr);
    EXPECT_EQ(shown(), system_cursor(IDC_WAIT));
    Reset_Curs_Wait(nullptr);
    EXPECT_EQ(shown(), system_cursor(IDC_CROSS));
}

TEST_F(WaitCursor, NestsByCountWhateverTheWindow)
{
    Set_Curs_Wait(nullptr);
    Set_Curs_Wait(main_window());
    Reset_Curs_Wait(nullptr);
    EXPECT_EQ(shown(), system_cursor(IDC_WAIT));
    Reset_Curs_Wait(main_window());
    EXPECT_EQ(shown(), system_cursor(IDC_CROSS));
}

TEST_F(WaitCursor, AResetTooManyChangesNothing)
{
    Reset_Curs_Wait(nullptr);
    EXPECT_EQ(shown(), system_cursor(IDC_CROSS));
    Set_Curs_Wait(nullptr);
    EXPECT_EQ(shown(), system_cursor(IDC_WAIT)) << "nothing is owed";
    Reset_Curs_Wait(nullptr);
}
