#include "db/edit_state.h"
#include "db/edit_view.h"
#include "hostkit/structures/broadcast.h"
#include "tests/db/diagram.h"

#include <algorithm>
#include <utility>

// The diagram beside other panels, and a host that changes its tree meanwhile.

using namespace test;
using db::box_body;
using db::children_handle;
using db::fold_handle;
using db::parent_handle;

namespace {

const char* const untouched = "root(x(a(one two three)) y(four))";

// A panel of its own in the same window, fed by its events alone: nobody sees to it that a drag stays in it.
struct Bare_Panel {
    Bare_Panel(int mode, const Tool_DB_List& beside) : panel(mode)
    {
        Boxs area = beside.box;
        area.window = beside.box.window;
        panel.Resize(&area);
        panel.Update(0x402);
    }

    Tool_DB_Class panel;
};

}

class DatabaseEditHost : public Database_Diagram {
protected:
    // What the diagram looks like when all of it is painted.
    std::vector<COLORREF> painted()
    {
        panel().Draw();
        panel().Draw(); // the message is the same again
        return pixels(window());
    }

    std::vector<Strato_2D*> all() { return {root, study_x, series_a, one, two, three, study_y, four}; }
};

TEST_F(DatabaseEditHost, WhatIsDraggedInOnePanelIsNotDroppedInAnother)
{
    Bare_Panel other(18, panel());
    point(window(), part(two, parent_handle));
    panel().Click(18);
    point(window(), part(study_y, children_handle));
    other.panel.Motion(17);
    other.panel.Click(0);
    EXPECT_EQ(tree(), untouched);
    panel().Click(0);
    EXPECT_EQ(tree(), untouched) << "the drag had ended";
}

TEST_F(DatabaseEditHost, DragThatNobodyEndedIsForgottenWithTheNextOne)
{
    Bare_Panel other(2, panel());
    point(window(), part(two, parent_handle));
    panel().Click(18);
    point(window(), {panel().list_box.x + 200, panel().list_box.y + panel().list_box.height - 40});
    other.panel.Click(0);
    other.panel.Click(18);
    ASSERT_TRUE(db::drag.going_on) << "a rubber band";
    point(window(), part(study_y, children_handle));
    panel().Click(0);
    EXPECT_EQ(tree(), untouched);
    other.panel.Click(0);
}

TEST_F(DatabaseEditHost, ListsBesideFollow)
{
    hostkit::Panel_Slot<Tool_DB_Class> browsed(main_window(), {}, 2), edited(main_window(), {}, 18);
    for (const HWND beside : {browsed.window(), edited.window()})
        MoveWindow(beside, 0, 0, 500, 400, TRUE);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    drag(part(two, parent_handle), part(study_y, children_handle));
    for (Tool_DB_Class* beside : {&browsed.panel(), &edited.panel()}) {
        EXPECT_EQ(beside->nb, 8);
        EXPECT_EQ(beside->list_pt[7].object, two);
        EXPECT_EQ(beside->list_pt[7].parent, 5);
    }
}

TEST_F(DatabaseEditHost, ClassThatIsDeletedWhileItIsDraggedIsNotDropped)
{
    press(window(), part(two, parent_handle));
    move(window(), empty_space());
    hostkit::Object_2D_Remove(two);
    move(window(), body(one));
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one three)) y(four))");
}

TEST_F(DatabaseEditHost, TreeThatIsGoneLeavesNothingOfADrag)
{
    press(window(), part(two, parent_handle));
    move(window(), empty_space());
    auto*& kept = hostkit::Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
    Strato_2D* const before = std::exchange(kept, nullptr);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel().nb, 0);
    move(window(), {300, 300});
    const Boxs& box = panel().list_box;
    for (int y = box.y; y < box.y + box.height; y += 3) {
        for (int x = box.x; x < box.x + box.width; x += 3)
            ASSERT_EQ(pixel(window(), {x, y}), box.back) << x << ' ' << y;
    }
    release(window(), {300, 300});
    kept = before;
}

TEST_F(DatabaseEditHost, RowsOfAnotherListEndADrag)
{
    Tool_DB_Class fewer(17);
    hostkit::Root_1D();
    fewer.Update(0x401);
    ASSERT_EQ(fewer.nb, 1);
    press(window(), part(four, parent_handle));
    panel() = fewer;
    lay_out(1340, 600);
    const auto before = painted();
    move(window(), empty_space());
    EXPECT_EQ(pixels(window()), before);
    release(window(), empty_space());
}

// The object is still among the children of one that it does not name: only the host knows.
TEST_F(DatabaseEditHost, ClassThatTheHostRefusesStaysInItsPlace)
{
    series_a->Parent_Set_Pt(root);
    add(root, "Study", "z");
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    broadcasts();
    drag(part(study_x, parent_handle), part(series_a, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one two three)) y(four) z)");
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>());
}

TEST_F(DatabaseEditHost, TreesOfOneAndOfNoneTakeEverything)
{
    hostkit::Object_2D_Remove(study_x);
    hostkit::Object_2D_Remove(study_y);
    auto*& kept = hostkit::Object_Variable<Strato_2D>("$DB_2D_ROOT_PT");
    for (const int rows : {1, 0}) {
        Strato_2D* const before = rows == 0 ? std::exchange(kept, nullptr) : nullptr;
        Fct_Update(0x402, nullptr, nullptr, nullptr);
        ASSERT_EQ(panel().nb, rows);
        broadcasts();
        const auto origin = panel().Origin();
        for (const int x : {0, 125, 250, 290, 330}) {
            const Place place{origin.x + x, origin.y - 30};
            drag(place, {origin.x + 250, origin.y - 30});
            key(window(), VK_DELETE);
            turn_wheel(window(), place, -120);
        }
        EXPECT_TRUE(broadcasts().empty());
        if (before)
            kept = before;
    }
    EXPECT_EQ(tree(), "root");
}

