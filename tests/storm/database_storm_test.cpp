#include "db/tool_db_class.h"
#include "hostkit/structures/tree.h"
#include "tests/support/modal_work.h"
#include "tests/support/panel_host.h"

#include <array>
#include <random>
#include <set>
#include <utility>

// A database that is edited and browsed at the same time, by thousands of random events and changes of the host: its
// tree stays a tree, and the lists show it.

namespace {

using hostkit::Object_Variable;
using hostkit::Variable;
using Slot = hostkit::Panel_Slot<Tool_DB_Class>;

/// All objects from a root down, in the order of the rows. A failure is recorded where they are no tree.
class Preorder {
public:
    explicit Preorder(Strato_2D* root)
    {
        if (root)
            visit(root, nullptr);
    }

    std::vector<void*> objects;

private:
    void visit(Strato_2D* object, const Strato_2D* parent)
    {
        ASSERT_TRUE(seen_.insert(object).second) << "an object twice";
        ASSERT_EQ(object->Parent_Get_Pt(), parent);
        objects.push_back(object);
        for (int i = 0; i < object->Child_Get_Nb(); ++i) {
            ASSERT_EQ(object->Child_Get_Id(object->Child_Get_Pt(i)), i);
            visit(object->Child_Get_Pt(i), object);
        }
    }

    std::set<void*> seen_;
};

std::vector<void*> objects_of(const Tool_DB_List& panel)
{
    std::vector<void*> objects;
    for (int i = 0; i < panel.nb; ++i)
        objects.push_back(panel.list_pt[i].object);
    return objects;
}

bool is_in(const Tools& box, test::Place place)
{
    return place.x >= box.x && place.x < box.x + box.width && place.y >= box.y && place.y < box.y + box.height;
}

class Database_Storm {
public:
    Database_Storm(Slot& edited, Slot& also_edited, Slot& browsed, unsigned seed)
        : slots_{&edited, &also_edited, &browsed}, random_(seed)
    {
        for (Slot* slot : slots_) {
            MoveWindow(slot->window(), 0, 0, 900, 400, TRUE);
            ShowWindow(slot->window(), SW_SHOW);
        }
        for (int i = 0; i < 8; ++i)
            add();
        tell();
    }

    void blow(int steps)
    {
        for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i) {
            step();
            check();
        }
    }

