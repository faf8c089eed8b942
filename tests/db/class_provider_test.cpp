#include "db/tool_db_class.h"
#include "tests/db/provider_fixture.h"

// What the list of classes makes of the host's objects, and what it asks of the host.

using namespace test;

namespace {

class ClassProvider : public Providers {
protected:
    Strato_2D* add(Strato_2D* parent, const char* title, unsigned class_a = 0x2001, unsigned magic = 0)
    {
        return own_tree::add_2d(parent, {title, title, nullptr, class_a, magic});
    }
    Strato_2D* add_leaf(Strato_2D* parent, const char* title) { return add(parent, title, 0x2FFF, 0xAABA); }

    Tool_DB_Class panel;
};

}

TEST_F(ClassProvider, WithoutARootThereIsNothing)
{
    EXPECT_EQ(build(panel), 0);
    EXPECT_EQ(panel.nb, 0);
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, OtherDimensionsAreOneEmptyFolder)
{
    add(nullptr, "root");
    for (const int mode : {0, 4, 15, 20}) {
        Tool_DB_Class other(mode);
        EXPECT_EQ(build(other), 1);
        ASSERT_EQ(other.nb, 1);
        const DB_List& row = other.list_pt[0];
        EXPECT_EQ(row.state, DB_List::expanded);
        EXPECT_STREQ(row.icon, "icon folder.tga");
        EXPECT_EQ(row.object, nullptr);
        EXPECT_EQ(row.title, nullptr);
        EXPECT_EQ(row.nb_child, 0);
        own_tree::take_calls();
        other.List_Select_From_DB(other.nb, other.list_pt);
        other.List_Select_To_DB(other.nb, other.list_pt);
        EXPECT_EQ(own_tree::take_calls(), Lines{"redraw 268435455 null null"});
    }
}

TEST_F(ClassProvider, EachDimensionHasItsRootClassAndWord)
{
    const own_tree::Description root{"r", "Root"}, leaf1{"l", "L", "n", 0x1FFF}, leaf3{"l", "L", "n", 0x3FFF};
    own_tree::add_1d(own_tree::add_1d(nullptr, root), leaf1);
    own_tree::add_3d(own_tree::add_3d(nullptr, root), leaf3);
    for (const auto& [mode, word] : {std::pair{1, "257"}, std::pair{3, "260"}}) {
        Tool_DB_Class other(mode);
        EXPECT_EQ(build(other), 2);
        EXPECT_EQ(other.list_pt[1].state, DB_List::leaf);
        other.list_pt[1].select = DB_List::selected;
        own_tree::take_calls();
        other.List_Select_To_DB(other.nb, other.list_pt);
        EXPECT_EQ(
            own_tree::take_calls(), (Lines{"flag_off r 48", "flag_on l 80", std::string("update ") + word + " 4 null",
                                        "redraw 268435455 null null"}));
        other.list_pt[1].select = 0;
        other.List_Select_From_DB(other.nb, other.list_pt);
        EXPECT_EQ(other.list_pt[1].select, DB_List::selected);
    }
}

TEST_F(ClassProvider, LeftOutObjectsAreNoticed)
{
    Strato_2D* const root = add(nullptr, "Root");
    Strato_2D* const cuda = add(root, "Cuda_Volume");
    add_leaf(cuda, "below");
    add_leaf(root, "Leaf");
    EXPECT_EQ(build(panel), 2);
    EXPECT_EQ(titles_of(panel), (Lines{"Root", "Leaf"}));
    EXPECT_EQ(panel.list_pt[0].nb_child, 2) << "as the host counts";
    EXPECT_EQ(panel.list_pt[0].nb_desc, 1);
    EXPECT_EQ(reports.lines(), Lines{"11 Cuda_Volume"});
    add(nullptr, "Cuda_Volume");
    EXPECT_EQ(build(panel), 0);
    EXPECT_EQ(panel.nb, 0);
}

TEST_F(ClassProvider, StatesOfSpecialObjects)
{
    Strato_2D* const root = add(nullptr, "Root");
    add(root, "Acquis", 0x2FFF, 0xAABA);
    add_leaf(add(root, "Unlisted", 0x2FFD), "hidden");
    add(root, "Other leaf", 0x2FFE);
    add(root, "Acqui", 0x2FFF);
    ASSERT_EQ(build(panel), 5);
    EXPECT_EQ(panel.list_pt[1].state, 0);
    EXPECT_EQ(panel.list_pt[2].state, DB_List::expanded);
    EXPECT_EQ(panel.list_pt[2].nb_child, 0);
    EXPECT_EQ(panel.list_pt[3].state, DB_List::leaf | DB_List::inaccessible);
    EXPECT_EQ(panel.list_pt[4].state, DB_List::leaf);
    EXPECT_EQ(panel.list_pt[4].parent, 0);
}

