#include "db/edit_state.h"
#include "db/edit_view.h"
#include "hostkit/structures/broadcast.h"
#include "tests/db/diagram.h"

// How the tree is rearranged in the diagram: events as window messages, against the tree that results.

using namespace test;
using db::box_body;
using db::children_handle;
using db::fold_handle;
using db::parent_handle;
using Numbers = std::vector<int>;
using Words = std::vector<unsigned long long>;
using Lines = std::vector<std::string>;

namespace {

bool is_modified(const Strato* object)
{
    return object->Flag_Get_Bit(16, reinterpret_cast<void*>(8), 0x10000000) != 0;
}

}

class DatabaseEdit : public Database_Diagram {
protected:
    static constexpr const char* untouched = "root(x(a(one two three)) y(four))";

    // The words and the redraws that a diagram of some dimension sends for what is done in it.
    template <class Act>
    std::pair<Words, unsigned long long> told_by(int mode, const Act& act)
    {
        hostkit::Panel_Slot<Tool_DB_Class> slot(main_window(), {}, int(mode));
        MoveWindow(slot.window(), 0, 0, 780, 500, TRUE);
        slot.panel().Update(0x400);
        broadcasts();
        unsigned long long redrawn = 0;
        const auto redraws = hostkit::On_Redraw([&](unsigned long long mask) { redrawn |= mask; });
        act(slot.window(), slot.panel().Origin());
        return {broadcasts(), redrawn};
    }
};

// -------------------------------------------------------------------------------------------------------- dragging

TEST_F(DatabaseEdit, AClassIsDraggedToAnotherParent)
{
    drag(part(two, parent_handle), part(study_y, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one three)) y(four two))");
    EXPECT_EQ(two->Parent_Get_Pt(), study_y);
    EXPECT_EQ(broadcasts(), Words{0x402});
    EXPECT_TRUE(is_modified(study_y));
    EXPECT_TRUE(is_modified(root));
    EXPECT_FALSE(is_modified(series_a)) << "whom it was taken from";
    EXPECT_FALSE(is_modified(two));
    EXPECT_EQ(panel().nb, 8);
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 1, 2, 2, 3})) << "the rows follow";
}

TEST_F(DatabaseEdit, AllChildrenAreDraggedInTheirOrder)
{
    unsigned long long redrawn = 0;
    const auto redraws = hostkit::On_Redraw([&](unsigned long long mask) { redrawn |= mask; });
    drag(part(series_a, children_handle), part(study_y, children_handle));
    EXPECT_EQ(tree(), "root(x(a) y(four one two three))");
    EXPECT_EQ(broadcasts(), Words{0x402}) << "the same word waits once";
    EXPECT_EQ(redrawn, 0x0FFFFFFFull);
}

TEST_F(DatabaseEdit, AClassDroppedOnItsOwnParentBecomesTheLastChild)
{
    drag(part(one, parent_handle), part(series_a, children_handle));
    EXPECT_EQ(tree(), "root(x(a(two three one)) y(four))");
}

TEST_F(DatabaseEdit, ChildrenDroppedWhereTheyAreKeepTheirOrder)
{
    drag(part(series_a, children_handle), part(series_a, children_handle));
    EXPECT_EQ(tree(), untouched);
    EXPECT_EQ(broadcasts(), Words{0x402});
}

