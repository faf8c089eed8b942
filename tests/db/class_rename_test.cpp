#include "db/class_rename.h"
#include "tests/db/diagram.h"
#include "tests/support/modal_work.h"

#include <cstring>

// The dialog for a class's name, opened by the right button on a box or by itself.

using namespace test;
using Words = std::vector<unsigned long long>;

namespace {

// A key that types a character: that waits behind it.
void erase(HWND dialog)
{
    PostMessageA(dialog, WM_CHAR, VK_BACK, 0);
    SendMessageA(dialog, WM_KEYDOWN, VK_BACK, 0);
}

// Where things are in it, as wide and high as it is.
struct Dialog_Places {
    explicit Dialog_Places(HWND dialog)
    {
        RECT client{};
        GetClientRect(dialog, &client);
        const int space = hostkit::Variable<short>("$INTERFACE_SPACE_DIM");
        const int button = hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_BIG");
        const int width = (client.right - 1 - 3 * space) / 2;
        save = {space + width / 2, space + button / 2};
        cancel = {space + width + SPACE + width / 2, space + button / 2};
        field = {client.right / 2, space + button + space + button / 2};
        between = {space + width + SPACE / 2, space + button / 2};
        prompt = {client.right / 2, client.bottom - 20};
    }

    Place save{}, cancel{}, field{}, between{}, prompt{};
};

}

class ClassRename : public Database_Diagram {
protected:
    using Work = std::function<void(HWND dialog)>;

    // Opens the dialog with the right button; does something in it, and closes it if it is still open.
    void rename(Place place, const Work& work)
    {
        post(work);
        press(window(), place, Button::right);
        release(window(), place);
        EXPECT_TRUE(modal_.done());
    }

    int rename(char* name, std::size_t capacity, const Work& work)
    {
        post(work);
        const int result = DB_Class_Rename(panel().list_box, name, capacity);
        EXPECT_TRUE(modal_.done());
        return result;
    }

    // The dialog becomes the active window some time after its loop has begun.
    void post(const Work& work)
    {
        modal_.post([this, work](HWND) {
            const HWND dialog = GetActiveWindow();
            if (!dialog || dialog == main_window())
                return post(work);
            work(dialog);
            if (IsWindow(dialog) && IsWindowVisible(dialog))
                SendMessageA(dialog, WM_CLOSE, 0, 0);
        });
    }

private:
    Modal_Work modal_;
};

TEST_F(ClassRename, SavedNameIsTheClasss)
{
    rename(body(one), [](HWND dialog) {
        SendMessageA(dialog, WM_KEYDOWN, VK_END, 0);
        erase(dialog);
        click(dialog, Dialog_Places(dialog).save);
    });
    EXPECT_STREQ(one->Name_Get(), "on");
    EXPECT_EQ(broadcasts(), Words{0x402});
    EXPECT_NE(one->Flag_Get_Bit(16, reinterpret_cast<void*>(8), 0x10000000), 0);
    EXPECT_NE(root->Flag_Get_Bit(16, reinterpret_cast<void*>(8), 0x10000000), 0) << "and what it lies in";
    EXPECT_STREQ(panel().list_pt[row_of(one)].name, "on") << "the rows follow";
    EXPECT_FALSE(db::drag.going_on);
}

