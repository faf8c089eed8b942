#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "hostkit/structures/files.h"
#include "hostkit/structures/tree.h"
#include "tests/db/choice.h"
#include "tests/support/panel_host.h"

// Several lists of one host at once, under random events, while objects, files and windows come and go: nothing
// crashes, nothing is reported, and afterwards each list is what a new one would be.

using namespace test;

namespace {

class DatabaseStorm : public Panel_Host {
protected:
    void blow(int steps)
    {
        for (int i = 0; i < steps; ++i)
            choice_.one_in(3) ? change() : event();
        for (const HWND window : windows_)
            release(window, {-1, -1});
        hold_keys(false, false);
    }

    template <class Panel>
    void expect_like_new(Panel& panel)
    {
        Fct_Update(0x402, nullptr, nullptr, nullptr);
        Panel made(panel.mode);
        made.Update(0x400);
        ASSERT_EQ(panel.nb, made.nb);
        for (int i = 0; i < made.nb; ++i) {
            const DB_List &one = panel.list_pt[i], &other = made.list_pt[i];
            EXPECT_EQ(one.object, other.object);
            EXPECT_EQ(one.state, other.state);
            EXPECT_EQ(one.select, other.select);
            EXPECT_EQ(one.line, other.line);
            EXPECT_STREQ(one.name, other.name);
        }
    }

    hostkit::Panel_Slot<Tool_DB_Class> signals_{main_window(), {}, 1}, images_{main_window(), {}, 2},
        surfaces_{main_window(), {}, 3};
    hostkit::Panel_Slot<Tool_DB_File> files_{main_window(), {}};

private:
    Choice choice_{5};
    std::array<HWND, 4> windows_{signals_.window(), images_.window(), surfaces_.window(), files_.window()};
    std::vector<Strato_2D*> made_;
    std::vector<File_Record*> opened_;

    Place place() { return {choice_.from(-20, 320), choice_.from(-20, 280)}; }

    void event()
    {
        const HWND window = choice_.of(windows_);
        switch (choice_.from(0, 9)) {
        case 0:
        case 1:
            return press(window, place(), choice_.one_in(3) ? Button::right : Button::left);
        case 2:
            return release(window, place());
        case 3:
        case 4:
        case 5:
            return move(window, place());
        case 6:
            return turn_wheel(window, place(), 60 * choice_.from(-5, 5));
        case 7:
            return hold_keys(choice_.one_in(3), choice_.one_in(3));
        case 8:
            SendMessageA(window, choice_.one_in(2) ? WM_MOUSELEAVE : WM_PAINT, 0, 0);
            return;
        default:
            MoveWindow(window, 0, 0, choice_.from(0, 320), choice_.from(0, 280), TRUE);
        }
    }

    void change()
    {
        switch (choice_.from(0, 9)) {
        case 0:
        case 1:
            return add_object();
        case 2:
            return remove_object();
        case 3:
            return open_file();
        case 4:
            return close_file();
        case 5:
            return show_frame();
        case 6:
            return select();
        case 7:
            return change_window();
        case 8:
            return add_elsewhere();
        default:
            Fct_Update(1ull << choice_.from(0, 2) | 1ull << choice_.from(8, 10) | 1ull << choice_.from(20, 63), nullptr,
                nullptr, nullptr);
        }
    }

    Strato_2D* some_object()
    {
        return made_.empty() || choice_.one_in(5) ? hostkit::Root_2D()
                                                  : made_[static_cast<size_t>(choice_.from(0, last(made_)))];
    }

    template <class T>
    static int last(const std::vector<T>& things)
    {
        return static_cast<int>(things.size()) - 1;
    }

    void add_object()
    {
        static constexpr std::array titles{"Series", "Acquisition", "Cuda_Volume", ""};
        Strato_2D* const parent = some_object();
        made_.push_back(
            choice_.one_in(2)
                ? hostkit::Object_2D_Add(parent, {.name = "o", .title = choice_.of(titles)})
                : hostkit::Frame_Add(parent,
                      {.name = "f", .title = "Frame", .class_a = hostkit::frame_class, .magic = hostkit::frame_magic}));
        Fct_Update(0x402, nullptr, nullptr, nullptr);
    }

    void remove_object()
    {
        if (made_.empty())
            return;
        Strato_2D* const removed = made_[static_cast<size_t>(choice_.from(0, last(made_)))];
        std::erase_if(made_, [removed](Strato_2D* object) {
            while (object && object != removed)
                object = object->Parent_Get_Pt();
            return object == removed;
        });
        hostkit::Object_2D_Remove(removed);
    }

    void open_file()
    {
        const std::vector<hostkit::Frame_Description> frames(
            static_cast<size_t>(choice_.from(0, 4)), {{0x4D52, 0, 8, 8, 1, 1}, !choice_.one_in(4)});
        opened_.push_back(hostkit::File_Add(choice_.one_in(2) ? "/a/one" : "/b/two", frames));
        Fct_Update(0x402, nullptr, nullptr, nullptr);
    }

    void close_file()
    {
        if (opened_.empty())
            return;
        File_Record* const closed = opened_[static_cast<size_t>(choice_.from(0, last(opened_)))];
        std::erase(opened_, closed);
        hostkit::File_Remove(closed);
    }

    void show_frame()
    {
        if (opened_.empty() || made_.empty())
            return;
        hostkit::Frame_Shows(some_object(), opened_[static_cast<size_t>(choice_.from(0, last(opened_)))],
            static_cast<unsigned short>(choice_.from(0, 4)));
    }

    void select()
    {
        some_object()->Flag_Set_On(16, reinterpret_cast<void*>(4), 512);
        Fct_Update(0x102, nullptr, nullptr, nullptr);
    }

    void change_window()
    {
        hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR") =
            choice_.one_in(2) ? nullptr : hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR");
        if (!hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR") &&
            hostkit::Variable<unsigned short>("$WINDOW_NB") < 16)
            hostkit::Window_Add("w");
        Fct_Update(0x100000, nullptr, nullptr, nullptr);
    }

    void add_elsewhere()
    {
        hostkit::Object_1D_Add(hostkit::Root_1D(), {.title = "Signal", .class_a = hostkit::signal_class});
        hostkit::Object_3D_Add(hostkit::Root_3D(), {.title = "Surface", .class_a = hostkit::object_class});
        Fct_Update(choice_.one_in(2) ? 0x401 : 0x404, nullptr, nullptr, nullptr);
    }
};

}

TEST_F(DatabaseStorm, LeavesEveryListAsANewOneWouldBe)
{
    for (int round = 0; round < 20; ++round) {
        blow(300);
        expect_like_new(signals_.panel());
        expect_like_new(images_.panel());
        expect_like_new(surfaces_.panel());
        expect_like_new(files_.panel());
    }
    EXPECT_EQ(reports.texts(1), std::vector<std::string>());
    EXPECT_EQ(reports.texts(2), std::vector<std::string>());
}