TEST_F(DatabaseEdit, AnOnlyChildDroppedOnItsParentIsIgnored)
{
    drag(part(four, parent_handle), part(study_y, children_handle));
    EXPECT_EQ(tree(), untouched);
    EXPECT_EQ(broadcasts(), Words());
    EXPECT_FALSE(is_modified(study_y));
    drag(part(study_y, children_handle), part(study_y, children_handle));
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(DatabaseEdit, AClassIsNotPutUnderItselfOrBelow)
{
    drag(part(study_x, parent_handle), part(series_a, children_handle));
    drag(part(study_x, parent_handle), part(study_x, children_handle));
    EXPECT_EQ(tree(), untouched);
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(DatabaseEdit, OfSeveralOnlyThoseThatCanBePutThereAre)
{
    drag(part(root, children_handle), part(series_a, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one two three y(four))))");
}

TEST_F(DatabaseEdit, NothingIsDroppedOnALeafABoxOrEmptySpace)
{
    const Place leaf = part(three, box_body);
    for (const Place to : {Place{leaf.x + 125, leaf.y}, body(study_y), part(study_y, parent_handle),
             part(root, fold_handle), empty_space()})
        drag(part(one, parent_handle), to);
    EXPECT_EQ(tree(), untouched);
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(DatabaseEdit, ReleasedOutsideTheListADragEndsAndNothingFollows)
{
    const Place outside{panel().box.x + 5, panel().box.y + 5};
    drag(part(one, parent_handle), outside);
    EXPECT_FALSE(db::drag.going_on);
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(tree(), untouched);
    drag(part(one, parent_handle), {-200, -200});
    EXPECT_FALSE(db::drag.going_on);
    click(window(), part(study_y, box_body));
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(tree(), untouched);
}

TEST_F(DatabaseEdit, ADragDoesNotBeginOnABoxOrOnNothing)
{
    for (const Place from : {body(one), part(root, parent_handle), empty_space()}) {
        press(window(), from);
        EXPECT_FALSE(db::drag.going_on);
        release(window(), part(study_y, children_handle));
    }
    EXPECT_EQ(tree(), untouched);
}

TEST_F(DatabaseEdit, TheRightButtonDragsAsWell)
{
    press(window(), part(two, parent_handle), Button::right);
    EXPECT_TRUE(db::drag.going_on);
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one three)) y(four two))");
}

TEST_F(DatabaseEdit, ADragScrollsAndGoesOn)
{
    for (int i = 0; i < 30; ++i)
        add(study_y, "Frame", std::to_string(i), hostkit::frame_class);
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    press(window(), part(one, parent_handle));
    const Place below{panel().list_box.x + 400, panel().bottom_zone.y + panel().bottom_zone.height - 2};
    for (int i = 1; i <= 4; ++i) {
        move(window(), below);
        EXPECT_EQ(panel().vertical.value, 12 * i);
    }
    move(window(), part(study_y, children_handle));
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(one->Parent_Get_Pt(), study_y);
}

TEST_F(DatabaseEdit, ATreeThatChangesDuringADragEndsIt)
{
    press(window(), part(one, parent_handle));
    add(root, "Study", "new");
    Fct_Update(0x402, nullptr, nullptr, nullptr);
    move(window(), part(study_y, children_handle));
    release(window(), part(study_y, children_handle));
    EXPECT_EQ(tree(), "root(x(a(one two three)) y(four) new)");
}

TEST_F(DatabaseEdit, AHostThatReactsAtOnceIsSurvived)
{
    // Called outside a slot, so that the host delivers while the panel is at work.
    Tool_DB_Class direct(18);
    Boxs area = panel().box;
    area.window = window();
    direct.Resize(&area);
    direct.Update(0x402);
    int times = 0;
    const auto reacts = hostkit::On_Update([&](unsigned long long flags) {
        ++times;
        direct.Update(flags);
    });
    point(window(), part(series_a, children_handle));
    EXPECT_EQ(direct.Click(18), 1);
    point(window(), part(study_y, children_handle));
    EXPECT_EQ(direct.Click(0), 1);
    EXPECT_EQ(times, 3);
    EXPECT_EQ(tree(), "root(x(a) y(four one two three))");
    EXPECT_EQ(direct.nb, 8);
    point(window(), body(study_y));
    direct.Keyboard(2094);
    EXPECT_EQ(times, 4);
    EXPECT_EQ(tree(), "root(x(a) four one two three)");
    EXPECT_EQ(direct.nb, 7);
}

// ---------------------------------------------------------------------------------------------------------- folding

TEST_F(DatabaseEdit, AFoldedClassShowsItsFirstChildOnly)
{
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 1, 2, 3, 3}));
    click(window(), part(series_a, fold_handle));
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 65535, 65535, 1, 1}));
    click(window(), part(root, fold_handle));
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 65535, 65535, 65535, 65535}));
    click(window(), part(root, fold_handle));
    click(window(), part(series_a, fold_handle));
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 1, 2, 3, 3}));
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(DatabaseEdit, AnOnlyChildCannotBeFoldedAway)
{
    click(window(), part(study_y, fold_handle));
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 1, 2, 3, 3}));
}

TEST_F(DatabaseEdit, EveryChangeUnfoldsAgain)
{
    click(window(), part(root, fold_handle));
    click(window(), part(root, fold_handle));
    click(window(), part(series_a, fold_handle));
    drag(part(one, parent_handle), part(study_y, children_handle));
    EXPECT_EQ(lines(), (Numbers{0, 0, 0, 0, 1, 2, 2, 3}));
}

// --------------------------------------------------------------------------------------------------------- deleting