    int dialogs() const { return dialogs_; }
    int moves() const { return moves_; }

private:
    int pick(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

    // Most often the same as before, so that something comes of what was begun.
    Slot& slot()
    {
        if (pick(0, 5) == 0)
            at_work_ = static_cast<size_t>(pick(0, 2));
        return *slots_[at_work_];
    }

    static Strato_2D* root() { return hostkit::Root_2D(); }
    static void tell() { Fct_Update(0x402, nullptr, nullptr, nullptr); }

    Strato_2D* any_object()
    {
        const Preorder all(root());
        return static_cast<Strato_2D*>(
            all.objects[static_cast<size_t>(pick(0, static_cast<int>(all.objects.size()) - 1))]);
    }

    // Most often on a part of a box that is seen.
    test::Place place(const Tool_DB_List& panel, int first_part = 0)
    {
        if (panel.nb == 0 || pick(0, 4) == 0)
            return {pick(-30, 930), pick(-30, 430)};
        test::Place found{};
        for (int attempt = 0; attempt < 20 && !is_in(panel.list_box, found); ++attempt)
            found = place_of(panel, panel.list_pt[pick(0, panel.nb - 1)], pick(first_part, 3));
        return found;
    }

    test::Place place_of(const Tool_DB_List& panel, const DB_List& row, int part)
    {
        constexpr std::array parts{125, 290, 0, 250};
        const auto origin = panel.Origin();
        return {origin.x + 330 * row.level + parts[static_cast<size_t>(part)] + pick(-4, 4),
            origin.y - 50 * row.line - 30 + pick(-4, 4)};
    }

    void step()
    {
        Slot& one = slot();
        const HWND window = one.window();
        const test::Place at = place(one.panel());
        switch (pick(0, 20)) {
        case 0:
        case 1:
        case 2:
            return test::press(window, at);
        case 3:
            return right_press(window, at);
        case 4:
        case 5:
        case 6:
            return release(window, at);
        case 7:
        case 8:
            return test::move(window, at);
        case 9:
            return test::turn_wheel(window, at, pick(-5, 5) * 60);
        case 10:
            if (pick(0, 2) == 0)
                test::key(window, VK_DELETE);
            return;
        case 11:
            return test::key(window, pick(33, 46) == VK_DELETE ? VK_INSERT : pick(33, 45));
        case 12:
            MoveWindow(window, 0, 0, pick(0, 2400), pick(0, 1200), TRUE);
            return;
        case 13:
            SendMessageA(window, WM_MOUSELEAVE, 0, 0);
            return;
        case 14:
            return change_tree();
        case 15:
            return change_interface();
        case 16:
            return lose_tree();
        case 17:
        case 18:
        case 19:
            test::press(window, place(one.panel(), 2));
            test::move(window, at);
            return release(window, place(one.panel(), 3));
        default:
            one.panel().Draw();
            Fct_Update(1ull << pick(0, 63) | 1ull << pick(0, 47), nullptr, nullptr, nullptr);
        }
    }

    void release(HWND window, test::Place at)
    {
        const auto before = Preorder(root()).objects;
        test::release(window, at);
        moves_ += Preorder(root()).objects != before;
    }

    // May open the dialog for a name, which is used a little and closed.
    void right_press(HWND window, test::Place at)
    {
        post_dialog_work();
        test::press(window, at, test::Button::right);
    }

    void post_dialog_work()
    {
        modal_.post([this](HWND) {
            const HWND dialog = GetActiveWindow();
            if (!dialog || dialog == hwnd)
                return post_dialog_work();
            ++dialogs_;
            for (int i = pick(0, 4); i > 0; --i)
                SendMessageA(dialog, WM_KEYDOWN, static_cast<WPARAM>(pick(8, 90)), 0);
            if (pick(0, 3) == 0)
                change_tree();
            for (int i = pick(0, 4); i > 0 && IsWindowVisible(dialog); --i)
                test::click(dialog, {pick(0, 480), pick(0, 40)});
            if (IsWindow(dialog) && IsWindowVisible(dialog))
                SendMessageA(dialog, WM_CLOSE, 0, 0);
        });
    }

    Strato_2D* add()
    {
        constexpr std::array<unsigned, 5> classes{0x2001, 0x2100, hostkit::frame_class, 0x2FFF, 0};
        constexpr std::array<const char*, 5> titles{"Study", "Series", "a/b", "", "Frame"};
        return hostkit::Object_2D_Add(any_object(), {.name = std::to_string(++added_),
                                                        .title = titles[static_cast<size_t>(pick(0, 4))],
                                                        .class_a = classes[static_cast<size_t>(pick(0, 4))]});
    }

    void change_tree()
    {
        const size_t size = Preorder(root()).objects.size();
        if (size > 60 || (size > 3 && pick(0, 5) == 0))
            return hostkit::Object_2D_Remove(any_object());
        for (int i = pick(1, 4); i > 0; --i)
            add();
        tell();
    }

    void change_interface()
    {
        Variable<short>("$INTERFACE_SPACE_DIM") = static_cast<short>(pick(0, 12));
        Variable<short>("$INTERFACE_BUTTON_DIM_SML") = static_cast<short>(pick(0, 40));
        Variable<short>("$INTERFACE_VAL_DIM_SML") = static_cast<short>(pick(0, 30));
        slot().host().Lay_Out();
    }

    // The tree goes away and comes back.
    void lose_tree()
    {
        auto*& variable = Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
        Strato_2D* const kept = std::exchange(variable, nullptr);
        tell();
        Slot& one = slot();
        test::press(one.window(), place(one.panel()));
        test::key(one.window(), VK_DELETE);
        variable = kept;
        tell();
    }

    void check()
    {
        const Preorder tree(root());
        ASSERT_FALSE(::testing::Test::HasFailure());
        ASSERT_EQ(Y_DC, nullptr) << "what was set up is released";
        for (const Slot* one : slots_)
            ASSERT_EQ(objects_of(one->panel()), tree.objects);
    }

    std::array<Slot*, 3> slots_;
    size_t at_work_ = 0;
    std::mt19937 random_;
    test::Modal_Work modal_;
    int added_ = 0;
    int dialogs_ = 0;
    int moves_ = 0;
};

class DatabaseEditStorm : public test::Panel_Host, public ::testing::WithParamInterface<unsigned> {};

}

TEST_P(DatabaseEditStorm, LeavesATree)
{
    constexpr int edit_the_2d_tree = 18, browse_it = 2;
    Slot edited(main_window(), {}, int(edit_the_2d_tree)), also_edited(main_window(), {}, int(edit_the_2d_tree)),
        browsed(main_window(), {}, int(browse_it));
    hostkit::Window_Add("images");
    Database_Storm storm(edited, also_edited, browsed, GetParam());
    storm.blow(10000);
    EXPECT_GT(storm.dialogs(), 10);
    EXPECT_GT(storm.moves(), 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, DatabaseEditStorm, ::testing::Range(1u, 3u));