TEST_F(DatabaseEditHost, TheLargestTreeIsRearrangedLikeASmallOne)
{
    Strato_2D* last = nullptr;
    for (int i = 0; i < 65540; ++i)
        last = add(study_y, "Frame", std::to_string(i));
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    ASSERT_EQ(panel().nb, 65535);
    last = static_cast<Strato_2D*>(panel().list_pt[65534].object);
    panel().vertical.value = panel().vertical.maximum;
    panel().Draw();
    press(window(), part(last, parent_handle));
    move(window(), empty_space());
    panel().vertical.value = 0;
    panel().Draw();
    const auto before = pixels(window());
    move(window(), empty_space());
    EXPECT_NE(pixels(window()), before) << "a line from far below";
    release(window(), part(series_a, children_handle));
    EXPECT_EQ(last->Parent_Get_Pt(), series_a);
    EXPECT_EQ(series_a->Child_Get_Nb(), 4);
}

// ---------------------------------------------------------------------------------------------------- the pictures

TEST_F(DatabaseEditHost, NothingThatTheDragPassesLeavesPixels)
{
    lay_out(1340, 260); // it scrolls
    press(window(), part(two, parent_handle));
    move(window(), body(one));
    const auto with_line = pixels(window());
    const auto clean = [&] {
        panel().Draw();
        panel().Draw();
        move(window(), body(one));
        return pixels(window());
    }();
    EXPECT_EQ(with_line, clean);
    for (Strato_2D* object : all()) {
        for (const auto handle : {box_body, parent_handle, children_handle, fold_handle}) {
            move(window(), part(object, handle));
            move(window(), body(one));
            EXPECT_EQ(pixels(window()), clean) << object->Name_Get() << ' ' << handle;
        }
    }
    const Boxs& below = panel().bottom_zone;
    for (int i = 0; i < 5; ++i)
        move(window(), {300 + 20 * i, below.y + below.height - 3});
    EXPECT_GT(panel().vertical.value, 0);
    move(window(), body(three));
    const auto scrolled = pixels(window());
    panel().Draw();
    panel().Draw();
    move(window(), body(three));
    EXPECT_EQ(pixels(window()), scrolled);
    turn_wheel(window(), body(three), 1200);
    release(window(), empty_space());
    EXPECT_EQ(pixels(window()), painted());
}

TEST_F(DatabaseEditHost, WhatIsFoldedAwayMeanwhileIsNotPointedFrom)
{
    press(window(), part(two, parent_handle));
    panel().list_pt[row_of(series_a)].state &= static_cast<unsigned short>(~DB_List::expanded);
    const auto before = painted();
    move(window(), empty_space());
    EXPECT_EQ(pixels(window()), before);
    release(window(), empty_space());
}

TEST_F(DatabaseEditHost, NothingStaysHighlightedWhenThePointerLeaves)
{
    const auto before = painted();
    move(window(), part(study_y, children_handle));
    ASSERT_NE(pixels(window()), before);
    move(window(), {panel().box.x + 3, panel().box.y + 3});
    EXPECT_EQ(pixels(window()), before);
    move(window(), body(one));
    ASSERT_NE(pixels(window()), before);
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(pixels(window()), before);
}

// It takes drops, although nothing of what is below it has a row.
TEST_F(DatabaseEditHost, HandleOfChildrenWithoutRowsIsSeen)
{
    add(three, "Cuda_Volume", "left out");
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    ASSERT_EQ(panel().nb, 8);
    const auto before = painted();
    const Place handle = part(three, children_handle);
    EXPECT_EQ(pixel(window(), {handle.x + 5, handle.y + 3}), (Colors{0xE0, 0xE0, 0xE0}));
    move(window(), handle);
    EXPECT_NE(pixels(window()), before);
    move(window(), empty_space());
    EXPECT_EQ(pixels(window()), before);
}

TEST_F(DatabaseEditHost, WithoutAContextItIsToldAndGoesOn)
{
    Tool_DB_Class& edited = panel();
    Boxs box = edited.list_box;
    {
        const hostkit::Panel_Slot<Tool_DB_Class> closed(main_window(), {}, 18);
        box.window = closed.window();
    }
    reports.clear();
    EXPECT_EQ(DB_Edit_Paint(18, &box, edited.nb, edited.list_pt, &edited.vertical, &edited.horizontal), 1);
    EXPECT_EQ(DB_Edit_Motion_DB(18, &box, 0, edited.nb, edited.list_pt, &edited.vertical, &edited.horizontal), 1);
    const auto told = reports.texts(11);
    EXPECT_NE(std::find(told.begin(), told.end(), "Y_setup(DB_Edit_Paint) GetDC failed"), told.end());
    EXPECT_EQ(lines(), (std::vector{0, 0, 0, 0, 1, 2, 3, 3})) << "the lines are numbered all the same";
    EXPECT_EQ(Y_DC, nullptr);
}