TEST_F(DatabaseEdit, DeletedClassLeavesItsPlaceToItsChildren)
{
    move(window(), body(series_a));
    key(window(), VK_DELETE);
    EXPECT_EQ(tree(), "root(x(one two three) y(four))");
    EXPECT_EQ(broadcasts(), Words{0x402});
    EXPECT_TRUE(is_modified(study_x));
    move(window(), body(study_x));
    key(window(), VK_DELETE);
    EXPECT_EQ(tree(), "root(one two three y(four))");
    EXPECT_EQ(one->Parent_Get_Pt(), root);
    EXPECT_STREQ(study_x->Name_Get(), "x") << "it is taken out, not destroyed";
    EXPECT_EQ(study_x->Parent_Get_Pt(), nullptr);
    EXPECT_EQ(study_x->Child_Get_Nb(), 0);
}

TEST_F(DatabaseEdit, TheRootIsNotDeleted)
{
    for (const Place place : {body(root), empty_space()}) {
        move(window(), place);
        key(window(), VK_DELETE);
    }
    EXPECT_EQ(tree(), untouched);
    EXPECT_EQ(broadcasts(), Words());
}

TEST_F(DatabaseEdit, DeleteOnAHandleOrAnotherKeyDoesNothing)
{
    for (const auto handle : {parent_handle, children_handle, fold_handle}) {
        move(window(), part(series_a, handle));
        key(window(), VK_DELETE);
    }
    move(window(), body(series_a));
    for (const int code : {VK_BACK, VK_INSERT, VK_RETURN})
        key(window(), code);
    EXPECT_EQ(tree(), untouched);
}

// -------------------------------------------------------------------------------------------------- words and results

TEST_F(DatabaseEdit, OtherDimensionsHaveWordsOfTheirOwn)
{
    // In trees of four: from the last one, on line 1, to the first child of the root.
    const auto move_last = [&](int mode) {
        return told_by(mode, [](HWND diagram, db::List_Point origin) {
            press(diagram, {origin.x + 330, origin.y - 50 - 30});
            release(diagram, {origin.x + 330 + 250, origin.y - 30});
        });
    };
    Strato_1D* const signals = hostkit::Root_1D();
    Strato_1D* const first = hostkit::Object_1D_Add(signals, {.name = "first"});
    hostkit::Object_1D_Add(first, {.name = "inner"});
    Strato_1D* const second = hostkit::Object_1D_Add(signals, {.name = "second"});
    EXPECT_EQ(move_last(17), std::pair(Words{0x401}, 0x0FFFFFFFull));
    EXPECT_EQ(second->Parent_Get_Pt(), first);

    Strato_3D* const volumes = hostkit::Root_3D();
    Strato_3D* const outer = hostkit::Object_3D_Add(volumes, {.name = "outer"});
    hostkit::Object_3D_Add(outer, {.name = "inner"});
    Strato_3D* const other = hostkit::Object_3D_Add(volumes, {.name = "other"});
    EXPECT_EQ(move_last(19), std::pair(Words{0x404}, 0x33FFFFFF00000000ull));
    EXPECT_EQ(other->Parent_Get_Pt(), outer);
}

TEST_F(DatabaseEdit, DeletingInOtherDimensionsHasThemToo)
{
    const auto delete_first = [&](int mode) {
        return told_by(mode, [](HWND diagram, db::List_Point origin) {
            move(diagram, {origin.x + 330 + 125, origin.y - 30});
            key(diagram, VK_DELETE);
        });
    };
    Strato_1D* const signals = hostkit::Root_1D();
    Strato_1D* const inner = hostkit::Object_1D_Add(hostkit::Object_1D_Add(signals, {.name = "first"}), {});
    EXPECT_EQ(delete_first(17), std::pair(Words{0x401}, 0x0FFFFFFFull));
    EXPECT_EQ(inner->Parent_Get_Pt(), signals);
    EXPECT_TRUE(is_modified(signals));

    EXPECT_EQ(delete_first(18), std::pair(Words{0x402}, 0x0FFFFFFFull));
    EXPECT_EQ(tree(), "root(a(one two three) y(four))");

    Strato_3D* const volumes = hostkit::Root_3D();
    Strato_3D* const core = hostkit::Object_3D_Add(hostkit::Object_3D_Add(volumes, {.name = "outer"}), {});
    EXPECT_EQ(delete_first(19), std::pair(Words{0x404}, 0x33FFFFFF00000000ull));
    EXPECT_EQ(core->Parent_Get_Pt(), volumes);
    EXPECT_TRUE(is_modified(volumes));
}