TEST_F(ClassProvider, RowsHaveTheObjectsIconAndTexts)
{
    Strato_2D* const root = own_tree::add_2d(nullptr, {"r", "Root", "name", 0x2001, 0, "class Root.tga"});
    own_tree::add_2d(root, {"l", nullptr, "", 0x2FFF, 0xAABA});
    ASSERT_EQ(build(panel), 2);
    EXPECT_STREQ(panel.list_pt[0].icon, "class Root.tga");
    EXPECT_STREQ(panel.list_pt[0].title, "Root");
    EXPECT_STREQ(panel.list_pt[0].name, "name");
    EXPECT_EQ(panel.list_pt[0].object, root);
    EXPECT_STREQ(panel.list_pt[1].icon, "icon folder.tga");
    EXPECT_EQ(panel.list_pt[1].title, nullptr);
    EXPECT_EQ(panel.list_pt[1].name, nullptr);
    EXPECT_EQ(panel.list_pt[1].level, 1);
}

TEST_F(ClassProvider, NullChildrenAreSkipped)
{
    Strato_2D* const root = add(nullptr, "Root");
    own_tree::add_null(root);
    add_leaf(root, "Leaf");
    EXPECT_EQ(build(panel), 2);
    EXPECT_EQ(panel.list_pt[0].nb_child, 2);
}

TEST_F(ClassProvider, LeavesOfAnotherKindKeepTheirSelection)
{
    Strato_2D* const root = add(nullptr, "Root");
    Strato_2D* const other = add(root, "Other", 0x2FFF, 0xBEEF);
    own_tree::set_selected(other, true);
    ASSERT_EQ(build(panel), 2);
    EXPECT_EQ(panel.list_pt[1].select, DB_List::selected) << "when it is made";
    own_tree::set_selected(other, false);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, DB_List::selected);
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(own_tree::take_calls(), (Lines{"flag_off Root 48", "update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, RefreshReplacesOrClearsTheMark)
{
    Strato_2D* const leaf = add_leaf(add(nullptr, "Root"), "Leaf");
    build(panel);
    panel.list_pt[1].select = 0x13;
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, 0x11);
    own_tree::set_selected(leaf, true);
    panel.List_Select_From_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(panel.list_pt[1].select, 2);
}

TEST_F(ClassProvider, WithoutAWindowTheChildIsOfferedAllTheSame)
{
    add_leaf(add(nullptr, "Root"), "Leaf");
    build(panel);
    panel.list_pt[1].select = DB_List::selected;
    own_tree::take_calls();
    panel.List_Select_To_DB(panel.nb, panel.list_pt);
    EXPECT_EQ(
        own_tree::take_calls(), (Lines{"flag_off Root 48", "flag_on Leaf 80", "change_child null Leaf null",
                                    "update 2097152 null null", "update 258 4 null", "redraw 268435455 null null"}));
}

TEST_F(ClassProvider, ListEndsAtTheLastRowNumber)
{
    Strato_2D* const root = add(nullptr, "Root");
    for (int i = 0; i < 3; ++i) {
        Strato_2D* const series = add(root, "Series");
        for (int k = 0; k < 30000; ++k)
            add_leaf(series, "i");
    }
    add_leaf(root, "never listed");
    EXPECT_EQ(build(panel), 65535);
    ASSERT_EQ(panel.nb, 65535);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 65534);
    EXPECT_EQ(panel.list_pt[0].nb_child, 4);
    EXPECT_EQ(panel.list_pt[60003].nb_child, 30000);
    EXPECT_EQ(panel.list_pt[60003].nb_desc, 65534 - 60003);
    panel.Update(0x502);
    EXPECT_EQ(panel.list_pt[65534].line, 65534);
}

TEST_F(ClassProvider, MoreChildrenThanNumbersAreCountedToTheLast)
{
    Strato_2D* const root = add(nullptr, "Root");
    for (int i = 0; i < 66000; ++i)
        add_leaf(root, "i");
    EXPECT_EQ(build(panel), 65535);
    EXPECT_EQ(panel.list_pt[0].nb_child, 65535);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 65534);
    EXPECT_EQ(reports.lines(), Lines()) << "it is the program that tells";
}

TEST_F(ClassProvider, DeepTreesAreListed)
{
    Strato_2D* folder = add(nullptr, "Root");
    for (int i = 0; i < 3000; ++i)
        folder = add(folder, "deeper");
    add_leaf(folder, "Leaf");
    EXPECT_EQ(build(panel), 3002);
    EXPECT_EQ(panel.list_pt[3001].level, 3001);
    EXPECT_EQ(panel.list_pt[0].nb_desc, 3001);
}

TEST_F(ClassProvider, WindowThatLocksItsSelectionGreysTheButtons)
{
    own_tree::show_window(2);
    panel.Update(0x100000);
    EXPECT_EQ(panel.select_all.state, 35u);
    EXPECT_EQ(panel.select_none.state, 35u);
    own_tree::show_window(1);
    panel.Update(0x100000);
    EXPECT_EQ(panel.select_all.state, 0u);
    EXPECT_EQ(panel.select_none.state, 0u);
}