TEST_F(ClassRename, CancelAndClosingLeaveTheName)
{
    rename(body(one), [](HWND dialog) {
        erase(dialog);
        click(dialog, Dialog_Places(dialog).cancel);
    });
    rename(body(one), [](HWND dialog) {
        erase(dialog);
        SendMessageA(dialog, WM_CLOSE, 0, 0);
    });
    EXPECT_STREQ(one->Name_Get(), "one");
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(ClassRename, EmptySpaceNamesTheRoot)
{
    rename(empty_space(), [](HWND dialog) {
        erase(dialog);
        click(dialog, Dialog_Places(dialog).save);
    });
    EXPECT_STREQ(root->Name_Get(), "Image");
}

TEST_F(ClassRename, OnlyThePlainRightButtonOpensIt)
{
    point(window(), body(one));
    for (const int word : {18, 34, 66 + 16, 64}) {
        panel().Click(word);
        EXPECT_EQ(IsWindowEnabled(main_window()), TRUE);
    }
    EXPECT_STREQ(one->Name_Get(), "one");
}

TEST_F(ClassRename, OpensWithTheNameAtItsPlaceAndSize)
{
    rename(body(one), [&](HWND dialog) {
        char caption[64] = {};
        GetWindowTextA(dialog, caption, sizeof caption);
        EXPECT_STREQ(caption, "Class Rename");
        RECT client{};
        GetClientRect(dialog, &client);
        const auto units = static_cast<unsigned>(GetDialogBaseUnits());
        EXPECT_EQ(client.right, 1920 / LOWORD(units) * LOWORD(units) / 4);
        EXPECT_EQ(client.bottom, 1200 / HIWORD(units) * HIWORD(units) / 8);
        UpdateWindow(dialog);
        keep_picture(dialog, "class_rename");
    });
}

TEST_F(ClassRename, WhatIsTypedIsInTheBufferAtOnce)
{
    char name[32] = "one";
    const int result = rename(name, sizeof name, [&](HWND dialog) {
        UpdateWindow(dialog);
        erase(dialog);
        EXPECT_STREQ(name, "on");
        SendMessageA(dialog, WM_KEYDOWN, VK_HOME, 0);
        SendMessageA(dialog, WM_KEYDOWN, VK_DELETE, 0);
        EXPECT_STREQ(name, "n");
        SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        EXPECT_STREQ(name, "one") << "Escape restores what was there";
        EXPECT_TRUE(IsWindow(dialog)) << "and closes nothing";
        erase(dialog);
        SendMessageA(dialog, WM_COMMAND, IDOK, 0);
        EXPECT_STREQ(name, "on") << "nor does Enter";
        erase(dialog);
        EXPECT_STREQ(name, "o") << "and editing goes on";
        SendMessageA(dialog, WM_KEYDOWN, VK_TAB, 0);
        EXPECT_STREQ(name, "o");
    });
    EXPECT_EQ(result, 2);
}

TEST_F(ClassRename, ButtonsEndItWhereTheMouseComesUp)
{
    char name[32] = "one";
    EXPECT_EQ(rename(name, sizeof name,
                  [](HWND dialog) {
                      const Dialog_Places places(dialog);
                      press(dialog, places.save);
                      release(dialog, places.prompt);
                      EXPECT_TRUE(IsWindowVisible(dialog)) << "not over a button";
                      click(dialog, places.between);
                      EXPECT_TRUE(IsWindowVisible(dialog));
                      press(dialog, places.save);
                      release(dialog, places.cancel);
                  }),
        2);
    EXPECT_EQ(rename(name, sizeof name, [](HWND dialog) { click(dialog, Dialog_Places(dialog).save); }), 1);
}

TEST_F(ClassRename, PressedButtonIsShownAndTheWheelDoesNothing)
{
    char name[32] = "one";
    rename(name, sizeof name, [&](HWND dialog) {
        const Dialog_Places places(dialog);
        UpdateWindow(dialog);
        const auto before = pixels(dialog);
        press(dialog, places.save);
        EXPECT_NE(pixels(dialog), before);
        release(dialog, places.prompt);
        move(dialog, places.prompt);
        EXPECT_EQ(pixels(dialog), before);
        for (int i = 0; i < 5; ++i)
            turn_wheel(dialog, places.field, 100);
        move(dialog, places.save);
        EXPECT_EQ(pixels(dialog), before);
        EXPECT_STREQ(name, "one");
    });
}

TEST_F(ClassRename, LongNamesStayWhole)
{
    const std::string long_name(5000, 'm');
    one->Name_Set(long_name.c_str());
    rename(body(one), [](HWND dialog) { click(dialog, Dialog_Places(dialog).save); });
    EXPECT_EQ(one->Name_Get(), long_name);
    one->Name_Set("");
    rename(body(one), [](HWND dialog) { click(dialog, Dialog_Places(dialog).save); });
    EXPECT_STREQ(one->Name_Get(), "");
}

TEST_F(ClassRename, AnyBytesStayWhole)
{
    std::string bytes;
    for (int one_byte = 1; one_byte < 256; ++one_byte)
        bytes += static_cast<char>(one_byte);
    one->Name_Set(bytes.c_str());
    rename(body(one), [](HWND dialog) {
        UpdateWindow(dialog);
        click(dialog, Dialog_Places(dialog).save);
    });
    EXPECT_EQ(one->Name_Get(), bytes);
}

TEST_F(ClassRename, OtherDimensionsHaveWordsOfTheirOwn)
{
    Strato_1D* const signal = hostkit::Object_1D_Add(hostkit::Root_1D(), {.name = "first"});
    Strato_3D* const volume = hostkit::Object_3D_Add(hostkit::Root_3D(), {.name = "first"});
    const auto rename_first = [&](int mode) {
        Tool_DB_Class edited(mode);
        Boxs area = panel().box;
        area.window = window();
        edited.Resize(&area);
        edited.Update(0x400);
        const auto at_once = hostkit::On_Update([&](unsigned long long flags) { edited.Update(flags); });
        unsigned long long redrawn = 0;
        const auto redraws = hostkit::On_Redraw([&](unsigned long long mask) { redrawn |= mask; });
        post([](HWND dialog) {
            erase(dialog);
            click(dialog, Dialog_Places(dialog).save);
        });
        const auto origin = edited.Origin();
        point(window(), {origin.x + 330 + 125, origin.y - 30});
        EXPECT_EQ(edited.Click(66), 1);
        return std::pair(broadcasts(), redrawn);
    };
    EXPECT_EQ(rename_first(17), std::pair(Words{0x401}, 0x0FFFFFFFull));
    EXPECT_STREQ(signal->Name_Get(), "firs");
    EXPECT_EQ(rename_first(19), std::pair(Words{0x404}, 0x33FFFFFF00000000ull));
    EXPECT_STREQ(volume->Name_Get(), "firs");
    EXPECT_NE(hostkit::Root_3D()->Flag_Get_Bit(16, reinterpret_cast<void*>(8), 0x10000000), 0);
}

TEST_F(ClassRename, ClassMayBeDeletedMeanwhile)
{
    rename(body(one), [&](HWND dialog) {
        erase(dialog);
        hostkit::Object_2D_Remove(one);
        hostkit::Object_2D_Remove(study_y);
        click(dialog, Dialog_Places(dialog).save);
    });
    EXPECT_EQ(tree(), "root(x(a(two three)))");
    EXPECT_EQ(panel().nb, 5);
}

// Nothing is being drawn while the dialog waits, so that its own windows and the host's can be.
TEST_F(ClassRename, OpensOutsideOfAllDrawing)
{
    rename(body(one), [](HWND) { EXPECT_EQ(Y_DC, nullptr); });
}

// Cut to what there is room for, never within a character.
TEST_F(ClassRename, SmallBufferIsNotOverrun)
{
    char name[8] = "a\xC3\xA4\xC3\xA4\xC3\xA4";
    name[7] = 0;
    rename(name, 6, [&](HWND dialog) {
        UpdateWindow(dialog);
        SendMessageA(dialog, WM_KEYDOWN, VK_LEFT, 0);
        EXPECT_STREQ(name, "a\xC3\xA4\xC3\xA4");
    });
}