TEST_F(DatabaseEdit, RowUnderThePointerIsThatOfAnyPart)
{
    const auto row_at = [&](Place place) {
        point(window(), place);
        return panel().Row_Under_Pointer();
    };
    EXPECT_EQ(row_at(body(root)), 0);
    EXPECT_EQ(row_at(empty_space()), -1) << "which the root's code stands for as well";
    for (const auto of : {box_body, parent_handle, children_handle, fold_handle})
        EXPECT_EQ(row_at(part(series_a, of)), row_of(series_a));
    EXPECT_EQ(row_at({panel().box.x + 2, panel().box.y + 2}), -1);
}

TEST_F(DatabaseEdit, HandlersTraceFirst)
{
    point(window(), body(one));
    panel().Click(18);
    panel().Click(0);
    panel().Motion(0);
    panel().Keyboard(2094);
    const Lines traces = reports.texts(15);
    const Lines wanted{"in Tool_DB_List::Click(up_down=0x00000012)", "in DB_Edit_Click_DB(up_down=0x00000012)",
        "in DB_Edit_Locate()", "in Tool_DB_List::Click(up_down=0x00000000)", "in DB_Edit_Click_DB(up_down=0x00000000)",
        "in DB_Edit_Locate()", "in DB_Edit_Motion_DB(up_down=0x00000000)", "in DB_Edit_Locate()",
        "in Tool_DB_List::Keyboard(key=0x0000082e)", "in DB_Edit_Key_DB(key=0x0000082e)", "in DB_Edit_Locate()"};
    EXPECT_EQ(traces, wanted);
}

TEST_F(DatabaseEdit, WithoutRowsEveryHandlerIsHarmless)
{
    Tool_DB_Class& edited = panel();
    DB_List* const none = nullptr;
    Boxs* const box = &edited.list_box;
    point(window(), body(one));
    for (const int nb : {0, 8}) {
        EXPECT_EQ(DB_Edit_Paint(18, box, nb, none, &edited.vertical, &edited.horizontal), 0);
        EXPECT_EQ(DB_Edit_Locate(box, nb, none, &edited.horizontal, &edited.vertical), 0);
        EXPECT_EQ(DB_Edit_Click_DB(18, box, 18, nb, none, &edited.vertical, &edited.horizontal), 1);
        EXPECT_EQ(DB_Edit_Click_DB(18, box, 66, nb, none, &edited.vertical, &edited.horizontal), 1);
        EXPECT_EQ(DB_Edit_Click_DB(18, box, 0, nb, none, &edited.vertical, &edited.horizontal), 1);
        EXPECT_EQ(DB_Edit_Key_DB(18, box, 2094, nb, none, &edited.vertical, &edited.horizontal), 0);
        EXPECT_EQ(DB_Edit_Motion_DB(18, box, 0, nb, none, &edited.vertical, &edited.horizontal), 1);
    }
    EXPECT_EQ(tree(), untouched);
}

TEST_F(DatabaseEdit, LocatingTakesTheHorizontalBarFirst)
{
    const Tool_DB_Class& edited = panel();
    point(window(), part(root, children_handle));
    Sliders down, across;
    down.value = 150; // where study y's children handle is then
    across.value = 330;
    const auto locate = [&](const Sliders& first, const Sliders& second) {
        return DB_Edit_Locate(&edited.list_box, edited.nb, edited.list_pt, &first, &second);
    };
    EXPECT_EQ(locate(across, down), 10 * row_of(study_y) + children_handle);
    EXPECT_EQ(locate(down, across), 0);
}

TEST_F(DatabaseEdit, ClicksResults)
{
    Tool_DB_Class& edited = panel();
    const auto click_at = [&](Place place, int word) {
        point(window(), place);
        return DB_Edit_Click_DB(
            18, &edited.list_box, word, edited.nb, edited.list_pt, &edited.vertical, &edited.horizontal);
    };
    EXPECT_EQ(click_at(body(one), 18), 1);
    EXPECT_EQ(click_at(body(one), 0), 1);
    EXPECT_EQ(click_at(part(study_x, parent_handle), 18), 1);
    EXPECT_EQ(click_at(part(series_a, children_handle), 0), 2) << "also when all that is dragged is refused";
    EXPECT_EQ(click_at(part(study_x, parent_handle), 18), 1);
    EXPECT_EQ(click_at(body(one), 0), 1);
}
